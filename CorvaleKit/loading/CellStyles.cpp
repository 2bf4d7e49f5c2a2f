#include "CorvaleKit/loading/CellStyles.h"

#include <cstdint>
#include <optional>
#include <string>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/base/Numbers.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

namespace {

std::optional<std::int64_t> numberFormatId(const XMLEvents::Attributes& attributes) {
    const auto id = attributes.find("numFmtId");
    return id ? Numbers::integer(*id) : std::nullopt;
}

class StylesHandler : public XMLEvents::Handler {
public:
    bool onStart(std::string_view name, const XMLEvents::Attributes& attributes) override {
        if (name == "numFmt") {
            keepCode(attributes);
        } else if (name == "cellXfs") {
            ++m_listsOpen;
        } else if (name == "xf" && m_listsOpen > 0 && m_styles.size() < mostStyles) {
            m_styles.push_back(numberFormatId(attributes).value_or(0));
        }
        return false;
    }

    void onEnd(std::string_view name, std::string&) override {
        if (name == "cellXfs") {
            --m_listsOpen;
        }
    }

    // Once the whole part is read: codes may come after the styles that use them.
    std::vector<NumberFormat> formats() const {
        std::vector<NumberFormat> formats;
        formats.reserve(m_styles.size());
        for (const std::int64_t id : m_styles) {
            const auto format = m_formats.find(id);
            formats.push_back(format != m_formats.end() ? format->second : numberFormat(id, std::nullopt));
        }
        return formats;
    }

private:
    void keepCode(const XMLEvents::Attributes& attributes) {
        const auto id = numberFormatId(attributes);
        const auto code = attributes.find("formatCode");
        if (id && code && (m_formats.size() < mostStyles || m_formats.contains(*id))) {
            m_formats.insert_or_assign(*id, boundedFormat(numberFormat(*id, *code)));
        }
    }

    // Spreadsheet programs allow codes of 255 characters. Past that, a small file could ask for cells of any size.
    static NumberFormat boundedFormat(NumberFormat format) {
        constexpr std::int64_t longestCode = 255;
        return format.digits > longestCode ? NumberFormat{} : format;
    }

    HashMap<std::int64_t, NumberFormat> m_formats;
    std::vector<std::int64_t> m_styles;
    int m_listsOpen = 0;
};

}  // namespace

std::vector<NumberFormat> cellFormats(std::string_view part) {
    StylesHandler handler;
    XMLEvents::parse(part, handler);
    return handler.formats();
}

}  // namespace corvale::XLSX
