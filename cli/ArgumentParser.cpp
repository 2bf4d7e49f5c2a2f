#include "cli/ArgumentParser.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/text/Utf8.h"
#include "cli/HelpTexts.h"

namespace corvale::Cli {

namespace {

constexpr const char* tableGroup = "Table options";
constexpr const char* comparisonGroup = "Comparison options";
constexpr const char* listGroup = "List and output options";

std::string text(std::string_view view) { return std::string(view); }

// What an option's value is called in the help, and in a sentence.
struct ValueName {
    const char* inHelp;
    const char* inSentence;
};

constexpr const char* columnValue = "NAME";

constexpr std::array<ValueName, 7> valueNames{{
    {columnValue, "a column name"},
    {"N|NAME", "a sheet number or name"},
    {"N", "a row number"},
    {"STYLE", "a number style"},
    {"ROWS", "a choice of rows"},
    {"TEXT", "a text"},
    {"FORMAT", "a format"},
}};

UsageFailure missingValue(const CLI::Option& option) {
    const auto named = std::find_if(valueNames.begin(), valueNames.end(), [&](const ValueName& name) {
        return name.inHelp == option.get_type_name();
    });
    CORVALE_REQUIRE(named != valueNames.end(), "an option's value has no name in sentences");
    return UsageFailure(option.get_name() + " needs " + named->inSentence + ".");
}

// What the user typed for an option, valid UTF-8.
std::vector<std::string> values(const CLI::Option* option) {
    std::vector<std::string> all = option->results();
    for (std::string& one : all) {
        // No table has a column without a name.
        if (one.empty() && option->get_type_name() == columnValue) {
            throw missingValue(*option);
        }
        one = Utf8::repaired(one);
    }
    return all;
}

std::optional<std::string> value(const CLI::Option* option) {
    std::vector<std::string> all = values(option);
    if (all.size() > 1) {
        throw UsageFailure(option->get_name() + " is given more than once.");
    }
    return all.empty() ? std::nullopt : std::optional(std::move(all.front()));
}

UsageFailure badValue(const CLI::Option* option, std::string_view expected, std::string_view given) {
    return UsageFailure(option->get_name() + " takes " + text(expected) + ", not “" + text(given) + "”.");
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

constexpr std::array<EnumText<CompareCommand::Format>, 3> formatTexts{{
    {CompareCommand::Format::text, "text"},
    {CompareCommand::Format::summary, "summary"},
    {CompareCommand::Format::json, "json"},
}};

// One subcommand and how its options become a command.
class Subcommand {
public:
    Subcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer)
        : m_app(program.add_subcommand(name, text(help))) {
        m_app->footer(text(footer));
        m_app->set_help_flag("--help,-h", "Print this help and end");
        // The parser's own message about them gives them in the wrong order.
        m_app->allow_extras();
    }

    bool isChosen() const { return m_app->parsed(); }

protected:
    CLI::Option* file(const char* name, const std::string& help) {
        return m_app->add_option(name, help)->required()->type_name("");
    }
    // The parser takes it several times, whether or not it may be: its own message would be no sentence.
    CLI::Option* option(const char* name, const char* type, const char* group, const std::string& help) {
        return m_app->add_option(name, help)
            ->type_name(type)
            ->group(group)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }
    CLI::Option* flag(const char* name, const char* group, const std::string& help) {
        return m_app->add_flag(name, help)->group(group);
    }

private:
    CLI::App* m_app;
};

class SheetsSubcommand : public Subcommand {
public:
    explicit SheetsSubcommand(CLI::App& program)
        : Subcommand(program, "sheets", HelpTexts::sheets, HelpTexts::sheetsFooter) {}

    SheetsCommand command() const { return {m_file->results().front()}; }

private:
    CLI::Option* m_file = file("FILE", "The workbook");
};

class TableSubcommand : public Subcommand {
public:
    explicit TableSubcommand(CLI::App& program)
        : Subcommand(program, "table", HelpTexts::table, HelpTexts::tableFooter) {}

