#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/loading/ZipReader.h"
#include "tests/support/Grids.h"
#include "tests/support/Workbooks.h"

namespace corvale::XLSX {
namespace {

using Grids::Rows;
using Grids::texts;
using Workbooks::Parts;

Rows rowsOf(const Parts& parts, std::int64_t index = 0) { return texts(readSheet(Workbooks::package(parts), index)); }

std::string failure(const Parts& parts, std::int64_t index) {
    try {
        rowsOf(parts, index);
    } catch (const Failure& caught) {
        return caught.message();
    }
    return {};
}

Parts twoSheets() {
    return {
        {"xl/workbook.xml",
         "<workbook xmlns:r=\"u\"><sheets><sheet name=\"First\" r:id=\"a\"/><sheet name=\"Second\" "
         "r:id=\"b\"/></sheets></workbook>"},
        {"xl/_rels/workbook.xml.rels",
         "<Relationships><Relationship Id=\"a\" Target=\"worksheets/one.xml\"/><Relationship Id=\"b\" "
         "Target=\"/xl/worksheets/sheet2.xml\"/></Relationships>"},
        {"xl/worksheets/one.xml", Workbooks::worksheet("<row><c><v>1</v></c></row>")},
        {"xl/worksheets/sheet2.xml", Workbooks::worksheet("<row><c><v>2</v></c></row>")},
    };
}

TEST(XLSX, ListsItsSheetsInOrder) {
    EXPECT_EQ(sheets(Workbooks::package(twoSheets())),
              (std::vector<Sheet>{{"First", "xl/worksheets/one.xml"}, {"Second", "xl/worksheets/sheet2.xml"}}));
}

TEST(XLSX, ReadsTheSheetAtAnIndex) {
    EXPECT_EQ(rowsOf(twoSheets(), 0), (Rows{{"1"}}));
    EXPECT_EQ(rowsOf(twoSheets(), 1), (Rows{{"2"}}));
}

TEST(XLSX, AnIndexOutsideTheListNamesTheSheetsNumber) {
    const std::vector<std::pair<std::int64_t, std::string>> cases = {
        {2, "3"},
        {3, "4"},
        {-1, "0"},
        {-5, "-4"},
        {std::numeric_limits<std::int64_t>::max(), "9223372036854775808"},
        {std::numeric_limits<std::int64_t>::min(), "-9223372036854775807"},
    };
    for (const auto& [index, number] : cases) {
        EXPECT_EQ(failure(twoSheets(), index), "The workbook has no sheet " + number + ".");
    }
}

TEST(XLSX, ASheetMayBeMissingFromTheFile) {
    Parts parts = twoSheets();
    parts.erase("xl/worksheets/sheet2.xml");
    EXPECT_EQ(failure(parts, 1), "The sheet “Second” is missing from the file.");
    EXPECT_EQ(failure(parts, 0), "");
    EXPECT_EQ(sheets(Workbooks::package(parts)).size(), 2U);
}

TEST(XLSX, ADamagedSheetIsAFailureOfItsOwn) {
    Parts parts = twoSheets();
    parts["xl/worksheets/one.xml"] = "<worksheet>";
    EXPECT_EQ(failure(parts, 0), "Part of the workbook couldn’t be read (no element found).");
    EXPECT_EQ(rowsOf(parts, 1), (Rows{{"2"}}));
}

TEST(XLSX, TargetsLeadOutOfTheFolderToo) {
    Parts parts = twoSheets();
    parts["xl/_rels/workbook.xml.rels"] =
        "<Relationships><Relationship Id=\"a\" Target=\"../foo.xml\"/></Relationships>";
    parts["foo.xml"] = Workbooks::worksheet("<row><c><v>foo</v></c></row>");
    EXPECT_EQ(rowsOf(parts, 0), (Rows{{"foo"}}));
}

TEST(XLSX, StylesAndStringsMeetTheCells) {
    Parts parts = Workbooks::oneSheet(
        "<row><c s=\"1\"><v>44197</v></c><c s=\"2\"><v>44197.5</v></c><c s=\"2\"><v>44197</v></c><c "
        "s=\"3\"><v>0.1</v></c>"
        "<c s=\"4\"><v>42</v></c><c s=\"4\"><v>42.5</v></c><c s=\"5\"><v>0.5</v></c><c><v>1234.0</v></c>"
        "<c t=\"s\"><v>0</v></c><c t=\"b\"><v>0</v></c></row>");
    parts["xl/styles.xml"] = Workbooks::styles({{0}, {14}, {22}, {9}, {164, "00000"}, {20}});
    parts["xl/sharedStrings.xml"] = Workbooks::sharedStrings({"<r><t>rich </t></r><r><t>text</t></r>"});
    EXPECT_EQ(rowsOf(parts),
              (Rows{{"2021-01-01",
                     "2021-01-01 12:00",
                     "2021-01-01",
                     "10%",
                     "00042",
                     "42.5",
                     "12:00",
                     "1234",
                     "rich text",
                     "FALSE"}}));
}

TEST(XLSX, TheGridOutlivesTheFile) {
    Parts parts = Workbooks::oneSheet("<row><c t=\"s\"><v>0</v></c><c><v>7</v></c></row>");
    parts["xl/sharedStrings.xml"] = Workbooks::sharedStrings({"<t>text</t>"});
    auto bytes = std::make_unique<std::string>(Workbooks::package(parts));
    const CellGrid grid = readSheet(*bytes, 0);
    bytes.reset();
    EXPECT_EQ(texts(grid), (Rows{{"text", "7"}}));
}

TEST(XLSX, WhatIsNoWorkbookFailsTheSameEitherWay) {
    const std::string message =
        "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first.";
    for (const auto& read : std::vector<void (*)(std::string_view)>{
             [](std::string_view bytes) { sheets(bytes); }, [](std::string_view bytes) { readSheet(bytes, 0); }}) {
        try {
            read("\xD0\xCF\x11\xE0 an older workbook");
            ADD_FAILURE() << "no failure";
        } catch (const Failure& caught) {
            EXPECT_EQ(caught.message(), message);
        }
    }
}

TEST(XLSX, ADamagedMemberIsTheArchivesFailure) {
    const std::string bytes =
        ZipBuilder::archive({{"xl/workbook.xml", "<workbook><sheet name=\"A\"/></workbook>"},
                             {.path = "xl/worksheets/sheet1.xml", .content = Workbooks::worksheet(""), .crc32 = 1}});
    EXPECT_EQ(sheets(bytes).size(), 1U);
    try {
        readSheet(bytes, 0);
        ADD_FAILURE() << "no failure";
    } catch (const ZipReader::Failure& caught) {
        EXPECT_EQ(caught.message(), "“xl/worksheets/sheet1.xml” didn’t check out (the file may be damaged).");
    }
}

TEST(XLSX, AnyFlippedByteEndsInATableOrAFailure) {
    Parts parts = Workbooks::oneSheet("<row><c t=\"s\"><v>0</v></c><c s=\"1\"><v>7</v></c></row>");
    parts["xl/sharedStrings.xml"] = Workbooks::sharedStrings({"<t>text</t>"});
    parts["xl/styles.xml"] = Workbooks::styles({{0}, {14}});
    const std::string bytes = Workbooks::package(parts);
    int tables = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::string flipped = bytes;
        flipped[i] = static_cast<char>(~flipped[i]);
        try {
            EXPECT_LE(readSheet(flipped, 0).rowCount(), 1U) << i;
            ++tables;
        } catch (const UserFailure& caught) {
            EXPECT_FALSE(caught.message().empty());
        }
    }
    EXPECT_GT(tables, 100) << "dates, attributes and optional parts' names do not matter";
}

}  // namespace
}  // namespace corvale::XLSX
