#include "CorvaleKit/loading/PlainXML.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/text/Utf8.h"

namespace corvale::PlainXML {

namespace {

// Beyond these a part is not plain. They keep the search for equal names short and the depth below any limit.
constexpr std::size_t mostAttributes = 32;
constexpr std::size_t deepestElement = 100;

// What a byte may stand for.
using Classes = std::uint8_t;
constexpr Classes space = 1;        // between the parts of a tag
constexpr Classes nameStart = 2;    // of the names in ASCII
constexpr Classes nameRest = 4;     // after the start
constexpr Classes plainText = 8;    // itself, wherever it stands in a text
constexpr Classes plainValue = 16;  // itself, wherever it stands in the value of an attribute
constexpr Classes beyondAscii = 32;

constexpr bool isOneOf(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }

constexpr Classes classesOf(unsigned char byte) {
    const auto c = static_cast<char>(byte);
    if (byte >= 0x80) {
        return beyondAscii;
    }
    if (byte < 0x20) {
        return c == '\r' ? space : c == '\t' || c == '\n' ? space | plainText : 0;
    }
    const bool startsName = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':';
    const bool continuesName = startsName || (c >= '0' && c <= '9') || c == '-' || c == '.';
    unsigned classes = c == ' ' ? space : 0U;
    classes |= startsName ? nameStart : 0U;
    classes |= continuesName ? nameRest : 0U;
    classes |= isOneOf(c, "<&>") ? 0U : plainText;
    classes |= isOneOf(c, "<&\"'") ? 0U : plainValue;
    return static_cast<Classes>(classes);
}

constexpr std::array<Classes, 256> classesOfBytes() {
    std::array<Classes, 256> table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte) {
        table[byte] = classesOf(static_cast<unsigned char>(byte));
    }
    return table;
}

constexpr std::array<Classes, 256> classTable = classesOfBytes();

// Production Char of XML 1.0.
bool isCharacter(std::uint32_t scalar) {
    if (scalar < 0x20) {
        return scalar == '\t' || scalar == '\n' || scalar == '\r';
    }
    return scalar < 0xD800 || (scalar >= 0xE000 && scalar < 0xFFFE) || (scalar >= 0x10000 && scalar < 0x110000);
}

// Of what is UTF-8.
bool hasNoncharacter(std::string_view text) {
    return text.find("\xEF\xBF\xBE") != std::string_view::npos || text.find("\xEF\xBF\xBF") != std::string_view::npos;
}

class Scanner {
public:
    Scanner(std::string_view part, XMLEvents::Delivery& delivery)
        : m_at(part.data()), m_end(part.data() + part.size()), m_delivery(delivery) {}

    bool run() {
        if (!takeProlog() || !take('<') || !takeStartTag()) {
            return false;
        }
        while (!m_open.empty()) {
            if (!takeText() || !(take('/') ? takeEndTag() : takeStartTag())) {
                return false;
            }
        }
        takeSpace();
        return m_at == m_end;
    }

private:
    // The functions that take something return whether it was there, and stand behind it then. Those that look at more
    // than one text may have moved although they fail: no other way is tried after them.

    bool takeProlog() {
        take("\xEF\xBB\xBF");
        if (take("<?xml") && !(takeAttributes() && saysUtf8() && take("?>"))) {
            return false;
        }
        takeSpace();
        return true;
    }

    // Whether the attributes are those of a declaration of XML 1.0 in UTF-8, which a part is without one too.
    bool saysUtf8() const {
        auto next = m_attributes.begin();
        const auto says = [&](std::string_view name, std::string_view value) {
            const bool isNext = next != m_attributes.end() && next->name() == name && next->value() == value;
            next += isNext ? 1 : 0;
            return isNext;
        };
        const bool isFirstVersion = says("version", "1.0");
        says("encoding", "UTF-8") || says("encoding", "utf-8");
        says("standalone", "yes") || says("standalone", "no");
        return isFirstVersion && next == m_attributes.end() && m_decoded.empty();
    }

    bool takeStartTag() {
        const std::string_view name = takeName();
        if (name.empty() || m_open.size() == deepestElement || !takeAttributes()) {
            return false;
        }
        const XMLEvents::Attributes attributes(m_attributes.data(), m_attributes.size());
        if (take('>')) {
            m_delivery.start(name, attributes);
            m_open.push_back(name);
            return true;
        }
        if (take("/>")) {
            m_delivery.start(name, attributes);
            m_delivery.end(name);
            return true;
        }
        return false;
    }

    bool takeEndTag() {
        const std::string_view name = m_open.back();
        if (!take(name)) {
            return false;
        }
        takeSpace();
        if (!take('>')) {
            return false;
        }
        m_delivery.end(name);
        m_open.pop_back();
        return true;
    }

    // Any number, and the white space after them.
    bool takeAttributes() {
        m_attributes.clear();
        if (!m_decoded.empty()) {
            m_decoded.clear();
        }
        while (takeSpace() && isAt(nameStart)) {
            if (!takeAttribute()) {
                return false;
            }
        }
        return true;
    }

