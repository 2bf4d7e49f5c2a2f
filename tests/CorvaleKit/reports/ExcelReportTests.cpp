#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/reports/Reports.h"
#include "CorvaleKit/text/Utf8.h"
#include "tests/support/Grids.h"
#include "tests/support/SheetXml.h"
#include "tests/support/Tables.h"

namespace corvale::Reports {
namespace {

using Lines = std::vector<std::string>;
using Tables::table;

DiffResult compared(std::string_view before, std::string_view after, const DiffOptions& options = {},
                    const RowMatch& match = RowMatch::key({"ID"})) {
    return DiffEngine::compare(
        table(before, "old.csv"), table(after, "new.csv"), match, options, NumberStyle::dotDecimal);
}

std::string summarySheet(const DiffResult& result) {
    return SheetXml::sheet(excelReport(result, ReportStrings(), true), 1);
}
Lines summary(const DiffResult& result) { return SheetXml::rows(summarySheet(result)); }

std::string changesSheet(const DiffResult& result, bool includeUnchanged = true) {
    return SheetXml::sheet(excelReport(result, ReportStrings(), includeUnchanged), 2);
}
Lines changes(const DiffResult& result, bool includeUnchanged = true) {
    return SheetXml::rows(changesSheet(result, includeUnchanged));
}

std::string cellChangesSheet(const DiffResult& result) {
    return SheetXml::sheet(excelReport(result, ReportStrings(), true), 3);
}
Lines cellChanges(const DiffResult& result) { return SheetXml::rows(cellChangesSheet(result)); }

std::string columns(const std::string& sheet) { return SheetXml::between(sheet, "<cols>", "</cols>"); }

std::string columnWidth(int number, const std::string& width) {
    const std::string n = std::to_string(number);
    return "<col min=\"" + n + "\" max=\"" + n + "\" width=\"" + width + "\" customWidth=\"1\"/>";
}

// One row of every status, one change of every kind.
DiffResult everything() {
    DiffOptions options;
    options.ignoreWhitespace = false;
    return compared("ID,Name,Price,Since\n1,Pen,2.50,2024-01-31\n2,Cup,3,2024-02-01\n3,Hat,5,\n4,Ink,1,x\n",
                    "ID,Name,Price,Since\n1,pen,2.5,2024-02-29\n3,Hat,5,\n5,Mug,007,2024-03-01 14:30\n4,Ink ,2,x\n",
                    options);
}

TEST(ExcelReport, TheSummaryInWhole) {
    EXPECT_EQ(summary(everything()),
              (Lines{"A/5=Corvale report",
                     "A=Before file | B=old.csv",
                     "A=After file | B=new.csv",
                     "A=Rows matched by | B=ID",
                     "A=Ignored | B=column order",
                     "",
                     "A/2=Rows added | B=#1",
                     "A/3=Rows removed | B=#1",
                     "A/4=Rows changed | B=#2",
                     "A=Rows unchanged | B=#1",
                     "A=Cells changed | B=#5",
                     "A/6=Cells that differ only in number format, case or spacing | B=#3",
                     "A=Columns added | B=#0",
                     "A=Columns removed | B=#0"}));
}

TEST(ExcelReport, ChangesInWhole) {
    EXPECT_EQ(changes(everything()),
              (Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=Name | G/1=Price | "
                     "H/1=Since",
                     "A/4=Changed | B=1 | C=#2 | D=#2 | E=#1 | F/6=pen | G/6=#2.5 | H/12=#45351",
                     "A/3=Removed | B/3=2 | C/3=#3 | D/3= | E/3=#2 | F/3=Cup | G/3=#3 | H/11=#45323",
                     "A=Unchanged | B=3 | C=#4 | D=#3 | E=#3 | F=Hat | G=#5",
                     "A/2=Added | B/2=5 | C/2= | D/2=#4 | E/2=#5 | F/2=Mug | G/2=007 | H/18=#45352.60417",
                     "A/4=Changed | B=4 | C=#5 | D=#5 | E=#4 | F/6=Ink  | G/4=#2 | H=x"}));
}

TEST(ExcelReport, CellChangesInWhole) {
    EXPECT_EQ(cellChanges(everything()),
              (Lines{"A/1=Key | B/1=Column | C/1=Before | D/1=After | E/1=Difference",
                     "A=1 | B=Name | C=Pen | D=pen | E/6=Letter case only",
                     "A=1 | B=Price | C=#2.50 | D=#2.5 | E/6=Number format only",
                     "A=1 | B=Since | C/8=#45322 | D/8=#45351 | E=Value",
                     "A=4 | B=Name | C=Ink | D=Ink  | E/6=Spacing only",
                     "A=4 | B=Price | C=#1 | D=#2 | E=Value"}));
}

TEST(ExcelReport, SheetsAreNamedByTheStrings) {
    const auto workbook = [](const ReportStrings& strings) {
        return SheetXml::part(excelReport(everything(), strings, false), "xl/workbook.xml");
    };
    const std::string english = workbook({});
    EXPECT_NE(english.find("<sheet name=\"Summary\" sheetId=\"1\""), std::string::npos);
    EXPECT_NE(english.find("<sheet name=\"Changes\" sheetId=\"2\""), std::string::npos);
    EXPECT_NE(english.find("<sheet name=\"Cell changes\" sheetId=\"3\""), std::string::npos);
    ReportStrings strings;
    strings.summary = "A/B";
    strings.changes = "ab";
    strings.cellChanges = "";
    const std::string replaced = workbook(strings);
    EXPECT_NE(replaced.find("<sheet name=\"AB\" sheetId=\"1\""), std::string::npos);
    EXPECT_NE(replaced.find("<sheet name=\"ab 2\" sheetId=\"2\""), std::string::npos);
    EXPECT_NE(replaced.find("<sheet name=\"Sheet\" sheetId=\"3\""), std::string::npos);
}

TEST(ExcelReport, OnlyTheListsHaveAFrozenHeaderAndAFilter) {
    const DiffResult result = everything();
    EXPECT_EQ(summarySheet(result).find("<pane"), std::string::npos);
    EXPECT_EQ(summarySheet(result).find("<autoFilter"), std::string::npos);
    EXPECT_NE(changesSheet(result).find("<pane ySplit=\"1\" topLeftCell=\"A2\""), std::string::npos);
    EXPECT_NE(changesSheet(result).find("<autoFilter ref=\"A1:H6\"/>"), std::string::npos);
    EXPECT_NE(changesSheet(result, false).find("<autoFilter ref=\"A1:H5\"/>"), std::string::npos);
    EXPECT_NE(cellChangesSheet(result).find("<pane ySplit=\"1\" topLeftCell=\"A2\""), std::string::npos);
    EXPECT_NE(cellChangesSheet(result).find("<autoFilter ref=\"A1:E6\"/>"), std::string::npos);
}

TEST(ExcelReport, ColumnWidthsFollowTheNames) {
    const std::string name50(50, 'n');
    const std::string header = "ID,abc,Customer," + name50 + ",👍👍👍👍👍👍👍👍\n";
    const DiffResult result = compared(header + "1,,,,\n", header + "1,,,,\n");
    EXPECT_EQ(columns(summarySheet(result)), columnWidth(1, "44.0") + columnWidth(2, "36.0") + columnWidth(3, "30.0"));
    EXPECT_EQ(columns(changesSheet(result)),
              columnWidth(1, "12.0") + columnWidth(2, "18.0") + columnWidth(3, "10.0") + columnWidth(4, "10.0") +
                  columnWidth(5, "10.0") + columnWidth(6, "10.0") + columnWidth(7, "12.0") + columnWidth(8, "40.0") +
                  columnWidth(9, "12.0"));
    EXPECT_EQ(columns(cellChangesSheet(result)),
              columnWidth(1, "18.0") + columnWidth(2, "20.0") + columnWidth(3, "28.0") + columnWidth(4, "28.0") +
                  columnWidth(5, "22.0"));
}

TEST(ExcelReport, UnchangedRowsAreListedOnWishAndCountedAlways) {
    const DiffResult result = compared("ID,Name\n1,Pen\n2,Cup\n", "ID,Name\n1,Pen\n2,Mug\n");
    EXPECT_EQ(changes(result, true).size(), 3U);
    EXPECT_EQ(changes(result, false),
              (Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=Name",
                     "A/4=Changed | B=2 | C=#3 | D=#3 | E=#2 | F/4=Mug"}));
    const std::string changedOnly = excelReport(result, {}, false);
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(changedOnly, 1)).at(9), "A=Rows unchanged | B=#1");
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(changedOnly, 3)).size(), 2U);
}