    TableCommand command() const { return {{m_file->results().front(), value(m_sheet), rowNumber(m_headerRow)}}; }

private:
    CLI::Option* m_file = file("FILE", "The workbook or text file");
    CLI::Option* m_sheet = option("--sheet", "N|NAME", tableGroup, "The sheet: a number from 1, or a name");
    CLI::Option* m_headerRow = option("--header-row", "N", tableGroup, "The row of the column names, counted from 1");
};

class PairSubcommand : public Subcommand {
public:
    using Subcommand::Subcommand;

protected:
    PairChoice files() const {
        return {oneFile(m_before, m_beforeSheet, m_beforeHeaderRow), oneFile(m_after, m_afterSheet, m_afterHeaderRow)};
    }

private:
    // What is said for one file goes before what is said for both.
    FileChoice oneFile(const CLI::Option* path, const CLI::Option* ownSheet, const CLI::Option* ownHeaderRow) const {
        const auto sheet = value(ownSheet);
        const auto shared = rowNumber(m_headerRow);
        const auto headerRow = rowNumber(ownHeaderRow);
        return {path->results().front(), sheet ? sheet : value(m_sheet), headerRow ? headerRow : shared};
    }

    CLI::Option* m_before = file("BEFORE", "The older file");
    CLI::Option* m_after = file("AFTER", "The newer file");
    CLI::Option* m_sheet =
        option("--sheet", "N|NAME", tableGroup, "The sheet of both files: a number from 1, or a name");
    CLI::Option* m_headerRow = option("--header-row", "N", tableGroup, "The row of the column names in both, from 1");
    CLI::Option* m_beforeSheet = option("--before-sheet", "N|NAME", tableGroup, "The sheet of BEFORE");
    CLI::Option* m_afterSheet = option("--after-sheet", "N|NAME", tableGroup, "The sheet of AFTER");
    CLI::Option* m_beforeHeaderRow = option("--before-header-row", "N", tableGroup, "The header row of BEFORE");
    CLI::Option* m_afterHeaderRow = option("--after-header-row", "N", tableGroup, "The header row of AFTER");
};

class KeySubcommand : public PairSubcommand {
public:
    explicit KeySubcommand(CLI::App& program) : PairSubcommand(program, "key", HelpTexts::key, HelpTexts::keyFooter) {}

    KeyCommand command() const { return {files()}; }
};

class CompareSubcommand : public PairSubcommand {
public:
    explicit CompareSubcommand(CLI::App& program)
        : PairSubcommand(program, "compare", HelpTexts::compare, HelpTexts::compareFooter) {}

    CompareCommand command() const {
        CompareCommand command;
        command.files = files();
        command.match = match();
        command.options = options();
        command.list = {chosen(m_show, enumTexts<DiffFilter::Show>, DiffFilter::Show::changes),
                        value(m_column),
                        value(m_search).value_or("")};
        command.format = chosen(m_format, formatTexts, CompareCommand::Format::text);
        return command;
    }

private:
    std::optional<RowMatch> match() const {
        if (m_key->count() > 0 && m_rowOrder->count() > 0) {
            throw UsageFailure("--key and --row-order exclude each other.");
        }
        if (m_rowOrder->count() > 0) {
            return RowMatch::rowOrder();
        }
        return m_key->count() > 0 ? std::optional(RowMatch::key(values(m_key))) : std::nullopt;
    }

    DiffOptions options() const {
        DiffOptions options;
        options.ignoreCase = m_ignoreCase->count() > 0;
        options.ignoreWhitespace = m_keepWhitespace->count() == 0;
        options.ignoreNumberFormat = m_ignoreNumberFormat->count() > 0;
        options.ignoreColumnOrder = m_byPosition->count() == 0;
        for (std::string& name : values(m_ignoreColumn)) {
            options.ignoredColumns.insert(std::move(name));
        }
        options.numberStyle = chosen(m_numberStyle, enumTexts<NumberStyle>, NumberStyle::automatic);
        return options;
    }

    CLI::Option* m_key =
        option("--key", columnValue, comparisonGroup, "Match rows by this column; several make one key");
    CLI::Option* m_rowOrder = flag("--row-order", comparisonGroup, "Match rows by their order");
    CLI::Option* m_ignoreCase = flag("--ignore-case", comparisonGroup, "Letter case does not count");
    CLI::Option* m_keepWhitespace =
        flag("--keep-whitespace", comparisonGroup, "Spaces at the ends and doubled ones count");
    CLI::Option* m_ignoreNumberFormat =
        flag("--ignore-number-format", comparisonGroup, "Equal numbers are equal, however they are written");
    CLI::Option* m_byPosition = flag("--by-position", comparisonGroup, "Match columns by position, not by name");
    CLI::Option* m_ignoreColumn =
        option("--ignore-column", columnValue, comparisonGroup, "Show this column, don’t compare it; repeatable");
    CLI::Option* m_numberStyle =
        option("--number-style", "STYLE", comparisonGroup, "automatic (default), dotDecimal or commaDecimal");
    CLI::Option* m_show = option("--show", "ROWS", listGroup, "all, changes (default), added, removed or changed");
    CLI::Option* m_column = option("--column", columnValue, listGroup, "List only rows that changed in this column");
    CLI::Option* m_search = option("--search", "TEXT", listGroup, "List only rows in which all these words occur");
    CLI::Option* m_format = option("--format", "FORMAT", listGroup, "text (default), summary or json");
};

// Writes each "--option=value" as two arguments. The parser does so by itself, but it takes the argument after
// "--option=" for the value, drops the value of an option that takes none, and words a missing value in its own way.
class Separator {
public:
    explicit Separator(const CLI::App& command) : m_command(command) {}