    bool takeAttribute() {
        const std::string_view name = takeName();
        takeSpace();
        if (m_attributes.size() == mostAttributes || isGiven(name) || !take('=')) {
            return false;
        }
        takeSpace();
        const char quote = take('"') ? '"' : '\'';
        return (quote == '"' || take('\'')) && takeValue(name, quote);
    }

    bool isGiven(std::string_view name) const {
        return std::ranges::any_of(m_attributes,
                                   [&](const XMLEvents::Attribute attribute) { return attribute.name() == name; });
    }

    // Up to the quote.
    bool takeValue(std::string_view name, char quote) {
        std::string* decoded = nullptr;
        for (const char* start = m_at;;) {
            skip(plainValue);
            if (m_at == m_end) {
                return false;
            }
            if (*m_at == '&') {
                decoded = decoded == nullptr ? &m_decoded.emplace_back() : decoded;
                decoded->append(start, m_at);
                if (!takeReference(*decoded)) {
                    return false;
                }
                start = m_at;
            } else if (*m_at == quote) {
                const std::string_view rest = between(start, m_at++);
                m_attributes.emplace_back(name, decoded == nullptr ? rest : decoded->append(rest));
                return true;
            } else if (*m_at == '"' || *m_at == '\'') {
                ++m_at;
            } else if (!takeBeyondAscii()) {
                return false;
            }
        }
    }

    // Up to the next tag, whose "<" is taken too.
    bool takeText() {
        for (const char* start = m_at;;) {
            skip(plainText);
            if (m_at == m_end) {
                return false;
            }
            if (*m_at == '<') {
                m_delivery.text(between(start, m_at++));
                return true;
            }
            if (*m_at == '&' || *m_at == '\r') {
                m_delivery.text(between(start, m_at));
                if (!(*m_at == '&' ? takeReferenceInText() : takeLineBreak())) {
                    return false;
                }
                start = m_at;
            } else if (!takeAngle(start) && !takeBeyondAscii()) {
                return false;
            }
        }
    }

    // Not one that ends a CDATA section, which nothing has begun.
    bool takeAngle(const char* textStart) { return !between(textStart, m_at).ends_with("]]") && take('>'); }

    // Each is one line feed, however it is written.
    bool takeLineBreak() {
        ++m_at;
        take('\n');
        m_delivery.text("\n");
        return true;
    }

    bool takeReferenceInText() {
        m_character.clear();
        const bool isKnown = takeReference(m_character);
        m_delivery.text(m_character);
        return isKnown;
    }

    // Appends the character.
    bool takeReference(std::string& target) {
        using Entity = std::pair<std::string_view, char>;
        constexpr std::array<Entity, 5> predefined = {Entity("&amp;", '&'),
                                                      Entity("&lt;", '<'),
                                                      Entity("&gt;", '>'),
                                                      Entity("&quot;", '"'),
                                                      Entity("&apos;", '\'')};
        for (const auto& [reference, character] : predefined) {
            if (take(reference)) {
                target += character;
                return true;
            }
        }
        return take("&#") && takeNumber(target);
    }

    bool takeNumber(std::string& target) {
        constexpr int decimal = 10;
        constexpr int hexadecimal = 16;
        std::uint32_t scalar = 0;
        const int base = take('x') ? hexadecimal : decimal;
        const auto [stop, error] = std::from_chars(m_at, m_end, scalar, base);
        m_at = stop;
        if (error != std::errc() || !isCharacter(scalar) || !take(';')) {
            return false;
        }
        Utf8::append(target, scalar);
        return true;
    }

    bool takeBeyondAscii() {
        const char* start = m_at;
        skip(beyondAscii);
        const std::string_view run = between(start, m_at);
        return !run.empty() && Utf8::isValid(run) && !hasNoncharacter(run);
    }

    // Empty when there is none.
    std::string_view takeName() {
        const char* start = m_at;
        if (isAt(nameStart)) {
            skip(nameRest);
        }
        return between(start, m_at);
    }

    bool takeSpace() {
        const char* start = m_at;
        skip(space);
        return m_at != start;
    }

    bool take(char c) {
        const bool isThere = m_at != m_end && *m_at == c;
        m_at += isThere ? 1 : 0;
        return isThere;
    }

    bool take(std::string_view text) {
        const bool isThere = between(m_at, m_end).starts_with(text);
        m_at += isThere ? text.size() : 0;
        return isThere;
    }

    bool isAt(Classes classes) const {
        return m_at != m_end && (classTable[static_cast<unsigned char>(*m_at)] & classes) != 0;
    }

    void skip(Classes classes) {
        while (isAt(classes)) {
            ++m_at;
        }
    }

    static std::string_view between(const char* start, const char* end) {
        return {start, static_cast<std::size_t>(end - start)};
    }

    const char* m_at;
    const char* m_end;
    XMLEvents::Delivery& m_delivery;
    std::vector<std::string_view> m_open;            // names of the elements that are open
    std::vector<XMLEvents::Attribute> m_attributes;  // of the current tag
    std::deque<std::string> m_decoded;  // those of their values that hold references; each stays where it is
    std::string m_character;
};

}  // namespace

bool deliver(std::string_view part, XMLEvents::Delivery& delivery) { return Scanner(part, delivery).run(); }

}  // namespace corvale::PlainXML