TEST(ExcelReport, WithoutDifferencesItSaysSo) {
    const DiffResult result = compared("ID,Name\n1,Pen\n", "ID,Name\n1,Pen\n");
    EXPECT_EQ(changes(result, false).size(), 1U);
    EXPECT_EQ(changesSheet(result, false).find("<pane"), std::string::npos);
    EXPECT_EQ(changesSheet(result, false).find("<autoFilter"), std::string::npos);
    EXPECT_EQ(cellChanges(result),
              (Lines{"A/1=Key | B/1=Column | C/1=Before | D/1=After | E/1=Difference", "A/7=No differences."}));
    EXPECT_NE(cellChangesSheet(result).find("<autoFilter ref=\"A1:E2\"/>"), std::string::npos);
}

TEST(ExcelReport, AddedAndRemovedRowsHaveNoCellChanges) {
    const DiffResult result = compared("ID,Name\n1,Pen\n", "ID,Name\n2,Cup\n");
    EXPECT_EQ(changes(result),
              (Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=Name",
                     "A/3=Removed | B/3=1 | C/3=#2 | D/3= | E/3=#1 | F/3=Pen",
                     "A/2=Added | B/2=2 | C/2= | D/2=#2 | E/2=#2 | F/2=Cup"}));
    EXPECT_EQ(cellChanges(result).back(), "A/7=No differences.");
}

