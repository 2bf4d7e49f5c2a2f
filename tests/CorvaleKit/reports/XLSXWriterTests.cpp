#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/reports/XLSXWriter.h"
#include "tests/support/Grids.h"
#include "tests/support/SheetXml.h"

namespace corvale {
namespace {

using Style = XLSXWriter::Style;
using Cell = XLSXWriter::Cell;

std::string workbook(std::vector<XLSXWriter::Sheet> sheets) { return XLSXWriter{std::move(sheets)}.data(); }

TEST(XLSXWriter, WritesEverySheetOnItsOwn) {
    const std::string bytes = workbook({{"Changes", {{{"a", Style::header}}, {{"1", Style::plain, true}}}, {9}, true},
                                        {"changes", {{{"b"}, {"", Style::muted}}, {}}, {}, false, true}});
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(bytes, 1)), (std::vector<std::string>{"A/1=a", "A=#1"}));
    EXPECT_EQ(SheetXml::rows(SheetXml::sheet(bytes, 2)), (std::vector<std::string>{"A=b | B/7=", ""}));
    EXPECT_NE(SheetXml::sheet(bytes, 1).find("width=\"9.0\""), std::string::npos);
    EXPECT_NE(SheetXml::sheet(bytes, 1).find("<pane "), std::string::npos);
    EXPECT_EQ(SheetXml::sheet(bytes, 1).find("<autoFilter"), std::string::npos);
    EXPECT_EQ(SheetXml::sheet(bytes, 2).find("<cols>"), std::string::npos);
    EXPECT_EQ(SheetXml::sheet(bytes, 2).find("<pane "), std::string::npos);
    EXPECT_EQ(SheetXml::between(SheetXml::sheet(bytes, 2), "<autoFilter ref=\"", "\""), "A1:B2");
}

TEST(XLSXWriter, ASheetOfOneRowHasNeitherFrozenPaneNorFilter) {
    const std::string xml = SheetXml::sheet(workbook({{"One", {{{"a"}}}, {}, true, true}}), 1);
    EXPECT_EQ(xml.find("<sheetViews>"), std::string::npos);
    EXPECT_EQ(xml.find("<autoFilter"), std::string::npos);
}

TEST(XLSXWriter, AnEmptySheetIsWritten) {
    EXPECT_TRUE(SheetXml::sheet(workbook({{"Empty"}}), 1).ends_with("<sheetData></sheetData></worksheet>"));
}

TEST(XLSXWriter, EqualSheetsMakeEqualFiles) {
    const std::vector<XLSXWriter::Sheet> sheets = {{"One", {{{"a"}, {"2", Style::added, true}}}}};
    EXPECT_EQ(workbook(sheets), workbook(sheets));
}

TEST(XLSXWriter, ReadsBackToTheSameTexts) {
    const std::vector<std::string> texts = {
        "plain",
        "42",
        "-3.5",
        "0.25",
        "0042",
        "1e5",
        "1,000",
        "+7",
        "2024-02-29",
        "2023-02-29",
        "2024-03-01 14:30",
        "2173-10-13 23:59",
        "1900-03-01",
        "1900-02-28",
        "0999-01-01",
        "=1+1",
        "@x",
        "-x",
        "<b>&amp;\"'",
        "  spaces  around  ",
        "two\nlines\tand a tab",
        "Zürich → 東京 👍",
    };
    for (const bool numeric : {false, true}) {
        XLSXWriter::Sheet sheet{"Data", {{{"Header"}}}};
        for (const std::string& text : texts) {
            sheet.rows.push_back({{text, Style::plain, numeric}});
        }
        const DataTable table = DataLoader::load(Bytes(workbook({sheet})), "data.xlsx", 0, 1);
        EXPECT_EQ(table.headers(), std::vector<std::string>{"Header"});
        std::vector<std::string> read;
        for (const auto& row : Grids::texts(table.rows())) {
            read.push_back(row.at(0));
        }
        EXPECT_EQ(read, texts) << "numeric: " << numeric;
    }
}

TEST(XLSXWriter, EveryMinuteOfADayReadsBack) {
    XLSXWriter::Sheet sheet{"Data", {{{"Time"}}}};
    // Midnight is missing: the reader shows it as a date alone.
    for (int minute = 1; minute < 24 * 60; ++minute) {
        const auto twoDigits = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
        sheet.rows.push_back(
            {{"2024-03-01 " + twoDigits(minute / 60) + ':' + twoDigits(minute % 60), Style::plain, true}});
    }
    const DataTable table = DataLoader::load(Bytes(workbook({sheet})), "data.xlsx", 0, 1);
    ASSERT_EQ(table.rows().size(), 1439U);
    for (std::size_t i = 0; i < table.rows().size(); ++i) {
        EXPECT_EQ(table.rows()[i][0], sheet.rows[i + 1][0].value);
    }
}

TEST(XLSXWriter, SheetsAreFoundByTheirCleanedNames) {
    const std::string bytes = workbook({{"A/B & C"}, {"ab & c"}, {"[]"}});
    std::vector<std::string> names;
    for (const auto& sheet : XLSX::sheets(bytes)) {
        names.push_back(sheet.name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"AB & C", "ab & c 2", "Sheet"}));
}

}  // namespace
}  // namespace corvale
