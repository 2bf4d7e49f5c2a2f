#pragma once

#include <string>
#include <string_view>

#include "CorvaleKit/loading/XLSX.h"

// XLSX::formatCell for the millions of cells of a sheet.
namespace corvale::XLSX {

// What formatCell returns, without an allocation a cell: `raw` itself where that is the display text, else a view of
// `scratch`, which is overwritten.
std::string_view displayText(std::string_view raw, NumberFormat format, bool date1904, std::string& scratch);

// True only for numbers that the general format shows as they are written, such as 1250 and -0.5: at most 15
// significant digits, no zero to drop and no exponent to write.
bool isPlainDecimal(std::string_view raw);

}  // namespace corvale::XLSX