TEST(ExcelReport, TwoEmptyTablesMakeAReport) {
    const DiffResult result = DiffEngine::compare({}, {}, RowMatch::rowOrder(), {}, NumberStyle::dotDecimal);
    EXPECT_EQ(changes(result), Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after)"});
    EXPECT_EQ(summary(result).at(3), "A=Rows matched by | B=row order");
}

TEST(ExcelReport, ColumnsOfOneSideAreMarked) {
    const DiffResult result = compared("ID,Old\n1,was\n2,gone\n", "ID,New\n1,is\n3,come\n");
    EXPECT_EQ(changes(result),
              (Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=− Old | G/1=+ New",
                     "A=Unchanged | B=1 | C=#2 | D=#2 | E=#1 | F=was | G=is",
                     "A/3=Removed | B/3=2 | C/3=#3 | D/3= | E/3=#2 | F/3=gone | G/3=",
                     "A/2=Added | B/2=3 | C/2= | D/2=#3 | E/2=#3 | F/2= | G/2=come"}));
    EXPECT_EQ(summary(result).at(12), "A=Columns added | B=#1");
    EXPECT_EQ(summary(result).at(13), "A=Columns removed | B=#1");
}

TEST(ExcelReport, RenamedColumnsShowBothNamesInTheHeaderAlone) {
    DiffOptions options;
    options.ignoreColumnOrder = false;
    const DiffResult result = compared("ID,Colour\n1,red\n", "ID,Color\n1,blue\n", options);
    EXPECT_EQ(changes(result).front(),
              "A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=Colour → Color");
    EXPECT_EQ(cellChanges(result).at(1), "A=1 | B=Colour | C=red | D=blue | E=Value");
}

TEST(ExcelReport, BlankKeysHaveWords) {
    const DiffResult result = compared("ID,Name\n,Pen\n", "ID,Name\n,Cup\n");
    EXPECT_EQ(changes(result).at(1), "A/3=Removed | B/3=(blank key) | C/3=#2 | D/3= | E/3= | F/3=Pen");
    EXPECT_EQ(changes(result).at(2), "A/2=Added | B/2=(blank key) | C/2= | D/2=#2 | E/2= | F/2=Cup");
}

TEST(ExcelReport, BlankKeysOfSeveralColumnsHaveWordsToo) {
    const DiffResult result = compared("A,B,V\n,,2\n1,,3\n", "A,B,V\n", {}, RowMatch::key({"A", "B"}));
    EXPECT_EQ(changes(result).at(1), "A/3=Removed | B/3=(blank key) | C/3=#2 | D/3= | E/3= | F/3= | G/3=#2");
    EXPECT_EQ(changes(result).at(2), "A/3=Removed | B/3=1 ·  | C/3=#3 | D/3= | E/3=#1 | F/3= | G/3=#3");
}

TEST(ExcelReport, KeysAreTextsEvenWhereTheyAreNumbers) {
    EXPECT_NE(
        changesSheet(everything()).find("<c r=\"B2\" t=\"inlineStr\"><is><t xml:space=\"preserve\">1</t></is></c>"),
        std::string::npos);
}

