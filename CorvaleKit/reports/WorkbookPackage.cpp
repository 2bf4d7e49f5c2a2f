#include "CorvaleKit/reports/WorkbookPackage.h"

#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/reports/SheetNames.h"
#include "CorvaleKit/reports/StyleSheet.h"
#include "CorvaleKit/reports/XMLText.h"

namespace corvale {

namespace {

constexpr std::string_view contentTypesStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/xl/workbook.xml\""
    " ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml\"/>"
    "<Override PartName=\"/xl/styles.xml\""
    " ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml\"/>";

constexpr std::string_view packageRelationships =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">"
    "<Relationship Id=\"rId1\""
    " Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\""
    " Target=\"xl/workbook.xml\"/></Relationships>";

constexpr std::string_view workbookStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<workbook xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\""
    " xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\"><sheets>";

constexpr std::string_view workbookRelationshipsStart =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";

std::string contentTypes(std::size_t sheetCount) {
    std::string xml(contentTypesStart);
    for (std::size_t number = 1; number <= sheetCount; ++number) {
        xml += "<Override PartName=\"/xl/worksheets/sheet";
        xml += std::to_string(number);
        xml += ".xml\" ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml\"/>";
    }
    return xml += "</Types>";
}

std::string workbook(const std::vector<std::string>& sheetNames) {
    std::string xml(workbookStart);
    SheetNames names;
    for (std::size_t i = 0; i < sheetNames.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        xml += "<sheet name=\"";
        XMLText::appendEscaped(xml, names.cleaned(sheetNames[i]));
        xml += "\" sheetId=\"";
        xml += number;
        xml += "\" r:id=\"rId";
        xml += number;
        xml += "\"/>";
    }
    return xml += "</sheets></workbook>";
}

std::string workbookRelationships(std::size_t sheetCount) {
    std::string xml(workbookRelationshipsStart);
    for (std::size_t i = 1; i <= sheetCount; ++i) {
        const std::string number = std::to_string(i);
        xml += "<Relationship Id=\"rId";
        xml += number;
        xml +=
            "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet\""
            " Target=\"worksheets/sheet";
        xml += number;
        xml += ".xml\"/>";
    }
    xml += "<Relationship Id=\"rId";
    xml += std::to_string(sheetCount + 1);
    return xml +=
           "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles\""
           " Target=\"styles.xml\"/></Relationships>";
}

}  // namespace

WorkbookPackage::WorkbookPackage(const std::vector<std::string>& sheetNames) : m_sheetCount(sheetNames.size()) {
    m_archive.add("[Content_Types].xml", contentTypes(m_sheetCount));
    m_archive.add("_rels/.rels", packageRelationships);
    m_archive.add("xl/workbook.xml", workbook(sheetNames));
    m_archive.add("xl/_rels/workbook.xml.rels", workbookRelationships(m_sheetCount));
    m_archive.add("xl/styles.xml", styleSheet());
}

void WorkbookPackage::addSheet(std::string_view part) {
    ++m_addedSheets;
    m_archive.add("xl/worksheets/sheet" + std::to_string(m_addedSheets) + ".xml", part);
}

std::string WorkbookPackage::finish() {
    CORVALE_REQUIRE(m_addedSheets == m_sheetCount, "a workbook was given another number of sheets than of names");
    return m_archive.finish();
}

}  // namespace corvale
