#include "CorvaleKit/text/Text.h"

#include <utf8proc.h>

#include <algorithm>

#include "CorvaleKit/text/Utf8.h"

namespace corvale::Text {

namespace {

utf8proc_category_t categoryOf(char32_t scalar) { return utf8proc_category(static_cast<utf8proc_int32_t>(scalar)); }

template <typename Predicate>
std::string_view trimmedAtStart(std::string_view text, Predicate drops) {
    while (!text.empty()) {
        const auto scalar = Utf8::scalarAt(text, 0);
        if (!drops(scalar.value)) {
            break;
        }
        text.remove_prefix(scalar.length);
    }
    return text;
}

template <typename Predicate>
std::string_view trimmedAtEnd(std::string_view text, Predicate drops) {
    while (!text.empty()) {
        const auto scalar = Utf8::scalarBefore(text, text.size());
        if (!drops(scalar.value)) {
            break;
        }
        text.remove_suffix(scalar.length);
    }
    return text;
}

// Printable ASCII at both ends: nothing to trim. Most cells are.
bool hasPlainEnds(std::string_view text) {
    const auto isPlain = [](char c) { return c > ' ' && c < 0x7F; };
    return text.empty() || (isPlain(text.front()) && isPlain(text.back()));
}

char asciiLowercased(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

void appendLowercasedScalar(std::string& target, char32_t scalar) {
    // The one unconditional lower-casing that yields two scalars (Unicode SpecialCasing.txt).
    constexpr char32_t capitalIWithDot = 0x130;
    if (scalar == capitalIWithDot) {
        target += "i\u0307";
        return;
    }
    Utf8::append(target, static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(scalar))));
}

// True when the text is ASCII throughout.
bool lowercaseAscii(char* text, std::size_t size) {
    unsigned char allBits = 0;
    for (std::size_t i = 0; i < size; ++i) {
        allBits |= static_cast<unsigned char>(text[i]);
        text[i] = asciiLowercased(text[i]);
    }
    return allBits < 0x80;
}

// Lower-cases as far as every scalar keeps its number of bytes, as nearly all do; returns where that ends.
std::size_t lowercaseInPlace(char* text, std::size_t size) {
    if (lowercaseAscii(text, size)) {
        return size;
    }
    const std::string_view view(text, size);
    std::string lower;
    std::size_t i = Utf8::asciiEnd(view, 0);
    while (i < size) {
        const auto scalar = Utf8::scalarAt(view, i);
        lower.clear();
        appendLowercasedScalar(lower, scalar.value);
        if (lower.size() != scalar.length) {
            return i;
        }
        lower.copy(text + i, lower.size());
        i = Utf8::asciiEnd(view, i + scalar.length);
    }
    return size;
}

// Steps over a text character by character.
class CharacterWalk {
public:
    explicit CharacterWalk(std::string_view text) : m_text(text) {}

    bool atEnd() const { return m_position >= m_text.size(); }
    std::size_t position() const { return m_position; }

    void next() {
        Utf8::Scalar scalar = Utf8::scalarAt(m_text, m_position);
        m_position += scalar.length;
        utf8proc_int32_t state = 0;
        while (!atEnd()) {
            const Utf8::Scalar following = Utf8::scalarAt(m_text, m_position);
            if (breaksBetween(scalar.value, following.value, state)) {
                return;
            }
            m_position += following.length;
            scalar = following;
        }
    }

private:
    static bool breaksBetween(char32_t a, char32_t b, utf8proc_int32_t& state) {
        if (a < 0x80 && b < 0x80) {
            return a != '\r' || b != '\n';
        }
        return utf8proc_grapheme_break_stateful(
            static_cast<utf8proc_int32_t>(a), static_cast<utf8proc_int32_t>(b), &state);
    }

    std::string_view m_text;
    std::size_t m_position = 0;
};

}  // namespace

bool isSpace(char32_t scalar) {
    if (scalar < 0x80) {
        return scalar == ' ' || scalar == '\t';
    }
    return categoryOf(scalar) == UTF8PROC_CATEGORY_ZS;
}

bool isSpaceOrLineBreak(char32_t scalar) {
    return isSpace(scalar) || (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 ||
           scalar == 0x2029;
}

bool isLetter(char32_t scalar) {
    const auto category = categoryOf(scalar);
    return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO;
}

bool isDigit(char32_t scalar) {
    if (scalar < 0x80) {
        return scalar >= '0' && scalar <= '9';
    }
    return categoryOf(scalar) == UTF8PROC_CATEGORY_ND;
}

std::string_view trimSpaces(std::string_view text) {
    return hasPlainEnds(text) ? text : trimSpacesAtEnd(trimSpacesAtStart(text));
}

std::string_view trimSpacesAndLineBreaks(std::string_view text) {
    if (hasPlainEnds(text)) {
        return text;
    }
    return trimmedAtEnd(trimmedAtStart(text, isSpaceOrLineBreak), isSpaceOrLineBreak);
}

std::string_view trimSpacesAtStart(std::string_view text) { return trimmedAtStart(text, isSpace); }

std::string_view trimSpacesAtEnd(std::string_view text) { return trimmedAtEnd(text, isSpace); }

bool isBlank(std::string_view text) { return trimSpacesAtStart(text).empty(); }

std::string lowercased(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    appendLowercased(result, text);
    return result;
}

void appendLowercased(std::string& target, std::string_view text) {
    const std::size_t start = target.size();
    target.append(text);
    const std::size_t done = lowercaseInPlace(target.data() + start, text.size());
    if (done == text.size()) {
        return;
    }
    target.resize(start + done);
    for (std::size_t i = done; i < text.size();) {
        const auto scalar = Utf8::scalarAt(text, i);
        appendLowercasedScalar(target, scalar.value);
        i += scalar.length;
    }
}

bool lowercasingMayChange(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        return (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
    });
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    const std::size_t common = std::min(a.size(), b.size());
    std::size_t i = 0;
    for (; i < common && static_cast<unsigned char>(a[i] | b[i]) < 0x80; ++i) {
        if (asciiLowercased(a[i]) != asciiLowercased(b[i])) {
            return false;
        }
    }
    return i == common ? a.size() == b.size() : lowercased(a.substr(i)) == lowercased(b.substr(i));
}

std::size_t characterCount(std::string_view text) {
    CharacterWalk walk(text);
    std::size_t count = 0;
    for (; !walk.atEnd(); walk.next()) {
        ++count;
    }
    return count;
}

bool hasMoreCharactersThan(std::string_view text, std::size_t limit) {
    return text.size() > limit && firstCharacters(text, limit).size() < text.size();
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    CharacterWalk walk(text);
    for (; count > 0 && !walk.atEnd(); walk.next()) {
        --count;
    }
    return text.substr(0, walk.position());
}

std::size_t displayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto scalar = Utf8::scalarAt(text, i);
        width += static_cast<std::size_t>(std::max(0, utf8proc_charwidth(static_cast<utf8proc_int32_t>(scalar.value))));
        i += scalar.length;
    }
    return width;
}

}  // namespace corvale::Text