TEST(ExcelReport, TheSummaryTellsHowRowsWereMatchedAndWhatWasIgnored) {
    struct Case {
        RowMatch match;
        DiffOptions options;
        std::string matchedBy;
        std::string ignored;
    };
    DiffOptions nothing;
    nothing.ignoreWhitespace = false;
    nothing.ignoreColumnOrder = false;
    DiffOptions everyOption;
    everyOption.ignoreCase = true;
    everyOption.ignoreNumberFormat = true;
    everyOption.ignoredColumns = {"Price", "Name"};
    const std::vector<Case> cases = {
        {RowMatch::rowOrder(), nothing, "row order", "–"},
        {RowMatch::key({}), {}, "row order", "extra spaces, column order"},
        {RowMatch::key({"ID", "Name"}),
         everyOption,
         "ID + Name",
         "letter case, extra spaces, number formatting, column order, Name, Price"},
    };
    for (const auto& [match, options, matchedBy, ignored] : cases) {
        const Lines lines = summary(compared("ID,Name,Price\n1,a,2\n", "ID,Name,Price\n1,a,2\n", options, match));
        EXPECT_EQ(lines.at(3), "A=Rows matched by | B=" + matchedBy);
        EXPECT_EQ(lines.at(4), "A=Ignored | B=" + ignored);
    }
}

TEST(ExcelReport, AChangedColumnOrderIsTold) {
    const Lines lines = summary(compared("ID,Name,Price\n1,a,2\n", "ID,Price,Name\n1,2,a\n"));
    ASSERT_EQ(lines.size(), 15U);
    EXPECT_EQ(lines.back(), "A=Column order changed | B=Yes");
}

TEST(ExcelReport, DuplicateKeysAreListedBelowASpacer) {
    const Lines lines = summary(compared("ID,Name\n7,a\n8,b\n7,c\n7,d\n", "ID,Name\n7,a\n8,b\n8,c\n"));
    ASSERT_EQ(lines.size(), 18U);
    EXPECT_EQ(
        Lines(lines.begin() + 14, lines.end()),
        (Lines{"", "A/5=Duplicate keys | B/5=Key | C/5=Rows", "A=Before | B=7 | C=2, 4, 5", "A=After | B=8 | C=3, 4"}));
}

