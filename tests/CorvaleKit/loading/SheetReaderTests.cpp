#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/SheetReader.h"
#include "tests/support/Grids.h"
#include "tests/support/Workbooks.h"

namespace corvale::XLSX {
namespace {

using namespace std::string_literals;
using Grids::Rows;
using Grids::texts;
using Kind = NumberFormat::Kind;

// Shared strings "zero" and "one"; style 1 is a date, 2 a percentage, 3 of five digits, 4 of 40.
Workbook workbook() {
    Workbook workbook;
    workbook.strings = sharedStrings(Workbooks::sharedStrings({"<t>zero</t>", "<t>one</t>"}));
    workbook.formats = {{}, {Kind::date}, {Kind::percent}, {Kind::zeroPadded, 5}, {Kind::zeroPadded, 40}};
    return workbook;
}

Rows partRows(std::string_view part) { return texts(sheetGrid(Bytes(part), workbook())); }

Rows rowsOf(std::string_view sheetData) { return partRows(Workbooks::worksheet(sheetData)); }

// The only row of a sheet of one row.
Grids::Texts cellsOf(const std::string& cells) {
    const Rows rows = rowsOf("<row>" + cells + "</row>");
    EXPECT_LE(rows.size(), 1U);
    return rows.empty() ? Grids::Texts{} : rows[0];
}

struct CellCase {
    std::string cell;
    std::string text;
};

void expectTexts(const std::vector<CellCase>& cases) {
    for (const auto& [cell, text] : cases) {
        EXPECT_EQ(cellsOf(cell), Grids::Texts{text}) << cell;
    }
}

TEST(SheetReader, NumbersAreFormattedByTheirStyle) {
    expectTexts({
        {"<c><v>42</v></c>", "42"},
        {"<c t=\"n\"><v>42.0</v></c>", "42"},
        {"<c s=\"0\"><v>0.30000000000000004</v></c>", "0.3"},
        {"<c s=\"1\"><v>44197</v></c>", "2021-01-01"},
        {"<c s=\"+1\"><v>44197</v></c>", "2021-01-01"},
        {"<c s=\"2\"><v>0.1</v></c>", "10%"},
        {"<c s=\"3\"><v>-42</v></c>", "-00042"},
        {"<c s=\"4\"><v>7</v></c>", std::string(39, '0') + "7"},
        {"<c s=\"5\"><v>44197</v></c>", "44197"},
        {"<c s=\"-1\"><v>44197</v></c>", "44197"},
        {"<c s=\"99999999999999999999\"><v>44197</v></c>", "44197"},
        {"<c s=\"x\"><v>44197</v></c>", "44197"},
        {"<c t=\"e\"><v>#N/A</v></c>", "#N/A"},
        {"<c t=\"e\" s=\"1\"><v>44197</v></c>", "2021-01-01"},
        {"<c t=\"other\" s=\"1\"><v>44197</v></c>", "2021-01-01"},
        {"<c><v> 42 </v></c>", "42"},
        {"<c><v>text</v></c>", "text"},
    });
}

TEST(SheetReader, WithoutAStyleTheFirstCounts) {
    Workbook dates = workbook();
    dates.formats = {{Kind::date}};
    EXPECT_EQ(texts(sheetGrid(Bytes(Workbooks::worksheet("<row><c><v>44197</v></c></row>")), std::move(dates))),
              (Rows{{"2021-01-01"}}));
}

TEST(SheetReader, TheWorkbooksDateSystemCounts) {
    Workbook other = workbook();
    other.date1904 = true;
    EXPECT_EQ(texts(sheetGrid(Bytes(Workbooks::worksheet("<row><c s=\"1\"><v>0</v></c></row>")), std::move(other))),
              (Rows{{"1904-01-01"}}));
}

TEST(SheetReader, SharedStringsAreNamedByTheirIndex) {
    expectTexts({
        {"<c t=\"s\"><v>0</v></c>", "zero"},
        {"<c t=\"s\"><v>1</v></c>", "one"},
        {"<c t=\"s\" s=\"1\"><v>+1</v></c>", "one"},
        {"<c t=\"s\"><v>2</v></c>", ""},
        {"<c t=\"s\"><v>-1</v></c>", ""},
        {"<c t=\"s\"><v> 1 </v></c>", ""},
        {"<c t=\"s\"><v>1.0</v></c>", ""},
        {"<c t=\"s\"><v>one</v></c>", ""},
        {"<c t=\"s\"><v>99999999999999999999</v></c>", ""},
        {"<c t=\"s\"><v>9223372036854775807</v></c>", ""},
    });
}

TEST(SheetReader, OtherTypesKeepTheirText) {
    expectTexts({
        {"<c t=\"str\"><f>A1</f><v>text</v></c>", "text"},
        {"<c t=\"str\" s=\"1\"><v>44197</v></c>", "44197"},
        {"<c t=\"str\"><v> 1.0 </v></c>", " 1.0 "},
        {"<c t=\"d\"><v>2021-01-01T00:00:00</v></c>", "2021-01-01"},
        {"<c t=\"d\"><v>2021-01-01T12:30:00</v></c>", "2021-01-01T12:30:00"},
        {"<c t=\"d\"><v>2021-01-01T00:00:00Z</v></c>", "2021-01-01T00:00:00Z"},
        {"<c t=\"d\"><v>2021-01-01</v></c>", "2021-01-01"},
        {"<c t=\"b\"><v>1</v></c>", "TRUE"},
        {"<c t=\"b\"><v>0</v></c>", "FALSE"},
        {"<c t=\"b\"><v>true</v></c>", "FALSE"},
        {"<c t=\"inlineStr\"><is><t>text</t></is></c>", "text"},
        {"<c t=\"inlineStr\"><is><r><rPr/><t>rich </t></r><r><t>text</t></r></is></c>", "rich text"},
        {"<c t=\"inlineStr\"><is><t>東京</t><rPh><t>トウキョウ</t></rPh></is></c>", "東京トウキョウ"},
        {"<c t=\"inlineStr\"><is><t>old</t></is><is><t>new</t></is></c>", "new"},
        {"<c t=\"inlineStr\"><v>value</v><is><t>text</t></is></c>", "text"},
        {"<c t=\"inlineStr\"><is>no<t>text</t></is></c>", "text"},
        {"<c t=\"inlineStr\"><t>not inside</t></c>", ""},
    });
}

TEST(SheetReader, WithoutAValueSomeTypesAreLeftOut) {
    for (const std::string type : {"", " t=\"n\"", " t=\"s\"", " t=\"e\"", " t=\"other\"", " t=\"\""}) {
        EXPECT_EQ(cellsOf("<c" + type + "/>"), Grids::Texts{}) << type;
        EXPECT_EQ(cellsOf("<c" + type + "><v></v></c><c t=\"str\"><v>x</v></c>"), (Grids::Texts{"", "x"})) << type;
        EXPECT_EQ(cellsOf("<c" + type + "><is><t>unused</t></is></c>"), Grids::Texts{}) << type;
    }
    expectTexts(
        {{"<c t=\"str\"/>", ""}, {"<c t=\"inlineStr\"/>", ""}, {"<c t=\"d\"/>", ""}, {"<c t=\"b\"/>", "FALSE"}});
}

TEST(SheetReader, AValueOfSpacesIsAValue) { expectTexts({{"<c><v> </v></c>", " "}, {"<c t=\"s\"><v> </v></c>", ""}}); }

TEST(SheetReader, TheLastValueOfACellCounts) {
    expectTexts({{"<c><v>1</v><v>2</v></c>", "2"}, {"<c><v>lost<x/>3</v></c>", "3"}, {"<c><v>1</v><x>5</x></c>", "1"}});
    EXPECT_EQ(cellsOf("<c><v>1</v><v/></c>"), Grids::Texts{});
}

TEST(SheetReader, NoValueIsCarriedOver) {
    EXPECT_EQ(cellsOf("<c><v>1</v></c><c/><c t=\"inlineStr\"><is><t>x</t></is></c><c t=\"inlineStr\"/>"),
              (Grids::Texts{"1", "", "x", ""}));
    EXPECT_EQ(cellsOf("<v>9</v><c t=\"str\"/>"), Grids::Texts{""});
}

TEST(SheetReader, CellsWithoutReferencesFollowEachOther) {
    EXPECT_EQ(rowsOf("<row><c><v>1</v></c><c/><c><v>3</v></c></row><row><c><v>4</v></c></row>"),
              (Rows{{"1", "", "3"}, {"4"}}));
    EXPECT_EQ(rowsOf("<row r=\"2\"><c r=\"C2\"><v>1</v></c><c><v>2</v></c></row>"), (Rows{{}, {"", "", "1", "2"}}));
    EXPECT_EQ(cellsOf("<c r=\"?\"><v>1</v></c><c r=\"\"><v>2</v></c><c r=\"A0\"><v>3</v></c>"),
              (Grids::Texts{"1", "2", "3"}));
}

TEST(SheetReader, RowsWithoutANumberFollowEachOther) {
    EXPECT_EQ(rowsOf("<row r=\"2\"><c><v>a</v></c></row><row><c><v>b</v></c></row><row r=\"x\"><c><v>c</v></c></row>"
                     "<row r=\"0\"><c><v>d</v></c></row><row r=\"-3\"><c><v>e</v></c></row><row "
                     "r=\"+8\"><c><v>f</v></c></row>"),
              (Rows{{}, {"a"}, {"b"}, {"c"}, {"d"}, {"e"}, {}, {"f"}}));
}

TEST(SheetReader, ACellsReferenceDoesNotMoveTheRow) {
    EXPECT_EQ(rowsOf("<row r=\"1\"><c r=\"A3\"><v>x</v></c><c><v>y</v></c></row><row><c><v>z</v></c></row>"),
              (Rows{{"", "y"}, {"z"}, {"x"}}));
}

TEST(SheetReader, ReferencesMayBeInEitherCase) {
    EXPECT_EQ(rowsOf("<row><c r=\"b1\"><v>x</v></c></row>"), (Rows{{"", "x"}}));
}

TEST(SheetReader, CellsMayComeInAnyOrder) {
    EXPECT_EQ(rowsOf("<row r=\"3\"><c r=\"B3\"><v>5</v></c><c r=\"A3\"><v>4</v></c></row><row "
                     "r=\"1\"><c><v>1</v></c></row><row r=\"3\"><c><v>6</v></c></row>"),
              (Rows{{"1"}, {}, {"6", "5"}}));
}

TEST(SheetReader, EmptyRowsLeaveGapsButNoTail) {
    EXPECT_EQ(rowsOf("<row/><row r=\"3\"><c><v>1</v></c></row><row r=\"9\"/><row><c/></row>"), (Rows{{}, {}, {"1"}}));
    EXPECT_EQ(rowsOf(""), Rows{});
    EXPECT_EQ(partRows("<worksheet/>"), Rows{});
}

TEST(SheetReader, CellsOutsideAnyRowNeedAReference) {
    EXPECT_EQ(rowsOf("<c><v>1</v></c><c r=\"B1\"><v>2</v></c>"), (Rows{{"", "2"}}));
}

TEST(SheetReader, OnlyTheFirstThousandColumnsAreRead) {
    const Rows rows = rowsOf(
        "<row><c r=\"ALL1\"><v>1</v></c><c r=\"ALM1\"><v>2</v></c><c><v>3</v></c><c r=\"XFD1\"><v>4</v></c>"
        "<c r=\"ZZZZZZZZZZZZZZZZ1\"><v>5</v></c><c><v>6</v></c></row>");
    ASSERT_EQ(rows.size(), 1U);
    ASSERT_EQ(rows[0].size(), 1000U);
    EXPECT_EQ(rows[0][999], "1");
}

TEST(SheetReader, OnlyTheRowsOfAWorksheetAreRead) {
    const CellGrid grid =
        sheetGrid(Bytes(Workbooks::worksheet(
                      "<row r=\"1048576\"><c><v>last</v></c></row><row><c><v>below</v></c></row>"
                      "<row r=\"9223372036854775807\"><c><v>far</v></c></row><row><c><v>farther</v></c></row>"
                      "<row><c r=\"A9223372036854775807\"><v>x</v></c><c r=\"B1\"><v>b</v></c></row>")),
                  workbook());
    EXPECT_EQ(grid.rowCount(), 1'048'576U);
    EXPECT_EQ(texts(grid.row(0)), (Grids::Texts{"", "b"}));
    EXPECT_EQ(texts(grid.row(1'048'575)), Grids::Texts{"last"});
}

TEST(SheetReader, AFarCornerInEveryRowTakesLittleRoom) {
    std::string sheetData;
    for (int row = 1; row <= 50'000; ++row) {
        sheetData +=
            "<row r=\"" + std::to_string(row) + "\"><c r=\"ALL" + std::to_string(row) + "\"><v>1</v></c></row>";
    }
    const CellGrid grid = sheetGrid(Bytes(Workbooks::worksheet(sheetData)), workbook());
    ASSERT_EQ(grid.rowCount(), 50'000U);
    EXPECT_EQ(grid.row(49'999).size(), 1000U);
    EXPECT_EQ(grid.row(49'999).storedCells(), 1U);
    EXPECT_EQ(grid.row(49'999)[999], "1");
}

TEST(SheetReader, LongPaddingIsKeptOnce) {
    const CellGrid grid = sheetGrid(
        Bytes(Workbooks::worksheet("<row><c s=\"4\"><v>7</v></c><c s=\"4\"><v>8</v></c><c s=\"4\"><v>7</v></c></row>")),
        workbook());
    EXPECT_EQ(grid.row(0)[0], std::string(39, '0') + "7");
    EXPECT_EQ(grid.row(0)[1], std::string(39, '0') + "8");
    EXPECT_EQ(grid.row(0)[0].data(), grid.row(0)[2].data());
}

TEST(SheetReader, PrettyPrintingAddsNothing) {
    EXPECT_EQ(
        partRows("<?xml version=\"1.0\"?>\n<worksheet>\n  <sheetData>\n    <row r=\"1\">\n      <c r=\"A1\" "
                 "t=\"s\">\n        <v>1</v>\n      </c>\n      <c r=\"B1\">\n        <f>1+1</f>\n        "
                 "<v>2</v>\n      </c>\n      <c r=\"C1\" t=\"inlineStr\">\n        <is>\n          <t>three</t>\n"
                 "        </is>\n      </c>\n    </row>\n  </sheetData>\n</worksheet>\n"),
        (Rows{{"one", "2", "three"}}));
}

TEST(SheetReader, ElementsMayHavePrefixes) {
    EXPECT_EQ(partRows("<x:worksheet xmlns:x=\"u\"><x:sheetData><x:row r=\"1\"><x:c r=\"A1\" t=\"s\"><x:v>1</x:v></x:c>"
                       "<x:c t=\"inlineStr\"><x:is><x:t>two</x:t></x:is></x:c></x:row></x:sheetData></x:worksheet>"),
              (Rows{{"one", "two"}}));
}

TEST(SheetReader, PartsMayBeInUtf16) {
    std::string part = "\xFF\xFE";
    for (const char c : Workbooks::worksheet("<row><c t=\"s\"><v>1</v></c></row>")) {
        part += c + "\0"s;
    }
    EXPECT_EQ(partRows(part), (Rows{{"one"}}));
}

TEST(SheetReader, OtherElementsOfACellSayNothing) {
    EXPECT_EQ(cellsOf("<c><f t=\"shared\" si=\"0\">A1*2</f><v>4</v><extLst><ext>x</ext></extLst></c>"),
              Grids::Texts{"4"});
}

TEST(SheetReader, ADamagedPartIsAFailure) {
    EXPECT_THROW(partRows("<worksheet><sheetData><row><c><v>1</v></c>"), Failure);
}

}  // namespace
}  // namespace corvale::XLSX
