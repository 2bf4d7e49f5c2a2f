#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/CellGrid.h"

namespace corvale {

// Fills a CellGrid row by row. Offsets refer to the buffer that finish() is given.
class CellGridBuilder {
public:
    // Room for that many cells is set aside up front; a guess costs address space, not memory.
    void reserve(std::size_t cells, std::size_t rows);

    // Says of all rows that cells which lie one byte apart have that byte between them, and not in them. Not for rows
    // that addRow() appends.
    void setDelimiter(char delimiter) { m_grid.m_delimiter = delimiter; }

    // Appends a cell at the right end of the current row.
    void addCell(std::uint64_t offset, std::uint64_t length) { m_grid.m_cells.push_back(packed(offset, length)); }
    // Says of the current row, once, that normalising white space would leave all its cells as they are.
    void markTidy() {
        m_grid.m_rowStarts.back() |= CellGrid::tidyFlag;
        ++m_grid.m_tidyRows;
    }
    // Says of the current row, when all its cells are added, that it is plain: they lie in order with one delimiter
    // between them, which no cell of the row has itself.
    void markPlain() {
        if (m_grid.m_longCells.empty()) {
            m_grid.m_rowStarts.back() |= CellGrid::plainFlag;
        }
    }
    // Says of the current row that its first cell is more than white space.
    void markNotBlank() { m_grid.m_rowStarts.back() |= CellGrid::notBlankFlag; }
    // Ends the current row, which may have no cells.
    void endRow() {
        CORVALE_REQUIRE(pendingCells() <= std::numeric_limits<std::uint32_t>::max(),
                        "a row has too many cells to count");
        m_grid.m_rowStarts.push_back(m_grid.m_cells.size());
    }

    struct PlacedCell {
        std::uint32_t column = 0;
        std::uint64_t packed = 0;  // a PackedCell
    };
    // Appends a whole row of cells at increasing columns, in the form that takes less room.
    void addRow(const std::vector<PlacedCell>& cells);

    struct LateCell {
        std::uint32_t row = 0;
        std::uint32_t column = 0;
        std::uint64_t packed = 0;
    };
    // Puts cells into rows that are already ended, over what is there; of two at one place the last stays. Builds the
    // grid anew.
    void overwrite(std::vector<LateCell> cells);

    // The reference of a text in the buffer, for addRow. Offsets go up to 2^40.
    std::uint64_t packed(std::uint64_t offset, std::uint64_t length) {
        CORVALE_REQUIRE(offset >> (64 - PackedCell::lengthBits) == 0, "a cell starts beyond the first tebibyte");
        if (length < PackedCell::longLength) [[likely]] {
            return offset << PackedCell::lengthBits | length;
        }
        return packedLong(offset, length);
    }

    // Cells of the row that is not ended yet.
    std::size_t pendingCells() const {
        return m_grid.m_cells.size() - (m_grid.m_rowStarts.back() & CellGrid::cellIndex);
    }

    // The builder is spent afterwards.
    CellGrid finish(Bytes buffer);

private:
    std::uint64_t packedLong(std::uint64_t offset, std::uint64_t length);
    // The cells of an ended row, those of a dense row's gaps included.
    void readRow(std::size_t index, std::vector<PlacedCell>& cells) const;

    CellGrid m_grid;
};

}  // namespace corvale
