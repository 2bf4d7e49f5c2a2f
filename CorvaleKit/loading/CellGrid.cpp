#include "CorvaleKit/loading/CellGrid.h"

#include <algorithm>
#include <cstring>
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

bool CellRow::areAlike(const CellRow& a, std::size_t firstOfA, const CellRow& b, std::size_t firstOfB,
                       std::size_t count) {
    if (a.m_sparse || b.m_sparse || a.m_stored < firstOfA + count || b.m_stored < firstOfB + count || count == 0) {
        return false;
    }
    // Delimiters and quotes: with more between its cells a row is not worth comparing as a whole.
    constexpr std::uint64_t widestGap = 3;
    const std::uint64_t* const cellsOfA = a.m_cells + firstOfA;
    const std::uint64_t* const cellsOfB = b.m_cells + firstOfB;
    const std::uint64_t start = *cellsOfA >> CellGrid::lengthBits;
    const std::uint64_t distance = *cellsOfA - *cellsOfB;
    std::uint64_t end = start;
    bool isAlike = (distance & CellGrid::longLength) == 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t offset = cellsOfA[i] >> CellGrid::lengthBits;
        const std::uint64_t length = cellsOfA[i] & CellGrid::longLength;
        isAlike &= (cellsOfA[i] - cellsOfB[i] == distance) & (length != CellGrid::longLength);
        isAlike &= offset - end <= widestGap;
        end = offset + length;
    }
    return isAlike && std::memcmp(a.m_grid->text(*cellsOfA).data(), b.m_grid->text(*cellsOfB).data(), end - start) == 0;
}

std::optional<std::size_t> CellRow::copyJoined(std::size_t first, std::size_t count, char separator,
                                               std::span<char> target) const {
    if (m_sparse || m_stored < first + count || count == 0) {
        return std::nullopt;
    }
    const std::span<const std::uint64_t> cells(m_cells + first, count);
    const std::uint64_t start = cells.front() >> CellGrid::lengthBits;
    std::uint64_t end = start - 1;
    bool isApart = true;
    for (const std::uint64_t cell : cells) {
        const std::uint64_t length = cell & CellGrid::longLength;
        isApart &= (cell >> CellGrid::lengthBits == end + 1) & (length != CellGrid::longLength);
        end = (cell >> CellGrid::lengthBits) + length;
    }
    if (!isApart || end - start > target.size()) {
        return std::nullopt;
    }
    std::memcpy(target.data(), m_grid->text(cells.front()).data(), end - start);
    for (const std::uint64_t cell : cells.subspan(1)) {
        target[(cell >> CellGrid::lengthBits) - 1 - start] = separator;
    }
    return end - start;
}

bool operator==(const CellRow& a, const CellRow& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

void CellGridBuilder::reserve(std::size_t cells, std::size_t rows) {
    m_grid.m_cells.reserve(cells);
    Memory::preferHugePages(m_grid.m_cells.data(), cells * sizeof(std::uint64_t));
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
