#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "CorvaleKit/loading/Workbook.h"
#include "tests/support/Workbooks.h"

namespace corvale::XLSX {
namespace {

using Kind = NumberFormat::Kind;
using Workbooks::Parts;

std::string failure(std::string_view bytes) {
    try {
        openWorkbook(bytes);
    } catch (const UserFailure& caught) {
        return caught.message();
    }
    return {};
}

std::string failure(Parts parts, const std::string& path, const std::string& content) {
    parts[path] = content;
    return failure(Workbooks::package(parts));
}

TEST(Workbook, OpensWithAllItsParts) {
    Parts parts = Workbooks::oneSheet("");
    parts["xl/sharedStrings.xml"] = Workbooks::sharedStrings({"<t>a</t>", "<t>bc</t>"});
    parts["xl/styles.xml"] = Workbooks::styles({{0}, {14}});
    parts["xl/workbook.xml"] =
        "<workbook><workbookPr date1904=\"1\"/><sheets><sheet name=\"Data\" id=\"x\"/></sheets></workbook>";
    parts["xl/_rels/workbook.xml.rels"] = "<Relationships><Relationship Id=\"x\" Target=\"data.xml\"/></Relationships>";
    const std::string bytes = Workbooks::package(parts);
    const Workbook workbook = openWorkbook(bytes);
    EXPECT_EQ(workbook.sheets, (std::vector<Sheet>{{"Data", "xl/data.xml"}}));
    EXPECT_EQ(workbook.strings.ends, (std::vector<std::uint64_t>{1, 3}));
    EXPECT_EQ(workbook.formats, (std::vector<NumberFormat>{{Kind::general}, {Kind::date}}));
    EXPECT_TRUE(workbook.date1904);
}

TEST(Workbook, OptionalPartsMayBeMissing) {
    const std::string bytes = Workbooks::package(Workbooks::oneSheet(""));
    const Workbook workbook = openWorkbook(bytes);
    EXPECT_EQ(workbook.sheets, (std::vector<Sheet>{{"Data", "xl/worksheets/sheet1.xml"}}));
    EXPECT_TRUE(workbook.strings.ends.empty());
    EXPECT_TRUE(workbook.formats.empty());
    EXPECT_FALSE(workbook.date1904);
}

TEST(Workbook, PartsAreFoundWithoutRegardToLetterCase) {
    EXPECT_EQ(failure(Workbooks::package({{"XL/Workbook.XML", "<workbook><sheet/></workbook>"}})), "");
}

TEST(Workbook, WhateverIsNoArchiveIsMostLikelyAnOlderWorkbook) {
    const std::string message =
        "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first.";
    const std::string whole = Workbooks::package(Workbooks::oneSheet(""));
    std::string damagedDirectory = whole;
    damagedDirectory[whole.find("PK\1\2")] = 'Q';
    for (const std::string& bytes : {std::string(),
                                     std::string("\xD0\xCF\x11\xE0"),
                                     std::string("a,b\n"),
                                     whole.substr(0, whole.size() - 1),
                                     damagedDirectory,
                                     ZipBuilder::archive({}, {.directoryOffset = 1000}),
                                     ZipBuilder::archive({}, {.comment = "", .count = 1, .zip64 = true})}) {
        EXPECT_EQ(failure(bytes), message);
    }
}

TEST(Workbook, AnArchiveWithoutTheWorkbookPartIsNone) {
    EXPECT_EQ(failure(ZipBuilder::archive({})), "It isn’t an Excel workbook (.xlsx).");
    EXPECT_EQ(failure(Workbooks::package({{"content.xml", "<a/>"}})), "It isn’t an Excel workbook (.xlsx).");
}

TEST(Workbook, WithoutSheetsThereIsNothingToRead) {
    EXPECT_EQ(failure(Workbooks::package({{"xl/workbook.xml", "<workbook><sheets/></workbook>"}})),
              "The workbook has no sheets.");
}

TEST(Workbook, DamagedPartsAreFoundBeforeTheLackOfSheets) {
    const Parts noSheets = {{"xl/workbook.xml", "<workbook/>"}};
    const std::string message = "Part of the workbook couldn’t be read (no element found).";
    EXPECT_EQ(failure(noSheets, "xl/sharedStrings.xml", ""), message);
    EXPECT_EQ(failure(noSheets, "xl/styles.xml", ""), message);
    EXPECT_EQ(failure(noSheets, "xl/_rels/workbook.xml.rels", ""), message);
    EXPECT_EQ(failure(noSheets, "xl/workbook.xml", ""), message);
    EXPECT_EQ(failure(noSheets, "xl/theme.xml", ""), "The workbook has no sheets.");
}

TEST(Workbook, FailuresOfMembersPassThrough) {
    ZipBuilder::Member part{.path = "xl/workbook.xml", .content = "<workbook/>", .method = 12};
    EXPECT_EQ(failure(ZipBuilder::archive({part})), "“xl/workbook.xml” uses a kind of compression that can’t be read.");
    part.method = 8;
    part.crc32 = 1;
    EXPECT_EQ(failure(ZipBuilder::archive({part})), "“xl/workbook.xml” didn’t check out (the file may be damaged).");
    part.compressedSize = 1'000'000;
    EXPECT_EQ(failure(ZipBuilder::archive({part})), "“xl/workbook.xml” is damaged.");
    for (const std::string path : {"xl/_rels/workbook.xml.rels", "xl/sharedStrings.xml", "xl/styles.xml"}) {
        EXPECT_EQ(failure(ZipBuilder::archive({{"xl/workbook.xml", "<workbook><sheet/></workbook>"},
                                               {.path = path, .content = "<a/>", .method = 12}})),
                  "“" + path + "” uses a kind of compression that can’t be read.");
    }
}

}  // namespace
}  // namespace corvale::XLSX
