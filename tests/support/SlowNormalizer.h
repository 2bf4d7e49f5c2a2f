#pragma once

#include <algorithm>
#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

// The cell normaliser as one would write it down: rule by rule, character by character, without regard to speed.
namespace corvale::SlowNormalizer {

using Characters = std::vector<std::string>;

inline Characters charactersOf(std::string_view text) {
    Characters characters;
    while (!text.empty()) {
        characters.emplace_back(Text::firstCharacters(text, 1));
        text.remove_prefix(characters.back().size());
    }
    return characters;
}

inline std::string joined(const Characters& characters) {
    std::string text;
    for (const auto& character : characters) {
        text += character;
    }
    return text;
}

inline bool needsWhitespaceNormalization(const std::string& text) {
    if (text.empty()) {
        return false;
    }
    const bool hasSeparator = text.find_first_of("\t\n\r\xC2") != std::string::npos;
    const bool hasDoubled = text.find("  ") != std::string::npos;
    return hasSeparator || hasDoubled || text.front() == ' ' || text.back() == ' ';
}

inline std::string normalizeWhitespace(const std::string& text) {
    if (!needsWhitespaceNormalization(text)) {
        return text;
    }
    std::vector<std::string> words(1);
    for (std::size_t i = 0; i < text.size();) {
        const auto scalar = Utf8::scalarAt(text, i);
        if (Text::isSpaceOrLineBreak(scalar.value)) {
            words.emplace_back();
        } else {
            words.back() += text.substr(i, scalar.length);
        }
        i += scalar.length;
    }
    std::string result;
    for (const auto& word : words) {
        if (!word.empty()) {
            result += (result.empty() ? "" : " ") + word;
        }
    }
    return result;
}

inline bool isTrimmed(const std::string& character) {
    const auto scalar = Utf8::scalarAt(character, 0);
    return scalar.length == character.size() &&
           (Text::isSpace(scalar.value) || scalar.value == 0xA0 || scalar.value == 0x202F);
}

inline void trimStart(Characters& text) {
    while (!text.empty() && isTrimmed(text.front())) {
        text.erase(text.begin());
    }
}

inline void trim(Characters& text) {
    trimStart(text);
    while (!text.empty() && isTrimmed(text.back())) {
        text.pop_back();
    }
}

inline bool isCurrency(const std::string& character) {
    const std::vector<std::string> currencies = {"$", "€", "£", "¥", "₹", "₩", "₽", "₺", "₫", "₱", "₪", "¢"};
    return std::find(currencies.begin(), currencies.end(), character) != currencies.end();
}

inline bool isAsciiDigit(const std::string& character) {
    return character.size() == 1 && character[0] >= '0' && character[0] <= '9';
}

inline bool isDigit(const std::string& character) {
    const auto scalar = Utf8::scalarAt(character, 0);
    return scalar.length == character.size() && Text::isDigit(scalar.value);
}

inline std::optional<std::string> decimalSeparator(const Characters& text, NumberStyle style) {
    const auto dots = std::count(text.begin(), text.end(), ".");
    const auto commas = std::count(text.begin(), text.end(), ",");
    if (dots > 0 && commas > 0) {
        const auto last = std::find_if(text.rbegin(), text.rend(), [](const std::string& character) {
            return character == "." || character == ",";
        });
        return std::count(text.begin(), text.end(), *last) == 1 ? std::optional(*last) : std::nullopt;
    }
    if (dots == 0 && commas == 0) {
        return ".";
    }
    if (commas > 1) {
        return ".";
    }
    if (dots > 1) {
        return ",";
    }
    const std::string only = dots == 1 ? "." : ",";
    const auto at = std::find(text.begin(), text.end(), only);
    Characters leftDigits;
    std::copy_if(text.begin(), at, std::back_inserter(leftDigits), isDigit);
    const Characters right(at + 1, text.end());
    if (right.size() == 3 && std::all_of(right.begin(), right.end(), isDigit) && !leftDigits.empty() &&
        leftDigits.size() <= 3 && leftDigits.front() != "0") {
        return style == NumberStyle::commaDecimal ? "," : ".";
    }
    return only;
}

inline locale_t plainLocale() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
}

