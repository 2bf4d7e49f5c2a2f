#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"
#include "fuzz/GridPromises.h"
#include "tests/support/ZipBuilder.h"

namespace {

using Members = std::vector<corvale::ZipBuilder::Member>;

constexpr std::uint16_t stored = 0;  // which saves the time of packing

const std::string sheet =
    "<worksheet><sheetData><row><c t=\"s\"><v>0</v></c><c s=\"1\"><v>44197.5</v></c><c s=\"2\"><v>-7</v></c></row>"
    "</sheetData></worksheet>";

const Members soundParts = {
    {"xl/worksheets/sheet1.xml", sheet, stored},
    {"xl/sharedStrings.xml", "<sst><si><t>zero</t></si><si><r><t>o</t></r><r><t>ne</t></r></si></sst>", stored},
    {"xl/styles.xml",
     "<styleSheet><numFmts><numFmt numFmtId=\"164\" formatCode=\"000\"/></numFmts><cellXfs><xf numFmtId=\"0\"/>"
     "<xf numFmtId=\"22\"/><xf numFmtId=\"164\"/></cellXfs></styleSheet>",
     stored},
    {"xl/workbook.xml", "<workbook><sheets><sheet name=\"A\" r:id=\"x\"/></sheets></workbook>", stored},
    {"xl/_rels/workbook.xml.rels",
     "<Relationships><Relationship Id=\"x\" Target=\"worksheets/sheet1.xml\"/></Relationships>",
     stored},
};

}  // namespace

// Reads a workbook that is sound but for one part: its first byte says which, the rest is that part.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    Members parts = soundParts;
    parts[data[0] % parts.size()].content.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string archive = corvale::ZipBuilder::archive(parts);
    try {
        const auto grid = corvale::XLSX::readSheet(archive, 0);
        CORVALE_REQUIRE(!corvale::XLSX::sheets(archive).empty(), "a sheet was read that is not listed");
        requireWorksheetGrid(grid);
    } catch (const corvale::XLSX::Failure& failure) {
        CORVALE_REQUIRE(!failure.message().empty(), "a failure says nothing");
    }
    return 0;
}