    std::vector<std::string> separated(const std::vector<std::string>& arguments) {
        for (const std::string& argument : arguments) {
            if (m_waiting != nullptr || m_optionsEnded) {
                m_waiting = nullptr;
                m_separated.push_back(argument);
            } else {
                add(argument);
            }
        }
        if (m_waiting != nullptr) {
            throw missingValue(*m_waiting);
        }
        return std::move(m_separated);
    }

private:
    void add(const std::string& argument) {
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        const CLI::Option* option = name.starts_with("--") ? m_command.get_option_no_throw(name) : nullptr;
        m_optionsEnded = argument == "--";
        if (option == nullptr) {
            m_separated.push_back(argument);
            return;
        }
        m_separated.push_back(name);
        const bool takesValue = option->get_items_expected_max() > 0;
        if (mark == std::string::npos) {
            m_waiting = takesValue ? option : nullptr;
        } else if (takesValue) {
            m_separated.push_back(argument.substr(mark + 1));
        } else {
            throw UsageFailure(name + " takes no value.");
        }
    }

    const CLI::App& m_command;
    std::vector<std::string> m_separated;
    const CLI::Option* m_waiting = nullptr;  // its value is the next argument
    bool m_optionsEnded = false;
};

class Program {
public:
    Program() {
        m_app.set_help_flag("--help,-h", "Print this help and end");
        m_app.set_version_flag("--version", "corvale-cli " CORVALE_VERSION, "Print the version and end");
        m_app.footer(text(HelpTexts::programFooter));
        m_app.get_formatter()->column_width(27);
        // What is no command shall be named as such, and not as an argument too many.
        m_app.prefix_command();
    }

    Command parse(std::vector<std::string> arguments) {
        for (const CLI::App* command : m_app.get_subcommands({})) {
            if (!arguments.empty() && arguments.front() == command->get_name()) {
                arguments = Separator(*command).separated(arguments);
            }
        }
        std::reverse(arguments.begin(), arguments.end());
        try {
            m_app.parse(arguments);
        } catch (const CLI::CallForHelp&) {
            return PrintCommand{m_app.help()};
        } catch (const CLI::CallForVersion& version) {
            return PrintCommand{text(version.what()) + "\n"};
        } catch (const CLI::ParseError& error) {
            throw usageFailure(text(error.what()));
        }
        refuseExtras();
        return command();
    }

private:
    Command command() const {
        if (m_sheets.isChosen()) {
            return m_sheets.command();
        }
        if (m_table.isChosen()) {
            return m_table.command();
        }
        if (m_key.isChosen()) {
            return m_key.command();
        }
        if (m_compare.isChosen()) {
            return m_compare.command();
        }
        throw noCommand();
    }

    UsageFailure usageFailure(const std::string& message) const {
        const std::vector<CLI::App*> chosenCommands = m_app.get_subcommands();
        const std::string command = chosenCommands.empty() ? "" : chosenCommands.front()->get_name() + " ";
        return UsageFailure(message + "; see corvale-cli " + command + "--help");
    }

    void refuseExtras() const {
        for (const CLI::App* subcommand : m_app.get_subcommands()) {
            if (subcommand->remaining_size() > 0) {
                throw usageFailure("“" + Utf8::repaired(subcommand->remaining().front()) + "” was not expected");
            }
        }
    }

    UsageFailure noCommand() const {
        const std::vector<std::string> rest = m_app.remaining();
        const std::string given = rest.empty() ? "A command is missing" : "There is no command “" + rest.front() + "”";
        return UsageFailure(given + ": it is one of sheets, table, key and compare.");
    }

    CLI::App m_app{text(HelpTexts::program), "corvale-cli"};
    CompareSubcommand m_compare{m_app};
    KeySubcommand m_key{m_app};
    TableSubcommand m_table{m_app};
    SheetsSubcommand m_sheets{m_app};
};

}  // namespace

Command parseArguments(std::vector<std::string> arguments) { return Program().parse(std::move(arguments)); }

}  // namespace corvale::Cli
