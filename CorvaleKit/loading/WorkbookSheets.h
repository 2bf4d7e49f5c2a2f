#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

// Sheets beyond those are not listed, and as many relationships again are kept: a part of a gigabyte, which takes a
// megabyte in the file, could name a hundred million. No program writes nearly as many.
inline constexpr std::size_t mostSheets = 65'536;

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
