#pragma once

#include <string_view>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

// The number formats of the part xl/styles.xml, one an entry of its cellXfs list, which cells refer to by position.
std::vector<NumberFormat> cellFormats(std::string_view part);

}  // namespace corvale::XLSX
