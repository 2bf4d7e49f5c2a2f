#include "cli/OptionValues.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <utility>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::Cli::OptionValues {

namespace {

// What an option's value is called in the help, and in a sentence.
struct ValueName {
    const char* inHelp;
    const char* inSentence;
};

constexpr std::array<ValueName, 9> valueNames{{
    {column, "a column name"},
    {sheet, "a sheet number or name"},
    {row, "a row number"},
    {style, "a number style"},
    {rows, "a choice of rows"},
    {text, "a text"},
    {format, "a format"},
    {file, "a file name"},
    {language, "a language"},
}};

void requireOnce(const CLI::Option* option) {
    if (option->count() > 1) {
        throw UsageFailure(option->get_name() + " is given more than once.");
    }
}

}  // namespace

UsageFailure missingValue(const CLI::Option& option) {
    const auto named = std::find_if(valueNames.begin(), valueNames.end(), [&](const ValueName& name) {
        return name.inHelp == option.get_type_name();
    });
    CORVALE_REQUIRE(named != valueNames.end(), "an option's value has no name in sentences");
    return UsageFailure(option.get_name() + " needs " + named->inSentence + ".");
}

std::vector<std::string> values(const CLI::Option* option) {
    std::vector<std::string> all = option->results();
    for (std::string& one : all) {
        // No table has a column without a name.
        if (one.empty() && option->get_type_name() == column) {
            throw missingValue(*option);
        }
        one = Utf8::repaired(one);
    }
    return all;
}

std::optional<std::string> value(const CLI::Option* option) {
    requireOnce(option);
    std::vector<std::string> all = values(option);
    return all.empty() ? std::nullopt : std::optional(std::move(all.front()));
}

std::string path(const CLI::Option* option) {
    requireOnce(option);
    return option->results().front();
}

UsageFailure badValue(const CLI::Option* option, std::string_view expected, std::string_view given) {
    return UsageFailure(option->get_name() + " takes " + std::string(expected) + ", not “" + std::string(given) + "”.");
}

std::optional<std::int64_t> rowNumber(const CLI::Option* option) {
    const auto given = value(option);
    if (!given) {
        return std::nullopt;
    }
    std::int64_t number = 0;
    const char* end = given->data() + given->size();
    const auto [stop, error] = std::from_chars(given->data(), end, number);
    if (error != std::errc() || stop != end || number < 1) {
        throw badValue(option, "a row number, counted from 1", *given);
    }
    return number;
}

}  // namespace corvale::Cli::OptionValues
