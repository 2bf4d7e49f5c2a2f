#include "CorvaleKit/loading/CellRow.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace corvale {

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

// Whether the cells of both have the same lengths and the same distances from each other.
bool areCutAlike(PackedCells a, PackedCells b) {
    const std::uint64_t distance = a.front() - b.front();
    std::uint64_t other = PackedCell::length(distance);
    for (std::size_t i = 0; i < a.size(); ++i) {
        other |= (a[i] - b[i]) ^ distance;
    }
    return other == 0;
}

// Whether a row is worth comparing as a whole: its cells in order, with delimiters and quotes between them and no more.
bool areClose(PackedCells cells) {
    constexpr std::uint64_t widestGap = 3;
    std::uint64_t end = PackedCell::offset(cells.front());
    bool areClose = true;
    for (const std::uint64_t cell : cells) {
        areClose &= PackedCell::offset(cell) - end <= widestGap;
        areClose &= !PackedCell::isLong(cell);
        end = PackedCell::end(cell);
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
                       PackedCell::end(cellsOfA.back()) - PackedCell::offset(cellsOfA.front())) == 0;
}

std::optional<std::string_view> CellRow::joinedBy(char delimiter, std::size_t first, std::size_t count) const {
    if (!m_plain || m_grid->delimiter() != delimiter || !hasStored(first, count)) {
        return std::nullopt;
    }
    const std::uint64_t start = m_cells[first];
    return std::string_view(m_grid->text(start).data(),
                            PackedCell::end(m_cells[first + count - 1]) - PackedCell::offset(start));
}

bool operator==(const CellRow& a, const CellRow& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

}  // namespace corvale
