#include "CorvaleKit/reports/XLSXWriter.h"

#include "CorvaleKit/reports/WorkbookPackage.h"
#include "CorvaleKit/reports/WorksheetPart.h"

namespace corvale {

namespace {

std::string part(const XLSXWriter::Sheet& sheet) {
    WorksheetPart part({sheet.rows.size(),
                        sheet.rows.empty() ? 0 : sheet.rows.front().size(),
                        sheet.widths,
                        sheet.freezeHeader,
                        sheet.autoFilter});
    for (const auto& row : sheet.rows) {
        part.beginRow();
        for (const auto& cell : row) {
            part.cell(cell.value, cell.style, cell.numeric);
        }
        part.endRow();
    }
    return part.finish();
}

}  // namespace

std::string XLSXWriter::data() const {
    std::vector<std::string> names;
    for (const Sheet& sheet : sheets) {
        names.push_back(sheet.name);
    }
    WorkbookPackage package(names);
    for (const Sheet& sheet : sheets) {
        package.addSheet(part(sheet));
    }
    return package.finish();
}

}  // namespace corvale
