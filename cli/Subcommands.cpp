#include "cli/Subcommands.h"

#include <array>
#include <filesystem>
#include <string>
#include <utility>

#include "CorvaleKit/engine/EnumTexts.h"
#include "CorvaleKit/text/Text.h"
#include "cli/HelpTexts.h"
#include "cli/OptionValues.h"
#include "cli/Paths.h"

namespace corvale::Cli {

namespace {

constexpr const char* tableGroup = "Table options";
constexpr const char* comparisonGroup = "Comparison options";
constexpr const char* listGroup = "List and output options";
constexpr const char* reportGroup = "Report options";

constexpr std::array<EnumText<CompareCommand::Format>, 3> formatTexts{{
    {CompareCommand::Format::text, "text"},
    {CompareCommand::Format::summary, "summary"},
    {CompareCommand::Format::json, "json"},
}};

constexpr std::array<EnumText<ReportCommand::Language>, 2> languageTexts{{
    {ReportCommand::Language::english, "en"},
    {ReportCommand::Language::spanish, "es"},
}};

ReportCommand::Kind reportKind(const std::string& path) {
    const std::string extension = Text::lowercased(std::filesystem::path(path).extension().string());
    if (extension == ".xlsx") {
        return ReportCommand::Kind::workbook;
    }
    if (extension == ".html") {
        return ReportCommand::Kind::page;
    }
    throw UsageFailure("A report is a file .xlsx or .html, which " + quotedPath(path) + " is not.");
}

}  // namespace

SheetsSubcommand::SheetsSubcommand(CLI::App& program)
    : Subcommand(program, "sheets", HelpTexts::sheets, HelpTexts::sheetsFooter), m_file(file("FILE", "The workbook")) {}

SheetsCommand SheetsSubcommand::command() const { return {m_file->results().front()}; }

TableSubcommand::TableSubcommand(CLI::App& program)
    : Subcommand(program, "table", HelpTexts::table, HelpTexts::tableFooter),
      m_file(file("FILE", "The workbook or text file")),
      m_sheet(option("--sheet", OptionValues::sheet, tableGroup, "The sheet: a number from 1, or a name")),
      m_headerRow(
          option("--header-row", OptionValues::row, tableGroup, "The row of the column names, counted from 1")) {}

TableCommand TableSubcommand::command() const {
    return {{m_file->results().front(), OptionValues::value(m_sheet), OptionValues::rowNumber(m_headerRow)}};
}

PairSubcommand::PairSubcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer)
    : Subcommand(program, name, help, footer),
      m_before(file("BEFORE", "The older file")),
      m_after(file("AFTER", "The newer file")),
      m_sheet(
          option("--sheet", OptionValues::sheet, tableGroup, "The sheet of both files: a number from 1, or a name")),
      m_headerRow(option("--header-row", OptionValues::row, tableGroup, "The row of the column names in both, from 1")),
      m_beforeSheet(option("--before-sheet", OptionValues::sheet, tableGroup, "The sheet of BEFORE")),
      m_afterSheet(option("--after-sheet", OptionValues::sheet, tableGroup, "The sheet of AFTER")),
      m_beforeHeaderRow(option("--before-header-row", OptionValues::row, tableGroup, "The header row of BEFORE")),
      m_afterHeaderRow(option("--after-header-row", OptionValues::row, tableGroup, "The header row of AFTER")) {}

PairChoice PairSubcommand::files() const {
    return {oneFile(m_before, m_beforeSheet, m_beforeHeaderRow), oneFile(m_after, m_afterSheet, m_afterHeaderRow)};
}

// What is said for one file goes before what is said for both.
FileChoice PairSubcommand::oneFile(const CLI::Option* path, const CLI::Option* ownSheet,
                                   const CLI::Option* ownHeaderRow) const {
    const auto sheet = OptionValues::value(ownSheet);
    const auto shared = OptionValues::rowNumber(m_headerRow);
    const auto headerRow = OptionValues::rowNumber(ownHeaderRow);
    return {path->results().front(), sheet ? sheet : OptionValues::value(m_sheet), headerRow ? headerRow : shared};
}

