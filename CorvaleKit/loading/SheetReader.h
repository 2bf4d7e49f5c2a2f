#pragma once

#include <string_view>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/CellGrid.h"
#include "CorvaleKit/loading/Workbook.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

// Of a worksheet, more cannot be read: the rows that a worksheet can have, and a bound on columns.
inline constexpr std::int64_t mostRows = 1'048'576;
inline constexpr std::int64_t mostColumns = 1'000;

// The cells of a worksheet's part. The shared strings of `workbook` become the grid's buffer.
CellGrid sheetGrid(Bytes part, Workbook workbook, XMLEvents::Parser parse = XMLEvents::parse);

}  // namespace corvale::XLSX
