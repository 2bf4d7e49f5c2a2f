#include "CorvaleKit/loading/CellRow.h"

#include <algorithm>
#include <cstring>

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

std::optional<std::size_t> CellRow::copyJoined(std::size_t first, std::size_t count, char separator,
                                               std::span<char> target) const {
    if (!m_plain || !hasStored(first, count)) {
        return std::nullopt;
    }
    const PackedCells cells(m_cells + first, count);
    const std::uint64_t start = PackedCell::offset(cells.front());
    const std::uint64_t length = PackedCell::end(cells.back()) - start;
    if (length > target.size()) {
        return std::nullopt;
    }
    std::memcpy(target.data(), m_grid->text(cells.front()).data(), length);
    for (const std::uint64_t cell : cells.subspan(1)) {
        target[PackedCell::offset(cell) - 1 - start] = separator;
    }
    return length;
}

bool operator==(const CellRow& a, const CellRow& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

}  // namespace corvale
