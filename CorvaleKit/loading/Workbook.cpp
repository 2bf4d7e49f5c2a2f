#include "CorvaleKit/loading/Workbook.h"

#include <utility>

#include "CorvaleKit/loading/CellStyles.h"
#include "CorvaleKit/loading/WorkbookSheets.h"

namespace corvale::XLSX {

namespace {

// A file that is no archive is most likely a workbook of the older kind under a new name.
std::vector<ZipReader::Entry> directoryOf(std::string_view bytes) {
    try {
        return ZipReader::entries(bytes);
    } catch (const ZipReader::Failure&) {
        throw Failure("It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first.");
    }
}

void readSheetList(Workbook& workbook) {
    const auto part = workbook.part("xl/workbook.xml");
    if (!part) {
        throw Failure("It isn’t an Excel workbook (.xlsx).");
    }
    const auto relationships = workbook.part("xl/_rels/workbook.xml.rels");
    auto [sheets, date1904] =
        workbookSheets(part->view(), relationships ? std::optional(relationships->view()) : std::nullopt);
    workbook.sheets = std::move(sheets);
    workbook.date1904 = date1904;
}

}  // namespace

Workbook openWorkbook(std::string_view bytes) {
    Workbook workbook;
    workbook.archive = bytes;
    workbook.directory = directoryOf(bytes);
    readSheetList(workbook);
    if (const auto part = workbook.part("xl/sharedStrings.xml")) {
        workbook.strings = sharedStrings(part->view());
    }
    if (const auto part = workbook.part("xl/styles.xml")) {
        workbook.formats = cellFormats(part->view());
    }
    if (workbook.sheets.empty()) {
        throw Failure("The workbook has no sheets.");
    }
    return workbook;
}

}  // namespace corvale::XLSX
