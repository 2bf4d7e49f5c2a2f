#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

// Styles beyond those are not kept, nor are the codes of more number formats: a part of a gigabyte, which takes a
// megabyte in the file, could list a hundred million. Spreadsheet programs allow fewer.
inline constexpr std::size_t mostStyles = 65'536;

// The number formats of the part xl/styles.xml, one an entry of its cellXfs list, which cells refer to by position.
std::vector<NumberFormat> cellFormats(std::string_view part);

}  // namespace corvale::XLSX
