#pragma once

#include <cstddef>

// What spreadsheet programs hold; they drop the rest, or refuse the workbook. ECMA-376 sets no bounds.
namespace corvale::WorkbookLimits {

inline constexpr std::size_t rows = 1'048'576;     // of a worksheet
inline constexpr std::size_t columns = 16'384;     // of a worksheet
inline constexpr std::size_t textLength = 32'767;  // of a cell, in UTF-16 units

}  // namespace corvale::WorkbookLimits
