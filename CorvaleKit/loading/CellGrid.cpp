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

namespace {

using PackedCells = std::span<const std::uint64_t>;

std::uint64_t offsetOf(std::uint64_t packed) { return packed >> CellGrid::lengthBits; }
std::uint64_t endOf(std::uint64_t packed) { return offsetOf(packed) + (packed & CellGrid::longLength); }

// Whether the cells of both have the same lengths and the same distances from each other.
bool areCutAlike(PackedCells a, PackedCells b) {
    const std::uint64_t distance = a.front() - b.front();
    std::uint64_t other = distance & CellGrid::longLength;
    for (std::size_t i = 0; i < a.size(); ++i) {
        other |= (a[i] - b[i]) ^ distance;
    }
    return other == 0;
}

// Whether a row is worth comparing as a whole: its cells in order, with delimiters and quotes between them and no more.
bool areClose(PackedCells cells) {
    constexpr std::uint64_t widestGap = 3;
    std::uint64_t end = offsetOf(cells.front());
    bool areClose = true;
    for (const std::uint64_t cell : cells) {
        areClose &= (offsetOf(cell) - end <= widestGap) & ((cell & CellGrid::longLength) != CellGrid::longLength);
        end = endOf(cell);
    }
    return areClose;
}

}  // namespace

bool CellRow::areAlike(const CellRow& a, std::size_t firstOfA, const CellRow& b, std::size_t firstOfB,
                       std::size_t count) {
    if (!a.hasStored(firstOfA, count) || !b.hasStored(firstOfB, count)) {
        return false;
    }
    const PackedCells cellsOfA(a.m_cells + firstOfA, count);
    const PackedCells cellsOfB(b.m_cells + firstOfB, count);
    return areCutAlike(cellsOfA, cellsOfB) && ((a.m_plain && b.m_plain) || areClose(cellsOfA)) &&
           std::memcmp(a.m_grid->text(cellsOfA.front()).data(),
                       b.m_grid->text(cellsOfB.front()).data(),
                       endOf(cellsOfA.back()) - offsetOf(cellsOfA.front())) == 0;
}

std::optional<std::size_t> CellRow::copyJoined(std::size_t first, std::size_t count, char separator,
                                               std::span<char> target) const {
    if (!m_plain || !hasStored(first, count)) {
        return std::nullopt;
    }
    const PackedCells cells(m_cells + first, count);
    const std::uint64_t start = offsetOf(cells.front());
    const std::uint64_t length = endOf(cells.back()) - start;
    if (length > target.size()) {
        return std::nullopt;
    }
    std::memcpy(target.data(), m_grid->text(cells.front()).data(), length);
    for (const std::uint64_t cell : cells.subspan(1)) {
        target[offsetOf(cell) - 1 - start] = separator;
    }
    return length;
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
