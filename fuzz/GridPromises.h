#pragma once

#include <cstddef>
#include <string>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/CellRow.h"
#include "CorvaleKit/text/Utf8.h"

// What a row says of cells that lie together is true: they are its cells, with the delimiter between them alone.
inline void requireTrueStretches(const corvale::CellGrid& grid) {
    const char delimiter = grid.delimiter().value_or(',');
    for (std::size_t i = 0; i < grid.rowCount(); ++i) {
        const corvale::CellRow row = grid.row(i);
        const auto require = [&](const corvale::CellRow::Stretch& stretch) {
            std::string joined;
            for (std::size_t column = stretch.first; column < stretch.first + stretch.count; ++column) {
                const bool isAlone = stretch.count == 1;
                CORVALE_REQUIRE(isAlone || row[column].find(delimiter) == std::string_view::npos,
                                "a delimiter is in a cell and between cells");
                joined += (column > stretch.first ? std::string(1, delimiter) : std::string()).append(row[column]);
            }
            CORVALE_REQUIRE(stretch.text == joined, "cells that lie together are others");
        };
        std::size_t column = 0;
        const bool isKnown = row.forEachStretch(delimiter, 0, row.size(), [&](const auto& stretch) {
            CORVALE_REQUIRE(stretch.first == column, "a stretch begins elsewhere");
            require(stretch);
            column += stretch.count;
        });
        CORVALE_REQUIRE(!isKnown || column == row.size(), "the stretches are not the row");
        if (const auto joined = row.joinedBy(delimiter, 0, row.size())) {
            require({0, row.size(), *joined});
        }
    }
}

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
