#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "CorvaleKit/engine/Normalizer.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

// How a cell is read as a number, and a number written.
namespace corvale::Normalizer {

namespace {

constexpr std::size_t longestNumber = 40;  // characters

constexpr std::string_view noBreakSpace = "\u00A0";
constexpr std::string_view narrowNoBreakSpace = "\u202F";
constexpr std::array<std::string_view, 12> currencies{"$", "€", "£", "¥", "₹", "₩", "₽", "₺", "₫", "₱", "₪", "¢"};

bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }

// The length of the currency sign at the start, or 0.
std::size_t currencyAtStart(std::string_view text) {
    if (text.empty() || isAsciiDigit(text.front())) {
        return 0;
    }
    for (const auto currency : currencies) {
        if (text.starts_with(currency)) {
            return currency.size();
        }
    }
    return 0;
}

std::size_t currencyAtEnd(std::string_view text) {
    if (text.empty() || isAsciiDigit(text.back())) {
        return 0;
    }
    for (const auto currency : currencies) {
        if (text.ends_with(currency)) {
            return currency.size();
        }
    }
    return 0;
}

bool dropPrefix(std::string_view& text, char prefix) {
    const bool has = text.starts_with(prefix);
    text.remove_prefix(has ? 1 : 0);
    return has;
}

// A number's digits and separators, once signs, brackets and currency are off.
struct Unsigned {
    std::string_view text;
    bool isNegative = false;
    bool isPercent = false;
};

// The signs come off in one fixed order, each at most once; a minus before the currency sign and another behind it are
// one and the same.
Unsigned withoutSigns(std::string_view text) {
    Unsigned number;
    if (text.starts_with('(') && text.ends_with(')')) {
        number.isNegative = true;
        text = text.substr(1, text.size() - 2);
    }
    if (dropPrefix(text, '-')) {
        number.isNegative = true;
    } else {
        dropPrefix(text, '+');
    }
    if (const std::size_t length = currencyAtStart(text); length > 0) {
        text = Text::trimSpacesAtStart(text.substr(length));
        number.isNegative |= dropPrefix(text, '-');
    }
    if (const std::size_t length = currencyAtEnd(text); length > 0) {
        text.remove_suffix(length);
        text = Text::trimSpaces(text);
    }
    if (text.ends_with('%')) {
        number.isPercent = true;
        text.remove_suffix(1);
        text = Text::trimSpaces(text);
    }
    number.text = text;
    return number;
}

// At most as many ASCII characters as a number may have, without an allocation.
class Digits {
public:
    bool append(char c) {
        if (m_size == m_chars.size()) {
            return false;
        }
        m_chars[m_size++] = c;
        return true;
    }
    std::string_view view() const { return {m_chars.data(), m_size}; }

private:
    std::array<char, longestNumber> m_chars;
    std::size_t m_size = 0;
};

// The text in ASCII, its no-break spaces as spaces: all three only ever separate groups. False when anything else
// remains, which no number has.
bool copyAsAscii(std::string_view text, Digits& target) {
    while (!text.empty()) {
        char c = text.front();
        std::size_t length = 1;
        if (static_cast<unsigned char>(c) >= 0x80) {
            length = text.starts_with(noBreakSpace)         ? noBreakSpace.size()
                     : text.starts_with(narrowNoBreakSpace) ? narrowNoBreakSpace.size()
                                                            : 0;
            c = ' ';
        }
        if (length == 0 || !target.append(c)) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// 1,250 and 1.250: grouped thousands in one style, a fraction in the other.
bool isAmbiguous(std::string_view left, std::string_view right) {
    if (right.size() != 3 || !std::all_of(right.begin(), right.end(), isAsciiDigit)) {
        return false;
    }
    const auto digitCount = std::count_if(left.begin(), left.end(), isAsciiDigit);
    return digitCount >= 1 && digitCount <= 3 && *std::find_if(left.begin(), left.end(), isAsciiDigit) != '0';
}

// decimalSeparator of a text in which every byte is a character.
std::optional<char> separatorOf(std::string_view text, NumberStyle style) {
    const auto dots = std::count(text.begin(), text.end(), '.');
    const auto commas = std::count(text.begin(), text.end(), ',');
    if (dots == 0 && commas == 0) {
        return '.';
    }
    if (dots > 0 && commas > 0) {
        const bool dotIsLast = text.rfind('.') > text.rfind(',');
        const auto count = dotIsLast ? dots : commas;
        return count == 1 ? std::optional(dotIsLast ? '.' : ',') : std::nullopt;
    }
    const char only = dots > 0 ? '.' : ',';
    if (dots + commas > 1) {
        return only == '.' ? ',' : '.';
    }
    const std::size_t at = text.find(only);
    if (isAmbiguous(text.substr(0, at), text.substr(at + 1))) {
        return style == NumberStyle::commaDecimal ? ',' : '.';
    }
    return only;
}

// What separatorOf sees of one character of any text.
char asAsciiCharacter(std::string_view character) {
    if (character.size() == 1) {
        return character.front();
    }
    const auto scalar = Utf8::scalarAt(character, 0);
    return scalar.length == character.size() && Text::isDigit(scalar.value) ? '1' : '?';
}

// Appends the groups of an integer part without their separators; false when one has the wrong length.
bool appendGroups(std::string_view integer, char separator, Digits& target) {
    std::size_t groupCount = 1;
    std::size_t length = 0;
    const auto endsWell = [&] { return groupCount == 1 ? length >= 1 && length <= 3 : length == 3; };
    for (const char c : integer) {
        if (c != separator && c != ' ') {
            ++length;
            target.append(c);
        } else if (!endsWell()) {
            return false;
        } else {
            ++groupCount;
            length = 0;
        }
    }
    return groupCount == 1 || endsWell();
}

// Takes nothing but digits, a point and an exponent, all of it or nothing.
std::optional<double> converted(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        // So few digits leave the range of a double by their exponent alone.
        const std::size_t exponent = text.find_first_of("eE");
        const bool isTiny = exponent != std::string_view::npos && text.substr(exponent + 1).starts_with('-');
        return isTiny ? std::optional(0.0) : std::nullopt;
    }
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> magnitude(std::string_view text, NumberStyle style) {
    Digits ascii;
    if (!copyAsAscii(text, ascii)) {
        return std::nullopt;
    }
    const auto separator = separatorOf(ascii.view(), style);
    if (!separator) {
        return std::nullopt;
    }
    const std::size_t point = std::min(ascii.view().find(*separator), ascii.view().size());
    Digits plain;
    if (!appendGroups(ascii.view().substr(0, point), *separator == '.' ? ',' : '.', plain)) {
        return std::nullopt;
    }
    if (point < ascii.view().size()) {
        plain.append('.');
        for (const char c : ascii.view().substr(point + 1)) {
            plain.append(c);
        }
    }
    return converted(plain.view());
}

// Tells most words from numbers at their first byte.
bool mayBeginNumber(char c) {
    return isAsciiDigit(c) || static_cast<unsigned char>(c) >= 0x80 ||
           std::string_view("(-+.,$").find(c) != std::string_view::npos;
}

}  // namespace

std::optional<double> parseNumber(std::string_view text, NumberStyle style) {
    const std::string_view trimmed = Text::trimSpaces(text);
    if (trimmed.empty() || !mayBeginNumber(trimmed.front()) || Text::hasMoreCharactersThan(trimmed, longestNumber)) {
        return std::nullopt;
    }
    const Unsigned number = withoutSigns(trimmed);
    if (number.text.empty()) {
        return std::nullopt;
    }
    const char first = number.text.front();
    if (!isAsciiDigit(first) && first != '.' && first != ',') {
        return std::nullopt;
    }
    const auto value = magnitude(number.text, style);
    if (!value) {
        return std::nullopt;
    }
    const double withSign = number.isNegative ? -*value : *value;
    return number.isPercent ? withSign / 100 : withSign;
}

std::optional<char> decimalSeparator(std::string_view text, NumberStyle style) {
    if (Utf8::isAscii(text)) {
        return separatorOf(text, style);
    }
    std::string characters;
    while (!text.empty()) {
        const std::string_view character = Text::firstCharacters(text, 1);
        characters += asAsciiCharacter(character);
        text.remove_prefix(character.size());
    }
    return separatorOf(characters, style);
}

std::string canonicalNumber(double value) {
    constexpr double firstInexact = 1e15;
    std::array<char, 32> digits{};
    char* const end = digits.data() + digits.size();
    if (std::trunc(value) == value && std::abs(value) < firstInexact) {
        return {digits.data(), std::to_chars(digits.data(), end, static_cast<std::int64_t>(value)).ptr};
    }
    return {digits.data(), std::to_chars(digits.data(), end, value, std::chars_format::general, 12).ptr};
}

}  // namespace corvale::Normalizer
