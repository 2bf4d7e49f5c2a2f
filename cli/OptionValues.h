#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/EnumTexts.h"
#include "cli/Arguments.h"

namespace CLI {
class Option;
}

// What the user gave for the options of a command line. Texts are valid UTF-8. Functions throw UsageFailure.
namespace corvale::Cli::OptionValues {

// What the help calls the values of options. The value of a column is never empty; no table has one without a name.
inline constexpr const char* column = "NAME";
inline constexpr const char* sheet = "N|NAME";
inline constexpr const char* row = "N";
inline constexpr const char* style = "STYLE";
inline constexpr const char* rows = "ROWS";
inline constexpr const char* text = "TEXT";
inline constexpr const char* format = "FORMAT";
inline constexpr const char* file = "FILE";
inline constexpr const char* language = "LANGUAGE";

// One value for each time that the option was given.
std::vector<std::string> values(const CLI::Option* option);
// For an option that may be given once.
std::optional<std::string> value(const CLI::Option* option);
// The same for a required one, with its bytes as they are.
std::string path(const CLI::Option* option);
// From 1.
std::optional<std::int64_t> rowNumber(const CLI::Option* option);

// "--key needs a column name." The value of `option` has one of the names above.
UsageFailure missingValue(const CLI::Option& option);
// "--format takes text, summary or json, not “xml”."
UsageFailure badValue(const CLI::Option* option, std::string_view expected, std::string_view given);

// "a, b or c" for the texts of an enumeration.
template <typename Texts>
std::string listed(const Texts& texts) {
    std::string list;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        list += i == 0 ? "" : i + 1 == texts.size() ? " or " : ", ";
        list += texts[i].text;
    }
    return list;
}

// The enumerator whose text was given; `fallback` when the option was not.
template <typename Enum, std::size_t count>
Enum chosen(const CLI::Option* option, const std::array<EnumText<Enum>, count>& texts, Enum fallback) {
    const auto given = value(option);
    if (!given) {
        return fallback;
    }
    const auto found =
        std::find_if(texts.begin(), texts.end(), [&](const auto& entry) { return entry.text == *given; });
    if (found == texts.end()) {
        throw badValue(option, listed(texts), *given);
    }
    return found->value;
}

}  // namespace corvale::Cli::OptionValues
