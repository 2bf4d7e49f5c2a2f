#pragma once

#include <cstddef>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/CellRow.h"
#include "CorvaleKit/text/Utf8.h"

// What holds for the grid of any worksheet, whatever the file says.
inline void requireWorksheetGrid(const corvale::CellGrid& grid) {
    CORVALE_REQUIRE(grid.rowCount() <= 1'048'576, "there are more rows than a worksheet has");
    CORVALE_REQUIRE(grid.rowCount() == 0 || !grid.row(grid.rowCount() - 1).empty(), "the last row has no cell");
    for (std::size_t i = 0; i < grid.rowCount(); ++i) {
        const corvale::CellRow row = grid.row(i);
        CORVALE_REQUIRE(row.size() <= 1000, "there are more columns than are read");
        for (const auto cell : row) {
            CORVALE_REQUIRE(corvale::Utf8::isValid(cell), "a cell is no UTF-8");
        }
    }
}