KeySubcommand::KeySubcommand(CLI::App& program)
    : PairSubcommand(program, "key", HelpTexts::key, HelpTexts::keyFooter) {}

KeyCommand KeySubcommand::command() const { return {files()}; }

ComparisonSubcommand::ComparisonSubcommand(CLI::App& program, const char* name, std::string_view help,
                                           std::string_view footer)
    : PairSubcommand(program, name, help, footer),
      m_key(option("--key", OptionValues::column, comparisonGroup, "Match rows by this column; several make one key")),
      m_rowOrder(flag("--row-order", comparisonGroup, "Match rows by their order")),
      m_ignoreCase(flag("--ignore-case", comparisonGroup, "Letter case does not count")),
      m_keepWhitespace(flag("--keep-whitespace", comparisonGroup, "Spaces at the ends and doubled ones count")),
      m_ignoreNumberFormat(
          flag("--ignore-number-format", comparisonGroup, "Equal numbers are equal, however they are written")),
      m_byPosition(flag("--by-position", comparisonGroup, "Match columns by position, not by name")),
      m_ignoreColumn(option("--ignore-column", OptionValues::column, comparisonGroup,
                            "Show this column, don’t compare it; repeatable")),
      m_numberStyle(option("--number-style", OptionValues::style, comparisonGroup,
                           "automatic (default), dotDecimal or commaDecimal")) {}

ComparisonChoice ComparisonSubcommand::comparison() const { return {files(), match(), options()}; }

std::optional<RowMatch> ComparisonSubcommand::match() const {
    if (m_key->count() > 0 && m_rowOrder->count() > 0) {
        throw UsageFailure("--key and --row-order exclude each other.");
    }
    if (m_rowOrder->count() > 0) {
        return RowMatch::rowOrder();
    }
    return m_key->count() > 0 ? std::optional(RowMatch::key(OptionValues::values(m_key))) : std::nullopt;
}

DiffOptions ComparisonSubcommand::options() const {
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

CompareSubcommand::CompareSubcommand(CLI::App& program)
    : ComparisonSubcommand(program, "compare", HelpTexts::compare, HelpTexts::compareFooter),
      m_show(option("--show", OptionValues::rows, listGroup, "all, changes (default), added, removed or changed")),
      m_column(option("--column", OptionValues::column, listGroup, "List only rows that changed in this column")),
      m_search(option("--search", OptionValues::text, listGroup, "List only rows in which all these words occur")),
      m_format(option("--format", OptionValues::format, listGroup, "text (default), summary or json")) {}

CompareCommand CompareSubcommand::command() const {
    CompareCommand command;
    command.comparison = comparison();
    command.list = {OptionValues::chosen(m_show, enumTexts<DiffFilter::Show>, DiffFilter::Show::changes),
                    OptionValues::value(m_column),
                    OptionValues::value(m_search).value_or("")};
    command.format = OptionValues::chosen(m_format, formatTexts, CompareCommand::Format::text);
    return command;
}

ReportSubcommand::ReportSubcommand(CLI::App& program)
    : ComparisonSubcommand(program, "report", HelpTexts::report, HelpTexts::reportFooter),
      m_output(
          option("--output,-o", OptionValues::file, reportGroup, "Where to save it: a name that ends in .xlsx or .html")
              ->required()),
      m_includeUnchanged(flag("--include-unchanged", reportGroup, "List unchanged rows too, in a workbook")),
      m_language(option("--lang", OptionValues::language, reportGroup, "en (default) or es")) {}

ReportCommand ReportSubcommand::command() const {
    ReportCommand command;
    command.comparison = comparison();
    command.path = OptionValues::path(m_output);
    command.kind = reportKind(command.path);
    command.language = OptionValues::chosen(m_language, languageTexts, ReportCommand::Language::english);
    command.includeUnchanged = m_includeUnchanged->count() > 0;
    return command;
}

}  // namespace corvale::Cli
