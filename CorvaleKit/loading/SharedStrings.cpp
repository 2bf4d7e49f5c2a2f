#include "CorvaleKit/loading/SharedStrings.h"

#include <string>

namespace corvale::XLSX {

namespace {

class SharedStringsHandler : public XMLEvents::Handler {
public:
    SharedStringsHandler(SharedStrings& strings, std::size_t most) : m_strings(strings), m_most(most) {}

    bool onStart(std::string_view name, const XMLEvents::Attributes&) override {
        if (name == "si") {
            ++m_stringsOpen;
        } else if (name == "rPh") {
            ++m_guidesOpen;
        }
        return name == "t" && isWanted();
    }

    void onEnd(std::string_view name, std::string& text) override {
        if (name == "t") {
            if (isWanted()) {
                m_strings.texts.append(text);
            }
        } else if (name == "si") {
            --m_stringsOpen;
            if (m_strings.ends.size() < m_most) {
                m_strings.ends.push_back(m_strings.texts.size());
            }
        } else if (name == "rPh") {
            --m_guidesOpen;
        }
    }

private:
    bool isWanted() const { return m_stringsOpen > 0 && m_guidesOpen == 0; }

    SharedStrings& m_strings;
    std::size_t m_most;
    int m_stringsOpen = 0;
    int m_guidesOpen = 0;
};

}  // namespace

SharedStrings sharedStrings(std::string_view part, std::size_t most, XMLEvents::Parser parse) {
    SharedStrings strings;
    strings.texts.reserve(part.size());
    SharedStringsHandler handler(strings, most);
    parse(part, handler);
    return strings;
}

}  // namespace corvale::XLSX
