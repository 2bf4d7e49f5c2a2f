#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "CorvaleKit/base/IndexIterator.h"
#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/loading/CellGrid.h"

namespace corvale {

// One row of a grid, as wide as it is asked to be: cells that the source lacks read as empty texts.
// A view: valid while the grid lives.
class CellRow {
public:
    using Iterator = IndexIterator<CellRow, std::string_view>;

    std::size_t size() const { return m_width; }
    bool empty() const { return m_width == 0; }
    // `column` is below size().
    std::string_view operator[](std::size_t column) const;
    // Starts fetching what that looks at before it knows where the text is.
    void prefetch(std::size_t column) const { Memory::prefetch(m_cells + (m_sparse ? 0 : column)); }
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, m_width}; }
    // The number of cells that the source has.
    std::size_t storedCells() const { return m_sparse ? m_stored / 2 : m_stored; }
    // True when normalising white space is known to leave every cell as it is; false says nothing.
    bool isTidy() const { return m_tidy; }
    // True when the first cell is known to have more than white space; false says nothing.
    bool isNotBlank() const { return m_notBlank; }
    // True when `count` cells of both rows, from their first ones on, are known to have the same texts because they lie
    // alike in the sources; false says nothing.
    static bool areAlike(const CellRow& a, std::size_t firstOfA, const CellRow& b, std::size_t firstOfB,
                         std::size_t count);
    // `count` cells from `first` on with one `delimiter` between them, where the source is known to have them so and
    // none of the cells has a delimiter; otherwise none.
    std::optional<std::string_view> joinedBy(char delimiter, std::size_t first, std::size_t count) const;
    // A cell, or several neighbours with one delimiter between them, none of which has a delimiter itself.
    struct Stretch {
        std::size_t first = 0;  // its column
        std::size_t count = 0;
        std::string_view text;  // of all of them, delimiters included
    };
    // Calls visit(stretch) for `count` cells from `first` on, in order, in stretches as long as the source is known to
    // have them; false, without a call, when it is not known to have any.
    template <typename Visit>
    bool forEachStretch(char delimiter, std::size_t first, std::size_t count, Visit visit) const;
    // Calls visit(column, text) for the cells that the source has, in column order: a thin row of a wide table costs
    // only those.
    template <typename Visit>
    void forEachStored(Visit visit) const;
    // The same until predicate(column, text) is true; false when it never is.
    template <typename Predicate>
    bool anyStored(Predicate predicate) const;

    friend bool operator==(const CellRow& a, const CellRow& b);

private:
    friend class CellGrid;
    friend class CellRows;

    const CellGrid* m_grid = nullptr;
    const std::uint64_t* m_cells = nullptr;
    std::uint32_t m_stored = 0;  // references, or column and reference pairs when sparse
    bool m_sparse = false;
    bool m_tidy = false;
    bool m_notBlank = false;
    bool m_plain = false;
    std::size_t m_width = 0;

    bool hasStored(std::size_t first, std::size_t count) const {
        return !m_sparse && count > 0 && first + count <= m_stored;
    }

    std::string_view sparseCell(std::size_t column) const;
    std::size_t sourceWidth() const;
};

inline std::size_t CellRow::sourceWidth() const {
    return m_sparse ? static_cast<std::size_t>(m_cells[m_stored - 2]) + 1 : m_stored;
}

inline CellRow CellGrid::row(std::size_t index) const {
    const std::uint64_t start = m_rowStarts[index];
    const std::uint64_t first = start & cellIndex;
    CellRow row;
    row.m_grid = this;
    row.m_cells = m_cells.data() + first;
    row.m_stored = static_cast<std::uint32_t>((m_rowStarts[index + 1] & cellIndex) - first);
    row.m_sparse = (start & sparseFlag) != 0;
    row.m_tidy = (start & tidyFlag) != 0;
    row.m_notBlank = (start & notBlankFlag) != 0;
    row.m_plain = (start & plainFlag) != 0;
    row.m_width = row.sourceWidth();
    return row;
}

inline std::string_view CellRow::operator[](std::size_t column) const {
    if (m_sparse) [[unlikely]] {
        return sparseCell(column);
    }
    return column < m_stored ? m_grid->text(m_cells[column]) : std::string_view{};
}

template <typename Visit>
bool CellRow::forEachStretch(char delimiter, std::size_t first, std::size_t count, Visit visit) const {
    if (m_grid->delimiter() != delimiter || !hasStored(first, count)) {
        return false;
    }
    for (std::size_t column = first; column < first + count;) {
        const std::uint64_t* const cells = m_cells + column;
        const std::size_t left = first + count - column;
        std::size_t together = 1;
        while (together < left && PackedCell::areOneApart(cells[together - 1], cells[together])) {
            ++together;
        }
        const std::string_view cell = m_grid->text(cells[0]);
        const bool isAlone = together == 1;
        const auto length = PackedCell::end(cells[together - 1]) - PackedCell::offset(cells[0]);
        visit(Stretch{column, together, isAlone ? cell : std::string_view(cell.data(), length)});
        column += together;
    }
    return true;
}

template <typename Predicate>
bool CellRow::anyStored(Predicate predicate) const {
    if (!m_sparse) {
        const std::size_t end = m_stored < m_width ? m_stored : m_width;
        for (std::size_t column = 0; column < end; ++column) {
            if (predicate(column, m_grid->text(m_cells[column]))) {
                return true;
            }
        }
        return false;
    }
    for (std::size_t i = 0; i < m_stored && m_cells[i] < m_width; i += 2) {
        if (predicate(static_cast<std::size_t>(m_cells[i]), m_grid->text(m_cells[i + 1]))) {
            return true;
        }
    }
    return false;
}

template <typename Visit>
void CellRow::forEachStored(Visit visit) const {
    anyStored([&visit](std::size_t column, std::string_view text) {
        visit(column, text);
        return false;
    });
}

}  // namespace corvale
