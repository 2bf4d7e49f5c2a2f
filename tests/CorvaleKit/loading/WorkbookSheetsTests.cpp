#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/WorkbookSheets.h"
#include "tests/support/Repeated.h"

namespace corvale::XLSX {

// Shown by a failing test.
std::ostream& operator<<(std::ostream& stream, const Sheet& sheet) {
    return stream << sheet.name << " at " << sheet.path;
}

namespace {

using Sheets = std::vector<Sheet>;
using TestSupport::repeated;

std::string workbook(const std::string& sheets) {
    return "<workbook xmlns:r=\"u\"><sheets>" + sheets + "</sheets></workbook>";
}

std::string relationships(const std::string& list) { return "<Relationships>" + list + "</Relationships>"; }

TEST(WorkbookSheets, TargetsResolveFromTheFolderOfTheWorkbook) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"worksheets/sheet1.xml", "xl/worksheets/sheet1.xml"},
        {"/xl/worksheets/sheet2.xml", "xl/worksheets/sheet2.xml"},
        {"../foo.xml", "foo.xml"},
        {"../../../foo.xml", "foo.xml"},
        {"../xl/./a//b.xml", "xl/a/b.xml"},
        {"a/../b.xml", "xl/b.xml"},
        {"./a.xml", "xl/a.xml"},
        {"a/", "xl/a"},
        {"", "xl"},
        {"..", ""},
        {"...", "xl/..."},
        {"/a/../b.xml", "a/../b.xml"},
        {"//a.xml", "/a.xml"},
        {"/", ""},
        {"a b%20c.xml", "xl/a b%20c.xml"},
    };
    for (const auto& [target, path] : cases) {
        EXPECT_EQ(partPath(target), path) << target;
    }
}

TEST(WorkbookSheets, RelationshipsNameTheParts) {
    const auto [sheets, date1904] =
        workbookSheets(workbook("<sheet name=\"One\" sheetId=\"7\" r:id=\"rId2\"/><sheet name=\"Two\" r:id=\"rId1\"/>"),
                       relationships("<Relationship Id=\"rId1\" Target=\"a.xml\"/><Relationship Id=\"rId2\" "
                                     "Target=\"/xl/b.xml\" Type=\"worksheet\"/>"));
    EXPECT_EQ(sheets, (Sheets{{"One", "xl/b.xml"}, {"Two", "xl/a.xml"}}));
    EXPECT_FALSE(date1904);
}

TEST(WorkbookSheets, WithoutARelationshipThePositionNamesThePart) {
    const std::string three =
        workbook("<sheet name=\"A\"/><sheet name=\"B\" r:id=\"unknown\"/><sheet name=\"C\" r:id=\"x\"/>");
    const Sheets expected = {{"A", "xl/worksheets/sheet1.xml"}, {"B", "xl/worksheets/sheet2.xml"}, {"C", "xl/c.xml"}};
    EXPECT_EQ(workbookSheets(three, relationships("<Relationship Id=\"x\" Target=\"c.xml\"/>")).sheets, expected);
    EXPECT_EQ(workbookSheets(three, std::nullopt).sheets[2].path, "xl/worksheets/sheet3.xml");
}

TEST(WorkbookSheets, AnyPrefixOfTheIdWillDo) {
    const std::string list = relationships("<Relationship Id=\"x\" Target=\"c.xml\"/>");
    for (const std::string attribute : {"r:id", "id", "rel:id", "a:b:id"}) {
        EXPECT_EQ(workbookSheets("<w><sheet name=\"A\" " + attribute + "=\"x\"/></w>", list).sheets[0].path, "xl/c.xml")
            << attribute;
    }
    for (const std::string attribute : {"sheetId", "r:Id", "ID", "r:idx"}) {
        EXPECT_EQ(workbookSheets("<w><sheet name=\"A\" " + attribute + "=\"x\"/></w>", list).sheets[0].path,
                  "xl/worksheets/sheet1.xml")
            << attribute;
    }
}

TEST(WorkbookSheets, TheFirstIdAndTheLastTargetCount) {
    const std::string list = relationships(
        "<Relationship Id=\"x\" Target=\"old.xml\"/><Relationship Id=\"x\" Target=\"new.xml\"/><Relationship Id=\"y\" "
        "Target=\"y.xml\"/>");
    EXPECT_EQ(workbookSheets(workbook("<sheet name=\"A\" r:id=\"x\" id=\"y\"/>"), list).sheets[0].path, "xl/new.xml");
    EXPECT_EQ(workbookSheets(workbook("<sheet name=\"A\" id=\"y\" r:id=\"x\"/>"), list).sheets[0].path, "xl/y.xml");
}

