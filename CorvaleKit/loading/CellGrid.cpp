#include "CorvaleKit/loading/CellGrid.h"

#include <algorithm>
#include <string>
#include <utility>

#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/loading/CellGridBuilder.h"

namespace corvale {

namespace {

void keepLastOfEachColumn(std::vector<CellGridBuilder::PlacedCell>& cells) {
    const auto sameColumn = [](const auto& a, const auto& b) { return a.column == b.column; };
    std::stable_sort(cells.begin(), cells.end(), [](const auto& a, const auto& b) { return a.column < b.column; });
    cells.erase(cells.begin(), std::unique(cells.rbegin(), cells.rend(), sameColumn).base());
}

}  // namespace

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

void CellGridBuilder::reserve(std::size_t cells, std::size_t rows) {
    m_grid.m_cells.reserve(cells);
    Memory::preferHugePages(m_grid.m_cells.data(), cells * sizeof(std::uint64_t));
    m_grid.m_rowStarts.reserve(rows + 1);
}

std::uint64_t CellGridBuilder::packedLong(std::uint64_t offset, std::uint64_t length) {
    m_grid.m_longCells.push_back({offset, length});
    return (m_grid.m_longCells.size() - 1) << PackedCell::lengthBits | PackedCell::longLength;
}

void CellGridBuilder::addRow(const std::vector<PlacedCell>& cells) {
    CORVALE_REQUIRE(!m_grid.m_delimiter, "cells are placed among those of a text with delimiters");
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

void CellGridBuilder::readRow(std::size_t index, std::vector<PlacedCell>& cells) const {
    const bool sparse = (m_grid.m_rowStarts[index] & CellGrid::sparseFlag) != 0;
    const std::uint64_t first = m_grid.m_rowStarts[index] & CellGrid::cellIndex;
    const std::uint64_t end = m_grid.m_rowStarts[index + 1] & CellGrid::cellIndex;
    cells.clear();
    for (std::uint64_t i = first; i < end; i += sparse ? 2 : 1) {
        const std::uint64_t column = sparse ? m_grid.m_cells[i] : i - first;
        cells.push_back({static_cast<std::uint32_t>(column), m_grid.m_cells[sparse ? i + 1 : i]});
    }
}

void CellGridBuilder::overwrite(std::vector<LateCell> cells) {
    const auto byPlace = [](const LateCell& a, const LateCell& b) {
        return std::pair(a.row, a.column) < std::pair(b.row, b.column);
    };
    std::stable_sort(cells.begin(), cells.end(), byPlace);
    CellGridBuilder merged;
    merged.m_grid.m_longCells = std::move(m_grid.m_longCells);
    std::vector<PlacedCell> row;
    auto late = cells.cbegin();
    for (std::size_t index = 0; index < m_grid.rowCount(); ++index) {
        readRow(index, row);
        for (; late != cells.cend() && late->row == index; ++late) {
            row.push_back({late->column, late->packed});
        }
        keepLastOfEachColumn(row);
        merged.addRow(row);
    }
    *this = std::move(merged);
}

CellGrid CellGridBuilder::finish(Bytes buffer) {
    CellGrid grid = std::move(m_grid);
    grid.m_buffer = std::move(buffer);
    grid.m_base = grid.m_buffer.data();
    return grid;
}

}  // namespace corvale
