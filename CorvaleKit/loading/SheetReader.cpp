#include "CorvaleKit/loading/SheetReader.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/base/Numbers.h"
#include "CorvaleKit/loading/CellFormat.h"
#include "CorvaleKit/loading/CellReference.h"
#include "CorvaleKit/loading/SheetCells.h"

namespace corvale::XLSX {

namespace {

enum class CellType : std::uint8_t { number, sharedString, inlineString, formulaText, date, boolean };

CellType cellType(std::string_view t) {
    if (t == "s") {
        return CellType::sharedString;
    }
    if (t == "str") {
        return CellType::formulaText;
    }
    if (t == "inlineStr") {
        return CellType::inlineString;
    }
    if (t == "b") {
        return CellType::boolean;
    }
    return t == "d" ? CellType::date : CellType::number;
}

std::string_view withoutMidnight(std::string_view isoDate) {
    constexpr std::string_view midnight = "T00:00:00";
    if (isoDate.ends_with(midnight)) {
        isoDate.remove_suffix(midnight.size());
    }
    return isoDate;
}

class SheetHandler : public XMLEvents::Handler {
public:
    // cppcheck-suppress passedByValue; its strings are moved out of it
    explicit SheetHandler(Workbook workbook)
        : m_stringEnds(std::move(workbook.strings.ends)),
          m_formats(std::move(workbook.formats)),
          m_date1904(workbook.date1904),
          m_cells(std::move(workbook.strings.texts)),
          m_true(m_cells.keep("TRUE")),
          m_false(m_cells.keep("FALSE")) {}

    void reserveFor(std::size_t bytes) { m_cells.reserveFor(bytes); }
    CellGrid finish() { return m_cells.finish(); }

    bool onStart(std::string_view name, const XMLEvents::Attributes& attributes) override {
        if (name.size() == 1) {
            if (name[0] == 'c') {
                startCell(attributes);
            }
            return name[0] == 'v' || (name[0] == 't' && m_inlineStringsOpen > 0);
        }
        if (name == "row") {
            startRow(attributes);
        } else if (name == "is") {
            ++m_inlineStringsOpen;
            m_inlineString.clear();
        }
        return false;
    }

    void onEnd(std::string_view name, std::string& text) override {
        if (name == "v") {
            m_value.swap(text);
        } else if (name == "c") {
            endCell();
        } else if (name == "t" && m_inlineStringsOpen > 0) {
            m_inlineString += text;
        } else if (name == "is") {
            --m_inlineStringsOpen;
        }
    }

private:
    void startRow(const XMLEvents::Attributes& attributes) {
        const auto r = attributes.find("r");
        const auto number = r ? Numbers::integer(*r) : std::nullopt;
        if (number && *number >= 1) {
            m_row = *number - 1;
        } else if (m_row < std::numeric_limits<std::int64_t>::max()) {
            ++m_row;
        }
        m_nextColumn = 0;
    }

    void startCell(const XMLEvents::Attributes& attributes) {
        m_place = {m_row, m_nextColumn};
        m_type = CellType::number;
        m_style = 0;
        for (const XMLEvents::Attribute attribute : attributes) {
            if (attribute.is('r')) {
                m_place = cellReference(attribute.value()).value_or(m_place);
            } else if (attribute.is('t')) {
                m_type = cellType(attribute.value());
            } else if (attribute.is('s')) {
                m_style = Numbers::integer(attribute.value()).value_or(0);
            }
        }
        m_nextColumn = m_place.column + 1;
        m_value.clear();
        m_inlineString.clear();
    }

    void endCell() {
        const bool isInside = m_place.row >= 0 && m_place.row < mostRows && m_place.column < mostColumns;
        const bool needsValue = m_type == CellType::number || m_type == CellType::sharedString;
        if (isInside && !(needsValue && m_value.empty())) {
            m_cells.place(static_cast<std::uint32_t>(m_place.row), static_cast<std::uint32_t>(m_place.column), cell());
        }
    }

    std::uint64_t cell() {
        switch (m_type) {
            case CellType::number:
                return numberCell();
            case CellType::sharedString:
                return sharedStringCell();
            case CellType::inlineString:
                return m_cells.keep(m_inlineString);
            case CellType::formulaText:
                return m_cells.keep(m_value);
            case CellType::date:
                return m_cells.keep(withoutMidnight(m_value));
            case CellType::boolean:
                return m_value == "1" ? m_true : m_false;
        }
        return 0;
    }

    std::uint64_t sharedStringCell() {
        const auto index = Numbers::integer(m_value);
        if (!index || *index < 0 || static_cast<std::uint64_t>(*index) >= m_stringEnds.size()) {
            return m_cells.keep("");
        }
        const auto position = static_cast<std::size_t>(*index);
        const std::uint64_t start = position == 0 ? 0 : m_stringEnds[position - 1];
        return m_cells.cell(start, m_stringEnds[position] - start);
    }

    std::uint64_t numberCell() {
        const bool isKnown = m_style >= 0 && static_cast<std::uint64_t>(m_style) < m_formats.size();
        const NumberFormat format = isKnown ? m_formats[static_cast<std::size_t>(m_style)] : NumberFormat{};
        // Much longer than its XML: kept once, however many cells there are.
        constexpr std::int64_t longPadding = 32;
        if (format.digits <= longPadding) {
            return m_cells.keep(displayText(m_value, format, m_date1904, m_scratch));
        }
        auto& cell = m_padded[std::pair(m_value, format.digits)];
        if (cell == 0) {
            cell = m_cells.keep(displayText(m_value, format, m_date1904, m_scratch));
        }
        return cell;
    }

    std::vector<std::uint64_t> m_stringEnds;
    std::vector<NumberFormat> m_formats;
    bool m_date1904;
    SheetCells m_cells;
    std::uint64_t m_true;
    std::uint64_t m_false;
    HashMap<std::pair<std::string, std::int64_t>, std::uint64_t> m_padded;
    std::string m_scratch;

    std::int64_t m_row = -1;
    std::int64_t m_nextColumn = 0;
    int m_inlineStringsOpen = 0;

    // The current cell.
    CellReference m_place;
    CellType m_type = CellType::number;
    std::int64_t m_style = 0;
    std::string m_value;
    std::string m_inlineString;
};

}  // namespace

CellGrid sheetGrid(Bytes part, Workbook workbook, XMLEvents::Parser parse) {
    SheetHandler handler(std::move(workbook));
    handler.reserveFor(part.size());
    parse(part.view(), handler);
    part = Bytes();
    return handler.finish();
}

}  // namespace corvale::XLSX
