#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/reports/StyleSheet.h"
#include "CorvaleKit/reports/WorkbookPackage.h"
#include "tests/support/SheetXml.h"

namespace corvale {
namespace {

using SheetXml::part;
using Names = std::vector<std::string>;

const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>";

std::string package(const Names& names) {
    WorkbookPackage package(names);
    for (const std::string& name : names) {
        package.addSheet("<sheet of " + name + "/>");
    }
    return package.finish();
}

TEST(WorkbookPackage, PartsComeInOrder) {
    Names paths;
    for (const auto& entry : ZipReader::entries(package({"One", "Two"}))) {
        paths.push_back(entry.path);
    }
    EXPECT_EQ(paths,
              (Names{"[Content_Types].xml",
                     "_rels/.rels",
                     "xl/workbook.xml",
                     "xl/_rels/workbook.xml.rels",
                     "xl/styles.xml",
                     "xl/worksheets/sheet1.xml",
                     "xl/worksheets/sheet2.xml"}));
}

TEST(WorkbookPackage, ContentTypesNameEverySheet) {
    EXPECT_EQ(part(package({"One", "Two"}), "[Content_Types].xml"),
              declaration +
                  "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
                  "<Default Extension=\"rels\" "
                  "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
                  "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
                  "<Override PartName=\"/xl/workbook.xml\" "
                  "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
                  "<Override PartName=\"/xl/styles.xml\" "
                  "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml\"/>"
                  "<Override PartName=\"/xl/worksheets/sheet1.xml\" "
                  "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
                  "<Override PartName=\"/xl/worksheets/sheet2.xml\" "
                  "ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>"
                  "</Types>");
}

TEST(WorkbookPackage, ThePackageLeadsToTheWorkbook) {
    EXPECT_EQ(part(package({"One"}), "_rels/.rels"),
              declaration +
                  "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                  "<Relationship Id=\"rId1\" "
                  "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\" "
                  "Target=\"xl/workbook.xml\"/></Relationships>");
}

TEST(WorkbookPackage, TheWorkbookListsItsSheetsByCleanedAndEscapedNames) {
    EXPECT_EQ(part(package({"Q&A [1/2]", "q&a 12", "\"\f\""}), "xl/workbook.xml"),
              declaration +
                  "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\" "
                  "xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets>"
                  "<sheet name=\"Q&amp;A 12\" sheetId=\"1\" r:id=\"rId1\"/>"
                  "<sheet name=\"q&amp;a 12 2\" sheetId=\"2\" r:id=\"rId2\"/>"
                  "<sheet name=\"&quot;&quot;\" sheetId=\"3\" r:id=\"rId3\"/>"
                  "</sheets></workbook>");
}

TEST(WorkbookPackage, TheStyleSheetIsRelatedAfterTheSheets) {
    EXPECT_EQ(part(package({"One", "Two"}), "xl/_rels/workbook.xml.rels"),
              declaration +
                  "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
                  "<Relationship Id=\"rId1\" "
                  "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\" "
                  "Target=\"worksheets/sheet1.xml\"/>"
                  "<Relationship Id=\"rId2\" "
                  "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\" "
                  "Target=\"worksheets/sheet2.xml\"/>"
                  "<Relationship Id=\"rId3\" "
                  "Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles\" "
                  "Target=\"styles.xml\"/></Relationships>");
}

TEST(WorkbookPackage, WithoutSheetsTheRestIsThere) {
    const std::string bytes = package({});
    EXPECT_TRUE(part(bytes, "xl/workbook.xml").ends_with("<sheets></sheets></workbook>"));
    EXPECT_NE(part(bytes, "xl/_rels/workbook.xml.rels").find("<Relationship Id=\"rId1\" "), std::string::npos);
    EXPECT_EQ(ZipReader::entries(bytes).size(), 5U);
}

TEST(WorkbookPackage, HoldsTheStyleSheetAndTheSheets) {
    const std::string bytes = package({"One", "Two"});
    EXPECT_EQ(part(bytes, "xl/styles.xml"), styleSheet());
    EXPECT_EQ(SheetXml::sheet(bytes, 1), "<sheet of One/>");
    EXPECT_EQ(SheetXml::sheet(bytes, 2), "<sheet of Two/>");
}

TEST(WorkbookPackage, ShortPartsAreStoredAndLongOnesDeflated) {
    for (const auto& entry : ZipReader::entries(package({"One"}))) {
        EXPECT_EQ(entry.method, entry.size < 65 ? 0 : 8) << entry.path;
    }
}

TEST(WorkbookPackageDeathTest, EveryNameNeedsASheet) {
    EXPECT_DEATH(WorkbookPackage({"One"}).finish(), "a workbook was given another number of sheets than of names");
}

}  // namespace
}  // namespace corvale
