#pragma once

#include <CLI/CLI.hpp>

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "CorvaleKit/engine/EnumTexts.h"
#include "CorvaleKit/text/Text.h"
#include "cli/Arguments.h"
#include "cli/FileReading.h"
#include "cli/HelpTexts.h"
#include "cli/OptionValues.h"

// The subcommands with their options, for the argument parser alone.
namespace corvale::Cli {

inline constexpr const char* tableGroup = "Table options";
inline constexpr const char* comparisonGroup = "Comparison options";
inline constexpr const char* listGroup = "List and output options";
inline constexpr const char* reportGroup = "Report options";

inline constexpr std::array<EnumText<CompareCommand::Format>, 3> formatTexts{{
    {CompareCommand::Format::text, "text"},
    {CompareCommand::Format::summary, "summary"},
    {CompareCommand::Format::json, "json"},
}};

inline constexpr std::array<EnumText<ReportCommand::Language>, 2> languageTexts{{
    {ReportCommand::Language::english, "en"},
    {ReportCommand::Language::spanish, "es"},
}};

// One subcommand and how its options become a command.
class Subcommand {
public:
    Subcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer)
        : m_app(program.add_subcommand(name, std::string(help))) {
        m_app->footer(std::string(footer));
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

    TableCommand command() const {
        return {{m_file->results().front(), OptionValues::value(m_sheet), OptionValues::rowNumber(m_headerRow)}};
    }

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
        const auto sheet = OptionValues::value(ownSheet);
        const auto shared = OptionValues::rowNumber(m_headerRow);
        const auto headerRow = OptionValues::rowNumber(ownHeaderRow);
        return {path->results().front(), sheet ? sheet : OptionValues::value(m_sheet), headerRow ? headerRow : shared};
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

class ComparisonSubcommand : public PairSubcommand {
public:
    using PairSubcommand::PairSubcommand;

protected:
    ComparisonChoice comparison() const { return {files(), match(), options()}; }

private:
    std::optional<RowMatch> match() const {
        if (m_key->count() > 0 && m_rowOrder->count() > 0) {
            throw UsageFailure("--key and --row-order exclude each other.");
        }
        if (m_rowOrder->count() > 0) {
            return RowMatch::rowOrder();
        }
        return m_key->count() > 0 ? std::optional(RowMatch::key(OptionValues::values(m_key))) : std::nullopt;
    }

    DiffOptions options() const {
        DiffOptions options;
        options.ignoreCase = m_ignoreCase->count() > 0;
        options.ignoreWhitespace = m_keepWhitespace->count() == 0;
        options.ignoreNumberFormat = m_ignoreNumberFormat->count() > 0;
        options.ignoreColumnOrder = m_byPosition->count() == 0;
        for (std::string& name : OptionValues::values(m_ignoreColumn)) {
            options.ignoredColumns.insert(std::move(name));
        }
        options.numberStyle = OptionValues::chosen(m_numberStyle, enumTexts<NumberStyle>, NumberStyle::automatic);
        return options;
    }

    CLI::Option* m_key =
        option("--key", OptionValues::column, comparisonGroup, "Match rows by this column; several make one key");
    CLI::Option* m_rowOrder = flag("--row-order", comparisonGroup, "Match rows by their order");
    CLI::Option* m_ignoreCase = flag("--ignore-case", comparisonGroup, "Letter case does not count");
    CLI::Option* m_keepWhitespace =
        flag("--keep-whitespace", comparisonGroup, "Spaces at the ends and doubled ones count");
    CLI::Option* m_ignoreNumberFormat =
        flag("--ignore-number-format", comparisonGroup, "Equal numbers are equal, however they are written");
    CLI::Option* m_byPosition = flag("--by-position", comparisonGroup, "Match columns by position, not by name");
    CLI::Option* m_ignoreColumn = option("--ignore-column", OptionValues::column, comparisonGroup,
                                         "Show this column, don’t compare it; repeatable");
    CLI::Option* m_numberStyle =
        option("--number-style", "STYLE", comparisonGroup, "automatic (default), dotDecimal or commaDecimal");
};

class CompareSubcommand : public ComparisonSubcommand {
public:
    explicit CompareSubcommand(CLI::App& program)
        : ComparisonSubcommand(program, "compare", HelpTexts::compare, HelpTexts::compareFooter) {}

    CompareCommand command() const {
        CompareCommand command;
        command.comparison = comparison();
        command.list = {OptionValues::chosen(m_show, enumTexts<DiffFilter::Show>, DiffFilter::Show::changes),
                        OptionValues::value(m_column),
                        OptionValues::value(m_search).value_or("")};
        command.format = OptionValues::chosen(m_format, formatTexts, CompareCommand::Format::text);
        return command;
    }

private:
    CLI::Option* m_show = option("--show", "ROWS", listGroup, "all, changes (default), added, removed or changed");
    CLI::Option* m_column =
        option("--column", OptionValues::column, listGroup, "List only rows that changed in this column");
    CLI::Option* m_search = option("--search", "TEXT", listGroup, "List only rows in which all these words occur");
    CLI::Option* m_format = option("--format", "FORMAT", listGroup, "text (default), summary or json");
};

class ReportSubcommand : public ComparisonSubcommand {
public:
    explicit ReportSubcommand(CLI::App& program)
        : ComparisonSubcommand(program, "report", HelpTexts::report, HelpTexts::reportFooter) {}

    ReportCommand command() const {
        ReportCommand command;
        command.comparison = comparison();
        command.path = OptionValues::path(m_output);
        command.kind = kind(command.path);
        command.language = OptionValues::chosen(m_language, languageTexts, ReportCommand::Language::english);
        command.includeUnchanged = m_includeUnchanged->count() > 0;
        return command;
    }

private:
    static ReportCommand::Kind kind(const std::string& path) {
        const std::string extension = Text::lowercased(std::filesystem::path(path).extension().string());
        if (extension == ".xlsx") {
            return ReportCommand::Kind::workbook;
        }
        if (extension == ".html") {
            return ReportCommand::Kind::page;
        }
        throw UsageFailure("A report is a file .xlsx or .html, which " + quotedPath(path) + " is not.");
    }

    CLI::Option* m_output =
        option("--output,-o", "FILE", reportGroup, "Where to save the report: a name that ends in .xlsx or .html")
            ->required();
    CLI::Option* m_includeUnchanged =
        flag("--include-unchanged", reportGroup, "List unchanged rows too, in a workbook");
    CLI::Option* m_language = option("--lang", "LANGUAGE", reportGroup, "en (default) or es");
};

}  // namespace corvale::Cli
