#include <gtest/gtest.h>

#include <sstream>

#include "CorvaleKit/text/Text.h"
#include "cli/ArgumentParser.h"

namespace corvale::Cli {
namespace {

template <typename Wanted>
Wanted parsed(std::vector<std::string> arguments) {
    return std::get<Wanted>(parseArguments(std::move(arguments)));
}

CompareCommand compared(std::vector<std::string> options) {
    options.insert(options.begin(), {"compare", "a.csv", "b.csv"});
    return parsed<CompareCommand>(std::move(options));
}

std::string failureOf(std::vector<std::string> arguments) {
    try {
        parseArguments(std::move(arguments));
    } catch (const UsageFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

std::size_t widestLine(const std::string& text) {
    std::istringstream lines(text);
    std::size_t widest = 0;
    for (std::string line; std::getline(lines, line);) {
        widest = std::max(widest, Text::displayWidth(line));
    }
    return widest;
}

TEST(ArgumentParser, SheetsTakesAFile) { EXPECT_EQ(parsed<SheetsCommand>({"sheets", "a.xlsx"}).path, "a.xlsx"); }

TEST(ArgumentParser, TableTakesAFileASheetAndAHeaderRow) {
    const FileChoice file = parsed<TableCommand>({"table", "a.xlsx", "--sheet", "Stock", "--header-row", "4"}).file;
    EXPECT_EQ(file, (FileChoice{"a.xlsx", "Stock", 4}));
    EXPECT_EQ(parsed<TableCommand>({"table", "a.xlsx"}).file, (FileChoice{"a.xlsx", std::nullopt, std::nullopt}));
}

TEST(ArgumentParser, OneFilesOwnTableOptionsGoBeforeSharedOnes) {
    const PairChoice files = parsed<KeyCommand>({"key",
                                                 "a.xlsx",
                                                 "b.xlsx",
                                                 "--sheet",
                                                 "2",
                                                 "--before-sheet",
                                                 "Old",
                                                 "--header-row=3",
                                                 "--after-header-row=5"})
                                 .files;
    EXPECT_EQ(files.before, (FileChoice{"a.xlsx", "Old", 3}));
    EXPECT_EQ(files.after, (FileChoice{"b.xlsx", "2", 5}));
}

TEST(ArgumentParser, CompareDefaultsToTheSuggestedKeyAndTheListOfChanges) {
    const CompareCommand command = compared({});
    EXPECT_EQ(command.comparison.files, (PairChoice{{"a.csv", {}, {}}, {"b.csv", {}, {}}}));
    EXPECT_EQ(command.comparison.match, std::nullopt);
    EXPECT_EQ(command.comparison.options, DiffOptions{});
    EXPECT_EQ(command.list, ListChoice{});
    EXPECT_EQ(command.format, CompareCommand::Format::text);
}

TEST(ArgumentParser, SeveralKeysFormOneInTheOrderGiven) {
    EXPECT_EQ(compared({"--key", "Year", "--key", "ID"}).comparison.match, RowMatch::key({"Year", "ID"}));
}

TEST(ArgumentParser, AKeyTakesNoFileNameForAnother) {
    const auto command = parsed<CompareCommand>({"compare", "--key", "ID", "a.csv", "b.csv"});
    EXPECT_EQ(command.comparison.match, RowMatch::key({"ID"}));
    EXPECT_EQ(command.comparison.files.after.path, "b.csv");
}

TEST(ArgumentParser, NamesInBracketsAndBracesStayOneName) {
    for (const std::string name : {"[a,b]", "{}", "a,b", "%%", "a=b", "=", "--", "--key", "--key="}) {
        EXPECT_EQ(compared({"--key", name}).comparison.match, RowMatch::key({name})) << name;
        EXPECT_EQ(compared({"--key=" + name}).comparison.match, RowMatch::key({name})) << name;
    }
}

TEST(ArgumentParser, RowOrderIsAMatch) { EXPECT_EQ(compared({"--row-order"}).comparison.match, RowMatch::rowOrder()); }

TEST(ArgumentParser, EveryComparisonOptionHasItsField) {
    const DiffOptions options = compared({"--ignore-case",
                                          "--keep-whitespace",
                                          "--ignore-number-format",
                                          "--by-position",
                                          "--ignore-column",
                                          "B",
                                          "--ignore-column",
                                          "A",
                                          "--number-style",
                                          "commaDecimal"})
                                    .comparison.options;
    DiffOptions expected;
    expected.ignoreCase = true;
    expected.ignoreWhitespace = false;
    expected.ignoreNumberFormat = true;
    expected.ignoreColumnOrder = false;
    expected.ignoredColumns = {"A", "B"};
    expected.numberStyle = NumberStyle::commaDecimal;
    EXPECT_EQ(options, expected);
}

ReportCommand reported(std::vector<std::string> options) {
    options.insert(options.begin(), {"report", "a.csv", "b.csv"});
    return parsed<ReportCommand>(std::move(options));
}

TEST(ArgumentParser, AReportIsOfTheKindThatItsNameSays) {
    using Kind = ReportCommand::Kind;
    const std::pair<const char*, Kind> cases[] = {{"r.xlsx", Kind::workbook},
                                                  {"R.XLSX", Kind::workbook},
                                                  {"a.html.xlsx", Kind::workbook},
                                                  {"r.html", Kind::page}};
    for (const auto& [path, kind] : cases) {
        const ReportCommand command = reported({"-o", path});
        EXPECT_EQ(command.path, path);
        EXPECT_EQ(command.kind, kind) << path;
    }
    EXPECT_EQ(failureOf({"report", "a.csv", "b.csv", "-o", "r.pdf"}),
              "A report is a file .xlsx or .html, which “r.pdf” is not.");
    EXPECT_EQ(failureOf({"report", "a.csv", "b.csv", "-o", "xlsx"}),
              "A report is a file .xlsx or .html, which “xlsx” is not.");
    EXPECT_EQ(failureOf({"report", "a.csv", "b.csv", "-o", "folder/.xlsx"}),
              "A report is a file .xlsx or .html, which “folder/.xlsx” is not.");
}

TEST(ArgumentParser, AReportIsEnglishAndOfDifferencesUnlessAskedOtherwise) {
    const ReportCommand plain = reported({"--output", "r.xlsx"});
    EXPECT_EQ(plain.language, ReportCommand::Language::english);
    EXPECT_FALSE(plain.includeUnchanged);
    const ReportCommand asked = reported({"-o", "r.xlsx", "--lang", "es", "--include-unchanged", "--key", "ID"});
    EXPECT_EQ(asked.language, ReportCommand::Language::spanish);
    EXPECT_TRUE(asked.includeUnchanged);
    EXPECT_EQ(asked.comparison.match, RowMatch::key({"ID"}));
    EXPECT_EQ(failureOf({"report", "a.csv", "b.csv", "-o", "r.xlsx", "--lang", "fr"}),
              "--lang takes en or es, not “fr”.");
}

TEST(ArgumentParser, AReportNeedsAFile) {
    EXPECT_EQ(failureOf({"report", "a.csv", "b.csv"}), "--output is required; see corvale-cli report --help");
}

TEST(ArgumentParser, ListOptionsAndFormat) {
    const CompareCommand command =
        compared({"--show", "added", "--column", "Price", "--search", "gel pen", "--format=json"});
    EXPECT_EQ(command.list, (ListChoice{DiffFilter::Show::added, "Price", "gel pen"}));
    EXPECT_EQ(command.format, CompareCommand::Format::json);
    EXPECT_EQ(compared({"--format", "summary"}).format, CompareCommand::Format::summary);
}

TEST(ArgumentParser, BytesThatAreNoUtf8AreRepairedInTextsAndKeptInPaths) {
    const auto command = parsed<TableCommand>({"table", "a\xFF.csv", "--sheet", "b\xFF"});
    EXPECT_EQ(command.file.path, "a\xFF.csv");
    EXPECT_EQ(command.file.sheet, "b\xEF\xBF\xBD");
}

TEST(ArgumentParser, TwoDashesEndTheOptions) {
    EXPECT_EQ(parsed<SheetsCommand>({"sheets", "--", "--help"}).path, "--help");
}

TEST(ArgumentParser, AfterTwoDashesAnEqualsSignIsPartOfAName) {
    EXPECT_EQ(parsed<TableCommand>({"table", "--", "--sheet="}).file, (FileChoice{"--sheet=", {}, {}}));
}

TEST(ArgumentParser, AnEmptyTextIsASearchForNothing) {
    for (const std::vector<std::string>& options : {std::vector<std::string>{"--search="}, {"--search", ""}}) {
        const CompareCommand command = compared(options);
        EXPECT_EQ(command.list, ListChoice{});
        EXPECT_EQ(command.comparison.files.after.path, "b.csv");
    }
    const auto command = parsed<CompareCommand>({"compare", "--search=", "a.csv", "b.csv"});
    EXPECT_EQ(command.comparison.files, (PairChoice{{"a.csv", {}, {}}, {"b.csv", {}, {}}}));
}

TEST(ArgumentParser, NamesWhatIsWrong) {
    const struct {
        std::vector<std::string> arguments;
        const char* message;
    } cases[] = {
        {{}, "A command is missing: it is one of sheets, table, key, compare and report."},
        {{"diff", "a", "b"}, "There is no command “diff”: it is one of sheets, table, key, compare and report."},
        {{"table", "a", "--header-row", "0"}, "--header-row takes a row number, counted from 1, not “0”."},
        {{"table", "a", "--header-row", "-1"}, "--header-row takes a row number, counted from 1, not “-1”."},
        {{"table", "a", "--header-row", "2x"}, "--header-row takes a row number, counted from 1, not “2x”."},
        {{"table", "a", "--header-row", ""}, "--header-row takes a row number, counted from 1, not “”."},
        {{"table", "a", "--header-row", "99999999999999999999"},
         "--header-row takes a row number, counted from 1, not “99999999999999999999”."},
        {{"key", "a", "b", "--header-row", "0", "--before-header-row", "1", "--after-header-row", "1"},
         "--header-row takes a row number, counted from 1, not “0”."},
        {{"compare", "a", "b", "--key", "ID", "--row-order"}, "--key and --row-order exclude each other."},
        {{"compare", "a", "b", "--number-style", "dot"},
         "--number-style takes automatic, dotDecimal or commaDecimal, not “dot”."},
        {{"compare", "a", "b", "--show", "some"}, "--show takes all, changes, added, removed or changed, not “some”."},
        {{"compare", "a", "b", "--format", "xml"}, "--format takes text, summary or json, not “xml”."},
        {{"compare", "a"}, "AFTER is required; see corvale-cli compare --help"},
        {{"compare", "a", "b", "c", "d"}, "“c” was not expected; see corvale-cli compare --help"},
        {{"sheets", "a", "--sheet", "1"}, "“--sheet” was not expected; see corvale-cli sheets --help"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(failureOf(one.arguments), one.message) << testing::PrintToString(one.arguments);
    }
}

TEST(ArgumentParser, NamesTheOptionThatIsGivenTooOften) {
    EXPECT_EQ(failureOf({"compare", "a", "b", "--format", "json", "--format", "text"}),
              "--format is given more than once.");
    EXPECT_EQ(failureOf({"compare", "a", "b", "--search=", "--search=x"}), "--search is given more than once.");
    EXPECT_EQ(failureOf({"table", "a", "--sheet", "1", "--sheet", "1"}), "--sheet is given more than once.");
    EXPECT_EQ(failureOf({"key", "a", "b", "--after-header-row", "1", "--after-header-row", "2"}),
              "--after-header-row is given more than once.");
    EXPECT_TRUE(compared({"--ignore-case", "--ignore-case"}).comparison.options.ignoreCase);
}

TEST(ArgumentParser, SaysWhatAnOptionNeeds) {
    const struct {
        const char* option;
        const char* message;
    } cases[] = {
        {"--sheet", "--sheet needs a sheet number or name."},
        {"--before-header-row", "--before-header-row needs a row number."},
        {"--key", "--key needs a column name."},
        {"--ignore-column", "--ignore-column needs a column name."},
        {"--column", "--column needs a column name."},
        {"--number-style", "--number-style needs a number style."},
        {"--show", "--show needs a choice of rows."},
        {"--search", "--search needs a text."},
        {"--format", "--format needs a format."},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(failureOf({"compare", "a", "b", one.option}), one.message);
    }
    EXPECT_EQ(failureOf({"report", "a", "b", "--output"}), "--output needs a file name.");
    EXPECT_EQ(failureOf({"report", "a", "b", "-o", "r.html", "--lang"}), "--lang needs a language.");
}

TEST(ArgumentParser, AnEmptyColumnNameIsNone) {
    for (const std::string option : {"--key", "--ignore-column", "--column"}) {
        EXPECT_EQ(failureOf({"compare", option + "=", "a", "b"}), option + " needs a column name.");
        EXPECT_EQ(failureOf({"compare", option, "", "a", "b"}), option + " needs a column name.");
    }
    EXPECT_EQ(failureOf({"compare", "--header-row=", "a", "b"}),
              "--header-row takes a row number, counted from 1, not “”.");
    EXPECT_EQ(failureOf({"compare", "--format=", "a", "b"}), "--format takes text, summary or json, not “”.");
}

TEST(ArgumentParser, WhatTakesNoValueIsGivenNone) {
    EXPECT_EQ(failureOf({"compare", "a", "b", "--ignore-case=no"}), "--ignore-case takes no value.");
    EXPECT_EQ(failureOf({"compare", "a", "b", "--row-order="}), "--row-order takes no value.");
    EXPECT_EQ(failureOf({"sheets", "a", "--help=x"}), "--help takes no value.");
}

TEST(ArgumentParser, EveryHelpShowsExamples) {
    for (const std::string command : {"", "sheets", "table", "key", "compare", "report"}) {
        std::vector<std::string> arguments{"--help"};
        if (!command.empty()) {
            arguments.insert(arguments.begin(), command);
        }
        const std::string text = parsed<PrintCommand>(arguments).text;
        EXPECT_NE(text.find("Examples:\n  corvale-cli " + command), std::string::npos) << text;
        EXPECT_LE(widestLine(text), 80U) << text;
    }
}

TEST(ArgumentParser, HelpNeedsNoFiles) {
    const std::string text = parsed<PrintCommand>({"compare", "--help"}).text;
    for (const char* option : {"--key",
                               "--row-order",
                               "--ignore-case",
                               "--keep-whitespace",
                               "--ignore-number-format",
                               "--by-position",
                               "--ignore-column",
                               "--number-style",
                               "--show",
                               "--column",
                               "--search",
                               "--format",
                               "--sheet",
                               "--before-sheet",
                               "--after-header-row",
                               "Exit status"}) {
        EXPECT_NE(text.find(option), std::string::npos) << option;
    }
}

TEST(ArgumentParser, TheVersionIsOneLine) {
    const std::string text = parsed<PrintCommand>({"--version"}).text;
    EXPECT_EQ(text.rfind("corvale-cli ", 0), 0U) << text;
    EXPECT_EQ(text.find('\n'), text.size() - 1);
}

}  // namespace
}  // namespace corvale::Cli
