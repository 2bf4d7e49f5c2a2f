#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/CellGridBuilder.h"
#include "CorvaleKit/loading/CellRow.h"
#include "CorvaleKit/loading/CellRows.h"

// Grids and their contents in the form that a test writes down.
namespace corvale::Grids {

using Texts = std::vector<std::string>;
using Rows = std::vector<Texts>;

inline Texts texts(const CellRow& row) {
    Texts cells;
    for (const std::string_view cell : row) {
        cells.emplace_back(cell);
    }
    return cells;
}

inline Rows texts(const CellRows& rows) {
    Rows all;
    for (const CellRow row : rows) {
        all.push_back(texts(row));
    }
    return all;
}

inline Rows texts(const CellGrid& grid) {
    Rows all;
    for (std::size_t i = 0; i < grid.rowCount(); ++i) {
        all.push_back(texts(grid.row(i)));
    }
    return all;
}

inline CellRows rows(const Rows& all) { return CellRows(CellGrid::fromTexts(all)); }

// Cells at columns, left to right; those between are lacking.
using PlacedTexts = std::vector<std::pair<std::uint32_t, std::string>>;

// A grid built row by row from scattered cells.
inline CellGrid scattered(const std::vector<PlacedTexts>& all) {
    std::string buffer;
    CellGridBuilder builder;
    for (const PlacedTexts& row : all) {
        std::vector<CellGridBuilder::PlacedCell> cells;
        for (const auto& [column, text] : row) {
            cells.push_back({column, builder.packed(buffer.size(), text.size())});
            buffer += text;
        }
        builder.addRow(cells);
    }
    return builder.finish(Bytes(buffer));
}

}  // namespace corvale::Grids
