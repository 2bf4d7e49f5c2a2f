#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "CorvaleKit/reports/WorksheetPart.h"
#include "tests/support/Repeated.h"
#include "tests/support/SheetXml.h"

namespace corvale {
namespace {

using TestSupport::repeated;
using Style = WorksheetPart::Style;
using Cell = XLSXWriter::Cell;
using Cells = std::vector<Cell>;
using Rows = std::vector<Cells>;

const std::string start =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<worksheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
    "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\">";

struct Options {
    std::vector<double> widths = {};
    bool freezeHeader = false;
    bool autoFilter = false;
};

std::string part(const Rows& rows, const Options& options = {}) {
    WorksheetPart part({rows.size(),
                        rows.empty() ? 0 : rows.front().size(),
                        options.widths,
                        options.freezeHeader,
                        options.autoFilter});
    for (const Cells& row : rows) {
        part.beginRow();
        for (const Cell& cell : row) {
            part.cell(cell.value, cell.style, cell.numeric);
        }
        part.endRow();
    }
    return part.finish();
}

// The XML of one cell in A1.
std::string cell(const Cell& cell) { return SheetXml::between(part({{cell}}), "<row r=\"1\">", "</row>"); }

std::string sheetData(const Rows& rows) { return SheetXml::between(part(rows), "<sheetData>", "</sheetData>"); }

TEST(WorksheetPart, WithoutRowsItIsAFrame) { EXPECT_EQ(part({}), start + "<sheetData></sheetData></worksheet>"); }

TEST(WorksheetPart, APartInWhole) {
    const Rows rows = {{{"ID", Style::header}, {"Price", Style::header}}, {{"7", Style::plain, true}, {"a & b"}}};
    EXPECT_EQ(part(rows, {{12, 18.25}, true, true}),
              start +
                  "<sheetViews><sheetView workbookViewId=\"0\"><pane ySplit=\"1\" topLeftCell=\"A2\" "
                  "activePane=\"bottomLeft\" state=\"frozen\"/></sheetView></sheetViews>"
                  "<cols><col min=\"1\" max=\"1\" width=\"12.0\" customWidth=\"1\"/>"
                  "<col min=\"2\" max=\"2\" width=\"18.2\" customWidth=\"1\"/></cols>"
                  "<sheetData>"
                  "<row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t xml:space=\"preserve\">ID</t></is></c>"
                  "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t xml:space=\"preserve\">Price</t></is></c></row>"
                  "<row r=\"2\"><c r=\"A2\"><v>7</v></c>"
                  "<c r=\"B2\" t=\"inlineStr\"><is><t xml:space=\"preserve\">a &amp; b</t></is></c></row>"
                  "</sheetData><autoFilter ref=\"A1:B2\"/></worksheet>");
}

std::string textOf(const std::string& value) {
    return SheetXml::between(cell({value}), "<t xml:space=\"preserve\">", "</t>");
}

TEST(WorksheetPart, ATextLongerThanACellHoldsIsCutWithAMark) {
    for (const std::string& fits :
         {std::string(32'767, 'x'), repeated("é", 32'767), repeated("€", 32'767), "x" + repeated("😀", 16'383)}) {
        EXPECT_TRUE(textOf(fits) == fits) << fits.substr(0, 4);
    }
    EXPECT_EQ(textOf(repeated("&", 32'767)), repeated("&amp;", 32'767));
    EXPECT_TRUE(textOf(std::string(32'768, 'x')) == std::string(32'763, 'x') + " […]");
    EXPECT_TRUE(textOf(std::string(3'000'000, 'x')) == std::string(32'763, 'x') + " […]");
    EXPECT_TRUE(textOf(repeated("é", 32'768)) == repeated("é", 32'763) + " […]");
    // Two units each, of which none is cut in two.
    EXPECT_TRUE(textOf(repeated("😀", 16'384)) == repeated("😀", 16'381) + " […]");
}

TEST(WorksheetPart, EndsAsSoonAsItIsTooLarge) {
    WorksheetPart::Layout layout;
    layout.rows = 1000;
    layout.mostBytes = 4000;
    WorksheetPart part(layout);
    int rows = 0;
    const auto writeAll = [&] {
        for (; rows < 1000; ++rows) {
            part.beginRow();
            part.cell("7", Style::plain, true);
            part.endRow();
        }
    };
    EXPECT_THROW(writeAll(), ZipWriter::TooLarge);
    EXPECT_GT(rows, 50);
    EXPECT_LT(rows, 150);
}

TEST(WorksheetPart, WidthsHaveOneDecimal) {
    struct Case {
        double width;
        std::string text;
    };
    const std::vector<Case> cases = {
        {10, "10.0"}, {0, "0.0"}, {8.43, "8.4"}, {8.46, "8.5"}, {40, "40.0"}, {255, "255.0"}, {9.96, "10.0"}};
    for (const auto& [width, text] : cases) {
        EXPECT_EQ(SheetXml::between(part({}, {{width}}), "<cols>", "</cols>"),
                  "<col min=\"1\" max=\"1\" width=\"" + text + "\" customWidth=\"1\"/>");
    }
}

TEST(WorksheetPart, WithoutWidthsThereIsNoListOfThem) { EXPECT_EQ(part({{{"a"}}}).find("<cols>"), std::string::npos); }

TEST(WorksheetPart, TheHeaderIsFrozenAboveAtLeastOneRow) {
    const Rows one = {{{"a"}}};
    const Rows two = {{{"a"}}, {}};
    const auto isFrozen = [](const std::string& xml) { return xml.find("<sheetViews>") != std::string::npos; };
    EXPECT_FALSE(isFrozen(part({}, {{}, true})));
    EXPECT_FALSE(isFrozen(part(one, {{}, true})));
    EXPECT_TRUE(isFrozen(part(two, {{}, true})));
    EXPECT_FALSE(isFrozen(part(two)));
}

TEST(WorksheetPart, TheFilterCoversTheWidestRowAndAllRows) {
    struct Case {
        Rows rows;
        std::string filter;
    };
    const Cell a{"a"};
    const std::vector<Case> cases = {
        {{}, ""},
        {{{a, a}}, ""},
        {{{a}, {a}}, "A1:A2"},
        {{{a}, {a, a, a}, {}}, "A1:C3"},
        {{{a, a}, {a}}, "A1:B2"},
        {{{}, {}}, ""},
        {{{}, {{""}, {""}}}, "A1:B2"},
        {{Cells(28, a), {}}, "A1:AB2"},
    };
    for (const auto& [rows, filter] : cases) {
        const std::string xml = part(rows, {{}, false, true});
        EXPECT_EQ(SheetXml::between(xml, "<autoFilter ref=\"", "\"/>"), filter);
        EXPECT_EQ(xml.find("autoFilter") == std::string::npos, filter.empty());
        EXPECT_EQ(part(rows).find("autoFilter"), std::string::npos);
    }
}

TEST(WorksheetPart, RowsAreWrittenEvenWithoutCells) {
    EXPECT_EQ(sheetData({{}, {{""}}, {{"", Style::plain, true}}}),
              "<row r=\"1\"></row><row r=\"2\"></row><row r=\"3\"></row>");
}

TEST(WorksheetPart, EmptyCellsAreThereForTheirStyleAlone) {
    EXPECT_EQ(cell({""}), "");
    EXPECT_EQ(cell({"", Style::plain, true}), "");
    EXPECT_EQ(cell({"", Style::header}), "<c r=\"A1\" s=\"1\"/>");
    EXPECT_EQ(cell({"", Style::removed, true}), "<c r=\"A1\" s=\"3\"/>");
    EXPECT_EQ(sheetData({{{""}, {"", Style::header}}}), "<row r=\"1\"><c r=\"B1\" s=\"1\"/></row>");
}

TEST(WorksheetPart, ReferencesCountRowsAndColumns) {
    Rows rows(12);
    rows[11] = Cells(703, {"", Style::bold});
    const std::string xml = sheetData(rows);
    for (const std::string reference : {"A12", "B12", "Z12", "AA12", "ZZ12", "AAA12"}) {
        EXPECT_NE(xml.find("<c r=\"" + reference + "\" s=\"5\"/>"), std::string::npos) << reference;
    }
    EXPECT_EQ(xml.find("AAB12"), std::string::npos);
    EXPECT_EQ(std::count(xml.begin(), xml.end(), 'c'), 703);
}

TEST(WorksheetPart, EveryStyleHasItsNumber) {
    const std::vector<Style> styles = {Style::plain,
                                       Style::header,
                                       Style::added,
                                       Style::removed,
                                       Style::changed,
                                       Style::bold,
                                       Style::typeOnly,
                                       Style::muted};
    for (std::size_t i = 0; i < styles.size(); ++i) {
        const std::string attribute = i == 0 ? "" : " s=\"" + std::to_string(i) + "\"";
        EXPECT_EQ(cell({"x", styles[i]}),
                  "<c r=\"A1\"" + attribute + " t=\"inlineStr\"><is><t xml:space=\"preserve\">x</t></is></c>");
        EXPECT_EQ(cell({"1", styles[i], true}), "<c r=\"A1\"" + attribute + "><v>1</v></c>");
        EXPECT_EQ(cell({"2024-02-29", styles[i], true}),
                  "<c r=\"A1\" s=\"" + std::to_string(i + 8) + "\"><v>45351</v></c>");
        EXPECT_EQ(cell({"2024-03-01 14:30", styles[i], true}),
                  "<c r=\"A1\" s=\"" + std::to_string(i + 16) + "\"><v>45352.60417</v></c>");
    }
}

TEST(WorksheetPart, NumericCellsBecomeNumbersWhereTheTextIsOne) {
    for (const std::string text : {"42", "-3.5", "0.25", "0", "1.50"}) {
        EXPECT_EQ(cell({text, Style::plain, true}), "<c r=\"A1\"><v>" + text + "</v></c>");
    }
    for (const std::string text : {"0042", "1e5", "1,000", "+7", "2023-02-29", "1900-02-28", "0999-01-01", "x", " 1"}) {
        EXPECT_EQ(cell({text, Style::plain, true}),
                  "<c r=\"A1\" t=\"inlineStr\"><is><t xml:space=\"preserve\">" + text + "</t></is></c>");
    }
}

TEST(WorksheetPart, CellsThatAreNotNumericStayTexts) {
    for (const std::string text : {"42", "-3.5", "2024-02-29", "2024-03-01 14:30"}) {
        EXPECT_EQ(cell({text, Style::muted}),
                  "<c r=\"A1\" s=\"7\" t=\"inlineStr\"><is><t xml:space=\"preserve\">" + text + "</t></is></c>");
    }
}

TEST(WorksheetPart, WhatLooksLikeAFormulaIsAText) {
    for (const std::string text :
         {"=1+1", "+1", "-x", "-1+1", "@SUM(A1)", "=cmd|' /C calc'!A0", "\t=1", "{=1}", "=HYPERLINK(\"http://x\")"}) {
        const std::string xml = cell({text, Style::changed, true});
        EXPECT_TRUE(xml.starts_with("<c r=\"A1\" s=\"4\" t=\"inlineStr\"><is><t xml:space=\"preserve\">")) << xml;
        EXPECT_EQ(xml.find("<f"), std::string::npos) << xml;
        EXPECT_EQ(xml.find("<v"), std::string::npos) << xml;
    }
}

TEST(WorksheetPart, TextsAreEscaped) {
    const auto text = [](const std::string& value) {
        return SheetXml::between(cell({value}), "<t xml:space=\"preserve\">", "</t>");
    };
    EXPECT_EQ(text("</t></is></c><script>"), "&lt;/t&gt;&lt;/is&gt;&lt;/c&gt;&lt;script&gt;");
    EXPECT_EQ(text("\"it's\""), "&quot;it's&quot;");
    EXPECT_EQ(text("form\ffeed\uFFFF"), "formfeed");
    EXPECT_EQ(text("  two\nlines  "), "  two\nlines  ");
}

TEST(WorksheetPart, SizesBeyondAnyMemoryAreNotReserved) {
    const auto begin = [] {
        WorksheetPart part({1'000'000'000, 16'384, {}, false, false});
        part.beginRow();
        part.cell("a");
        part.endRow();
    };
    EXPECT_NO_THROW(begin());
}

TEST(WorksheetPartDeathTest, RowsThatWereAnnouncedMustCome) {
    EXPECT_DEATH(WorksheetPart({2, 1, {}, false, false}).finish(),
                 "a worksheet was given another number of rows than was announced");
}

}  // namespace
}  // namespace corvale
