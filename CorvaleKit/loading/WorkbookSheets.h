#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

// What the part xl/workbook.xml says.
struct WorkbookSheets {
    std::vector<Sheet> sheets;
    bool date1904 = false;
};

// `relationships` is the part xl/_rels/workbook.xml.rels, which names the parts of the sheets; without it, or for a
// sheet that it does not know, the part has the usual name for the sheet's position.
WorkbookSheets workbookSheets(std::string_view workbook, std::optional<std::string_view> relationships);

// The path inside the archive that a relationship of the workbook points to: from the archive's root when it begins
// with a slash, else from the folder xl.
std::string partPath(std::string_view target);

}  // namespace corvale::XLSX