TEST(ExcelReport, AListOfRowsLongerThanACellHoldsEndsBehindAWholeNumber) {
    std::string before = "ID,Name\n";
    for (int i = 0; i < 9000; ++i) {
        before += "7,a\n";
    }
    const std::string line = summary(compared(before, "ID,Name\n7,a\n")).back();
    const std::string cell = line.substr(line.find("C=") + 2);
    EXPECT_TRUE(cell.starts_with("2, 3, 4, "));
    EXPECT_TRUE(cell.ends_with(", 5644, 5645, […]")) << cell.substr(cell.size() - 40);
    EXPECT_EQ(Utf8::scalarCount(cell), 32'763U);
}

TEST(ExcelReport, ValuesLongerThanACellHoldsAreShownWhereTheyDiffer) {
    const std::string same(40'000, 'x');
    const auto values = [](const std::string& before, const std::string& after) {
        return cellChanges(compared("ID,Note\n7," + before + "\n", "ID,Note\n7," + after + "\n")).back();
    };
    const auto shown = [](const std::string& before, const std::string& after) {
        return "A=7 | B=Note | C=" + before + " | D=" + after + " | E=Value";
    };
    const std::string context = "[…] " + std::string(100, 'x');
    EXPECT_EQ(values(same + "A", same + "B"), shown(context + "A", context + "B"));
    EXPECT_EQ(values(same, same + "B"), shown(context, context + "B"));
    EXPECT_EQ(values(same + "A" + same, same + "B"),
              shown(context + "A" + std::string(32'767 - 105 - 4, 'x') + " […]", context + "B"));
    // A scalar is not cut in two, also where the difference lies in its last byte.
    std::string wide;
    for (int i = 0; i < 20'000; ++i) {
        wide += "é";
    }
    const std::string wideContext = "[…] " + wide.substr(0, 100);
    EXPECT_EQ(values(wide + wide + "à", wide + wide + "ä"), shown(wideContext + "à", wideContext + "ä"));
    // What shows its difference stays as it is.
    EXPECT_EQ(values("A" + same, "B"), shown("A" + std::string(32'762, 'x') + " […]", "B"));
    const std::string whole(32'766, 'x');
    EXPECT_EQ(values(whole + "A", whole + "B"), shown(whole + "A", whole + "B"));
}

TEST(ExcelReport, BothAreTold) {
    const Lines lines = summary(compared("ID,Name,Price\n7,a,1\n7,b,1\n", "ID,Price,Name\n7,1,a\n"));
    ASSERT_EQ(lines.size(), 18U);
    EXPECT_EQ(lines.at(14), "A=Column order changed | B=Yes");
    EXPECT_EQ(lines.at(15), "");
    EXPECT_EQ(lines.at(17), "A=Before | B=7 | C=2, 3");
}

TEST(ExcelReport, RowNumbersAreThoseOfTheFiles) {
    const DataTable before({"ID"}, {{"1"}, {"2"}}, "a.xlsx", {10, 12}, 5);
    const DataTable after({"ID"}, {{"1"}, {"2"}}, "b.xlsx");
    const DiffResult result = DiffEngine::compare(before, after, RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
    EXPECT_EQ(changes(result).at(1), "A=Unchanged | B=1 | C=#10 | D=#2 | E=#1");
    EXPECT_EQ(changes(result).at(2), "A=Unchanged | B=2 | C=#12 | D=#3 | E=#2");
}

TEST(ExcelReport, EveryWordIsReplaceable) {
    const std::string bytes = excelReport(everything(), ReportStrings::spanish(), true);
    const Lines lines = SheetXml::rows(SheetXml::sheet(bytes, 1));
    EXPECT_EQ(lines.at(0), "A/5=Informe de Corvale");
    EXPECT_EQ(lines.at(1), "A=Archivo anterior | B=old.csv");
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(bytes, 2)).at(1),
              "A/4=Modificada | B=1 | C=#2 | D=#2 | E=#1 | F/6=pen | G/6=#2.5 | H/12=#45351");
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(bytes, 3)).at(3), "A=1 | B=Since | C/8=#45322 | D/8=#45351 | E=Valor");
}

TEST(ExcelReport, MarkupAndFormulasStayTexts) {
    const DiffResult result = compared("ID,<b>,=H1\n=1+1,<i>x</i>,+1\n", "ID,<b>,=H1\n=1+1,<i>y</i>,@x\n");
    EXPECT_EQ(changes(result),
              (Lines{"A/1=Status | B/1=Key | C/1=Row (before) | D/1=Row (after) | E/1=ID | F/1=&lt;b&gt; | G/1==H1",
                     "A/4=Changed | B==1+1 | C=#2 | D=#2 | E==1+1 | F/4=&lt;i&gt;y&lt;/i&gt; | G/4=@x"}));
    const std::string bytes = excelReport(result, ReportStrings(), true);
    for (int sheet = 1; sheet <= 3; ++sheet) {
        EXPECT_EQ(SheetXml::sheet(bytes, sheet).find("<f"), std::string::npos);
    }
}

TEST(ExcelReport, ReadsBackAsATable) {
    const std::string bytes = excelReport(everything(), ReportStrings(), true);
    const DataTable table = DataLoader::load(Bytes(bytes), "report.xlsx", 1);
    EXPECT_EQ(table.headers(), (Lines{"Status", "Key", "Row (before)", "Row (after)", "ID", "Name", "Price", "Since"}));
    EXPECT_EQ(Grids::texts(table.rows()),
              (Grids::Rows{{"Changed", "1", "2", "2", "1", "pen", "2.5", "2024-02-29"},
                           {"Removed", "2", "3", "", "2", "Cup", "3", "2024-02-01"},
                           {"Unchanged", "3", "4", "3", "3", "Hat", "5", ""},
                           {"Added", "5", "", "4", "5", "Mug", "007", "2024-03-01 14:30"},
                           {"Changed", "4", "5", "5", "4", "Ink ", "2", "x"}}));
}

std::string failureOf(const DiffResult& result) {
    try {
        Reports::excelReport(result, {}, false);
    } catch (const Reports::Failure& failure) {
        return failure.message();
    }
    return "no failure";
}

TEST(ExcelReport, HoldsAsManyRowsAsSpreadsheetProgramsRead) {
    constexpr std::size_t rowsBesideDuplicates = 16;
    DiffResult result;
    result.duplicates.resize(1'048'576 - rowsBesideDuplicates);
    EXPECT_EQ(failureOf(result), "no failure");
    result.duplicates.emplace_back();
    EXPECT_EQ(failureOf(result), "A workbook holds 1,048,576 rows at most. Save the report as an HTML page instead.");
}

TEST(ExcelReport, HoldsAsManyColumnsAsSpreadsheetProgramsRead) {
    constexpr std::size_t otherColumns = 4;
    DiffResult result;
    result.columns.resize(16'384 - otherColumns);
    EXPECT_EQ(failureOf(result), "no failure");
    result.columns.emplace_back();
    EXPECT_EQ(failureOf(result), "A workbook holds 16,384 columns at most. Save the report as an HTML page instead.");
}

}  // namespace
}  // namespace corvale::Reports
