#include "CorvaleKit/loading/CellGrid.h"

#include <algorithm>
#include <string>

#include "CorvaleKit/loading/CellGridBuilder.h"

namespace corvale {

CellGrid::CellGrid() : m_rowStarts{0} {}

CellGrid CellGrid::fromTexts(const std::vector<std::vector<std::string>>& rows) {
    std::string all;
    CellGridBuilder builder;
    for (const auto& row : rows) {
        for (const auto& cell : row) {
            builder.addCell(all.size(), cell.size());
            all += cell;
        }
        builder.endRow();
    }
    return builder.finish(Bytes(all));
}

std::string_view CellGrid::longText(std::uint64_t index) const {
    const LongCell& cell = m_longCells[index];
    return {m_base + cell.offset, cell.length};
}

std::string_view CellRow::sparseCell(std::size_t column) const {
    std::size_t low = 0;
    std::size_t high = m_stored / 2;
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (m_cells[2 * middle] < column) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    const bool found = low < m_stored / 2 && m_cells[2 * low] == column;
    return found ? m_grid->text(m_cells[2 * low + 1]) : std::string_view{};
}

bool operator==(const CellRow& a, const CellRow& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

void CellGridBuilder::reserve(std::size_t cells, std::size_t rows) {
    m_grid.m_cells.reserve(cells);
    m_grid.m_rowStarts.reserve(rows + 1);
}

std::uint64_t CellGridBuilder::packedLong(std::uint64_t offset, std::uint64_t length) {
    m_grid.m_longCells.push_back({offset, length});
    return (m_grid.m_longCells.size() - 1) << CellGrid::lengthBits | CellGrid::longLength;
}

void CellGridBuilder::addRow(const std::vector<PlacedCell>& cells) {
    auto& target = m_grid.m_cells;
    const std::size_t width = cells.empty() ? 0 : std::size_t{cells.back().column} + 1;
    if (width > 2 * cells.size()) {
        m_grid.m_rowStarts.back() |= CellGrid::sparseFlag;
        for (const auto& cell : cells) {
            target.push_back(cell.column);
            target.push_back(cell.packed);
        }
    } else {
        const std::size_t start = target.size();
        target.resize(start + width, 0);
        for (const auto& cell : cells) {
            target[start + cell.column] = cell.packed;
        }
    }
    endRow();
}

CellGrid CellGridBuilder::finish(Bytes buffer) {
    CellGrid grid = std::move(m_grid);
    grid.m_buffer = std::move(buffer);
    grid.m_base = grid.m_buffer.data();
    return grid;
}

}  // namespace corvale