TEST(WorkbookSheets, RelationshipsNeedBothAttributes) {
    const std::string list = relationships(
        "<Relationship Id=\"x\"/><Relationship Target=\"t.xml\"/><p:Relationship "
        "xmlns:p=\"u\" Id=\"y\" Target=\"y.xml\"/><Other Id=\"x\" Target=\"o.xml\"/>");
    EXPECT_EQ(workbookSheets(workbook("<sheet name=\"A\" r:id=\"x\"/><sheet name=\"B\" r:id=\"y\"/>"), list).sheets,
              (Sheets{{"A", "xl/worksheets/sheet1.xml"}, {"B", "xl/y.xml"}}));
}

TEST(WorkbookSheets, ASheetWithoutANameIsListed) {
    EXPECT_EQ(workbookSheets(workbook("<sheet/><sheet name=\"B\"/>"), std::nullopt).sheets,
              (Sheets{{"", "xl/worksheets/sheet1.xml"}, {"B", "xl/worksheets/sheet2.xml"}}));
}

TEST(WorkbookSheets, NamesKeepTheirCharacters) {
    EXPECT_EQ(workbookSheets(workbook("<sheet name=\"R&amp;D “Büro”\"/>"), std::nullopt).sheets[0].name, "R&D “Büro”");
}

TEST(WorkbookSheets, ElementsMayHavePrefixes) {
    const auto read = workbookSheets(
        "<x:workbook xmlns:x=\"u\"><x:workbookPr date1904=\"1\"/><x:sheets><x:sheet "
        "name=\"A\"/></x:sheets></x:workbook>",
        std::nullopt);
    EXPECT_EQ(read.sheets, (Sheets{{"A", "xl/worksheets/sheet1.xml"}}));
    EXPECT_TRUE(read.date1904);
}

TEST(WorkbookSheets, TheDateSystemIsChosenByOneOrTrue) {
    const std::vector<std::pair<std::string, bool>> cases = {
        {"<workbookPr date1904=\"1\"/>", true},
        {"<workbookPr date1904=\"true\"/>", true},
        {"<workbookPr date1904=\"0\"/>", false},
        {"<workbookPr date1904=\"false\"/>", false},
        {"<workbookPr date1904=\"\"/>", false},
        {"<workbookPr date1904=\"TRUE\"/>", false},
        {"<workbookPr/>", false},
        {"<other date1904=\"1\"/>", false},
    };
    for (const auto& [element, date1904] : cases) {
        EXPECT_EQ(workbookSheets("<workbook>" + element + "</workbook>", std::nullopt).date1904, date1904) << element;
    }
}

TEST(WorkbookSheets, NoMoreAreListedThanAnyWorkbookHas) {
    const std::vector<Sheet> listed =
        workbookSheets(workbook(repeated("<sheet/>", mostSheets + 2)), std::nullopt).sheets;
    ASSERT_EQ(listed.size(), mostSheets);
    EXPECT_EQ(listed.back().path, "xl/worksheets/sheet65536.xml");
}

TEST(WorkbookSheets, RelationshipsBeyondThoseOfAnyWorkbookAreUnknown) {
    std::string list;
    for (std::size_t i = 1; i <= 2 * mostSheets + 1; ++i) {
        list += "<Relationship Id=\"" + std::to_string(i) + "\" Target=\"a.xml\"/>";
    }
    list += "<Relationship Id=\"1\" Target=\"b.xml\"/>";
    const std::string three = workbook("<sheet id=\"1\"/><sheet id=\"131072\"/><sheet id=\"131073\"/>");
    EXPECT_EQ(workbookSheets(three, relationships(list)).sheets,
              (Sheets{{"", "xl/b.xml"}, {"", "xl/a.xml"}, {"", "xl/worksheets/sheet3.xml"}}));
}

TEST(WorkbookSheets, ATargetLongerThanAnyPathIsNone) {
    const auto pathFor = [](std::size_t length) {
        const std::string target(length, 't');
        const std::string list = relationships("<Relationship Id=\"x\" Target=\"" + target + "\"/>");
        return workbookSheets(workbook("<sheet id=\"x\"/>"), list).sheets.front().path;
    };
    EXPECT_EQ(pathFor(1'024), "xl/" + std::string(1'024, 't'));
    EXPECT_EQ(pathFor(1'025), "xl/worksheets/sheet1.xml");
}

TEST(WorkbookSheets, DamagedPartsAreFailures) {
    EXPECT_THROW(workbookSheets("<workbook>", std::nullopt), Failure);
    EXPECT_THROW(workbookSheets("<workbook/>", "<Relationships>"), Failure);
}

}  // namespace
}  // namespace corvale::XLSX
