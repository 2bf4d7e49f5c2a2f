#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/ByteArena.h"
#include "CorvaleKit/loading/CellGrid.h"
#include "CorvaleKit/loading/CellGridBuilder.h"

namespace corvale::XLSX {

// The cells of a sheet on their way into a grid. They come row by row and left to right in practice, which costs
// nothing but the grid itself; any other order is kept aside and merged at the end.
class SheetCells {
public:
    // Texts that are in the arena already can be placed by their offsets.
    explicit SheetCells(ByteArena texts);

    // For about that many bytes of a sheet's XML.
    void reserveFor(std::size_t bytes);

    // Keeps a copy of the text. Returns the cell to place, anywhere and as often as wanted.
    std::uint64_t keep(std::string_view text);
    // The cell for a text of the arena.
    std::uint64_t cell(std::uint64_t offset, std::uint64_t length) { return m_builder.packed(offset, length); }

    // The last cell placed somewhere stays there.
    void place(std::uint32_t row, std::uint32_t column, std::uint64_t cell);

    // As many rows as the lowest cell needs, each as wide as its rightmost cell needs. The object is spent afterwards.
    CellGrid finish();

private:
    void endRowsUpTo(std::uint32_t row);

    ByteArena m_texts;
    CellGridBuilder m_builder;
    std::vector<CellGridBuilder::PlacedCell> m_row;  // the cells of the row after those that the builder has
    std::uint32_t m_rowIndex = 0;
    std::vector<CellGridBuilder::LateCell> m_late;
};

}  // namespace corvale::XLSX
