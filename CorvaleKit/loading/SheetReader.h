#pragma once

#include <string_view>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/CellGrid.h"
#include "CorvaleKit/loading/Workbook.h"
#include "CorvaleKit/loading/XMLEvents.h"

namespace corvale::XLSX {

// The cells of a worksheet's part. The shared strings of `workbook` become the grid's buffer.
CellGrid sheetGrid(Bytes part, Workbook workbook, XMLEvents::Parser parse = XMLEvents::parse);

}  // namespace corvale::XLSX