// The C library's conversions in the C locale.
inline std::optional<double> converted(const std::string& text) {
    char* end = nullptr;
    const double value = strtod_l(text.c_str(), &end, plainLocale());
    const bool tookAll = !text.empty() && end == text.c_str() + text.size();
    return tookAll && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

inline std::string canonicalNumber(double value) {
    const locale_t before = uselocale(plainLocale());
    std::array<char, 64> text{};
    const bool isWhole = std::floor(value) == value && std::abs(value) < 1e15;
    std::snprintf(text.data(), text.size(), isWhole ? "%.0f" : "%.12g", value == 0 ? 0.0 : value);
    uselocale(before);
    return text.data();
}

// The groups of the integer part without their separators; none when one has the wrong length.
inline std::optional<std::string> joinedGroups(const Characters& integer, const std::string& grouping) {
    std::vector<Characters> groups(1);
    for (const auto& character : integer) {
        if (character == grouping || character == " " || character == "\u00A0" || character == "\u202F") {
            groups.emplace_back();
        } else {
            groups.back().push_back(character);
        }
    }
    std::string all = joined(groups.front());
    if (groups.size() > 1 && (groups.front().empty() || groups.front().size() > 3)) {
        return std::nullopt;
    }
    for (std::size_t i = 1; i < groups.size(); ++i) {
        if (groups[i].size() != 3) {
            return std::nullopt;
        }
        all += joined(groups[i]);
    }
    return all;
}

struct Signs {
    bool isNegative = false;
    bool isPercent = false;
};

inline Signs takeSigns(Characters& text) {
    Signs signs;
    if (!text.empty() && text.front() == "(" && text.back() == ")") {
        signs.isNegative = true;
        text.erase(text.begin());
        text.pop_back();
    }
    const auto take = [&text](const std::string& character) {
        const bool has = !text.empty() && text.front() == character;
        text.erase(text.begin(), text.begin() + (has ? 1 : 0));
        return has;
    };
    if (take("-")) {
        signs.isNegative = true;
    } else {
        take("+");
    }
    if (!text.empty() && isCurrency(text.front())) {
        text.erase(text.begin());
        trimStart(text);
        signs.isNegative = take("-") || signs.isNegative;
    }
    if (!text.empty() && isCurrency(text.back())) {
        text.pop_back();
        trim(text);
    }
    if (!text.empty() && text.back() == "%") {
        signs.isPercent = true;
        text.pop_back();
        trim(text);
    }
    return signs;
}

inline std::optional<double> parseNumber(std::string_view cell, NumberStyle style) {
    Characters text = charactersOf(cell);
    trim(text);
    if (text.empty() || text.size() > 40) {
        return std::nullopt;
    }
    const Signs signs = takeSigns(text);
    if (text.empty() || !(isAsciiDigit(text.front()) || text.front() == "." || text.front() == ",")) {
        return std::nullopt;
    }
    const auto separator = decimalSeparator(text, style);
    if (!separator) {
        return std::nullopt;
    }
    const auto point = std::find(text.begin(), text.end(), *separator);
    const auto integer = joinedGroups({text.begin(), point}, *separator == "." ? "," : ".");
    if (!integer) {
        return std::nullopt;
    }
    const std::string plain = *integer + (point == text.end() ? "" : "." + joined({point + 1, text.end()}));
    if (plain.find_first_not_of("0123456789.eE-+") != std::string::npos) {
        return std::nullopt;
    }
    const auto value = converted(plain);
    if (!value) {
        return std::nullopt;
    }
    const double withSign = signs.isNegative ? -*value : *value;
    return signs.isPercent ? withSign / 100 : withSign;
}

inline std::optional<NumberStyle> cellStyleVote(std::string_view cell) {
    Characters text = charactersOf(cell);
    trim(text);
    const auto isSeparator = [](const std::string& character) { return character == "." || character == ","; };
    if (text.size() > 40 || std::none_of(text.begin(), text.end(), isDigit) ||
        !(parseNumber(cell, NumberStyle::dotDecimal) || parseNumber(cell, NumberStyle::commaDecimal)) ||
        std::none_of(text.begin(), text.end(), isSeparator)) {
        return std::nullopt;
    }
    const auto asDot = decimalSeparator(text, NumberStyle::dotDecimal);
    const auto asComma = decimalSeparator(text, NumberStyle::commaDecimal);
    if (!asDot || !asComma || *asDot != *asComma) {
        return std::nullopt;
    }
    return *asDot == "," ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
}

}  // namespace corvale::SlowNormalizer
