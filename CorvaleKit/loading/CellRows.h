#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "CorvaleKit/base/IndexIterator.h"
#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/loading/CellGrid.h"
#include "CorvaleKit/loading/CellRow.h"

namespace corvale {

// Chosen rows of a shared grid: copying shares, nothing is copied, `rows[i][c]` reads a cell. A CellRow or a text taken
// from it stays valid while this list, a copy of it or a table over the same grid lives.
class CellRows {
public:
    using Iterator = IndexIterator<CellRows, CellRow>;

    CellRows();
    // All rows of the grid, each as wide as the source has it.
    explicit CellRows(CellGrid grid);

    // The rows at `positions` of this list, in that order, each exactly `width` cells wide: shorter rows end in empty
    // texts, longer ones are cut.
    CellRows selected(std::vector<std::uint32_t> positions, std::size_t width) const;
    // The first rows, at most `rows`, each cut to its first `cells` cells.
    CellRows corner(std::size_t rows, std::size_t cells) const;

    std::size_t size() const { return m_count; }
    bool empty() const { return m_count == 0; }
    // The width that selected() gave every row; none where rows are as wide as they are.
    std::optional<std::size_t> exactWidth() const {
        return m_widths == Widths::exact ? std::optional(m_width) : std::nullopt;
    }
    // True when normalising white space is known to leave every cell as it is; false says nothing.
    bool areTidy() const { return m_grid->isTidy(); }
    // The byte between the cells of rows that CellRow::joinedBy() gives; none where it gives no row.
    std::optional<char> delimiter() const { return m_grid->delimiter(); }
    // `index` is below size().
    CellRow operator[](std::size_t index) const;
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, m_count}; }

    // For a walk down one column, where each cell is elsewhere in memory: starts fetching the text some rows below
    // `index`, and the place of the one as far below that. Rows beyond the end do no harm.
    void prefetchBelow(std::size_t index, std::size_t column) const {
        constexpr std::size_t distance = 24;
        if (index + 2 * distance < m_count) {
            (*this)[index + 2 * distance].prefetch(column);
            Memory::prefetch((*this)[index + distance][column].data());
        }
    }

    friend bool operator==(const CellRows& a, const CellRows& b);

private:
    enum class Widths { asStored, cut, exact };

    std::shared_ptr<const CellGrid> m_grid;
    std::shared_ptr<const std::vector<std::uint32_t>> m_positions;  // none: consecutive rows from m_first
    std::size_t m_first = 0;
    std::size_t m_count = 0;
    std::size_t m_width = 0;
    Widths m_widths = Widths::asStored;
};

inline CellRow CellRows::operator[](std::size_t index) const {
    CellRow row = m_grid->row(m_positions ? (*m_positions)[index] : m_first + index);
    if (m_widths == Widths::exact || (m_widths == Widths::cut && row.m_width > m_width)) {
        row.m_width = m_width;
        row.m_notBlank = row.m_notBlank && m_width > 0;  // which is said of the first cell
    }
    return row;
}

}  // namespace corvale
