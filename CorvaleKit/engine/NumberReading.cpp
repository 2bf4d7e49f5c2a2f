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

// A text in which every byte is a character: at most as many as a number may have, without an allocation.
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
    for (std::size_t i = 0; i < text.size();) {
        char c = text[i];
        std::size_t length = 1;
        if (static_cast<unsigned char>(c) >= 0x80) {
            const std::string_view rest = text.substr(i);
            length = rest.starts_with(noBreakSpace)         ? noBreakSpace.size()
                     : rest.starts_with(narrowNoBreakSpace) ? narrowNoBreakSpace.size()
                                                            : 0;
            c = ' ';
        }
        if (length == 0 || !target.append(c)) {
            return false;
        }
        i += length;
    }
    return true;
}

// Where the characters of a text that may separate stand.
struct Separators {
    std::size_t dots = 0;
    std::size_t commas = 0;
    std::size_t spaces = 0;
    std::size_t lastDot = 0;
    std::size_t lastComma = 0;

    explicit Separators(std::string_view text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const char c = text[i];
            dots += c == '.' ? 1 : 0;
            commas += c == ',' ? 1 : 0;
            spaces += c == ' ' ? 1 : 0;
            lastDot = c == '.' ? i : lastDot;
            lastComma = c == ',' ? i : lastComma;
        }
    }
};

// 1,250 and 1.250: grouped thousands in one style, a fraction in the other.
bool isAmbiguous(std::string_view left, std::string_view right) {
    if (right.size() != 3 || !std::all_of(right.begin(), right.end(), isAsciiDigit)) {
        return false;
    }
    const auto digitCount = std::count_if(left.begin(), left.end(), isAsciiDigit);
    return digitCount >= 1 && digitCount <= 3 && *std::find_if(left.begin(), left.end(), isAsciiDigit) != '0';
}

// decimalSeparator of a text in which every byte is a character.
std::optional<char> separatorOf(std::string_view text, const Separators& found, NumberStyle style) {
    if (found.dots == 0 && found.commas == 0) {
        return '.';
    }
    if (found.dots > 0 && found.commas > 0) {
        const bool dotIsLast = found.lastDot > found.lastComma;
        const std::size_t count = dotIsLast ? found.dots : found.commas;
        return count == 1 ? std::optional(dotIsLast ? '.' : ',') : std::nullopt;
    }
    const char only = found.dots > 0 ? '.' : ',';
    if (found.dots + found.commas > 1) {
        return only == '.' ? ',' : '.';
    }
    const std::size_t at = found.dots > 0 ? found.lastDot : found.lastComma;
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

// The value of a text with grouping characters, split at the decimal separator's place.
std::optional<double> groupedMagnitude(std::string_view text, std::size_t point, char grouping) {
    Digits joined;
    if (!appendGroups(text.substr(0, point), grouping, joined)) {
        return std::nullopt;
    }
    if (point < text.size()) {
        joined.append('.');
        for (const char c : text.substr(point + 1)) {
            joined.append(c);
        }
    }
    return converted(joined.view());
}

// The value of a text in which every byte is a character.
std::optional<double> asciiMagnitude(std::string_view text, NumberStyle style) {
    const Separators found(text);
    const auto separator = separatorOf(text, found, style);
    if (!separator || text.size() > longestNumber) {
        return std::nullopt;
    }
    if (*separator == '.') {
        const bool isGrouped = found.commas + found.spaces > 0;
        return isGrouped ? groupedMagnitude(text, found.dots > 0 ? found.lastDot : text.size(), ',') : converted(text);
    }
    return groupedMagnitude(text, found.commas > 0 ? found.lastComma : text.size(), '.');
}

std::optional<double> magnitude(std::string_view text, NumberStyle style) {
    if (Utf8::isAscii(text)) {
        return asciiMagnitude(text, style);
    }
    Digits ascii;
    return copyAsAscii(text, ascii) ? asciiMagnitude(ascii.view(), style) : std::nullopt;
}

// Digits with at most one point, as most numbers are written. So few digits make a whole number that a double holds
// exactly, and one division rounds right. None leaves the text to the rules, as with 1.250, where the style decides.
std::optional<double> plainDecimal(std::string_view text) {
    constexpr std::size_t exactDigits = 15;
    constexpr std::array<double, exactDigits> powersOfTen{
        1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
    if (text.size() > exactDigits) {
        return std::nullopt;
    }
    std::int64_t digits = 0;
    std::size_t point = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isAsciiDigit(text[i])) {
            digits = digits * 10 + (text[i] - '0');
        } else if (text[i] == '.' && point == text.size()) {
            point = i;
        } else {
            return std::nullopt;
        }
    }
    const std::size_t decimals = point < text.size() ? text.size() - point - 1 : 0;
    if (point == 0 || decimals == 3) {
        return std::nullopt;
    }
    return static_cast<double>(digits) / powersOfTen[decimals];
}

// Tells most words from numbers at their first byte.
bool mayBeginNumber(char c) {
    return isAsciiDigit(c) || static_cast<unsigned char>(c) >= 0x80 || c == '-' || c == '(' || c == '+' || c == '.' ||
           c == ',' || c == '$';
}

}  // namespace

std::optional<double> parseNumber(std::string_view text, NumberStyle style) {
    if (const auto value = plainDecimal(text)) {
        return value;
    }
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
        return separatorOf(text, Separators(text), style);
    }
    std::string characters;
    while (!text.empty()) {
        const std::string_view character = Text::firstCharacters(text, 1);
        characters += asAsciiCharacter(character);
        text.remove_prefix(character.size());
    }
    return separatorOf(characters, Separators(characters), style);
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
