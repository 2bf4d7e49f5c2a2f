#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/base/IndexIterator.h"
#include "CorvaleKit/base/Memory.h"

namespace corvale {

class CellGrid;

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
    // Copies `count` cells from `first` on to `target`, with the separator between them, and says how many bytes that
    // took. Only of a row that is known to have its cells one byte apart, and where they fit; otherwise none.
    std::optional<std::size_t> copyJoined(std::size_t first, std::size_t count, char separator,
                                          std::span<char> target) const;
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

// An immutable ragged grid of texts in one buffer: what a file holds before a header row is chosen. A cell is a packed
// reference of 8 bytes into the buffer. A row of scattered cells keeps column numbers instead of the cells between, so
// that a far-away cell costs no more than a near one.
class CellGrid {
public:
    CellGrid();
    CellGrid(CellGrid&&) noexcept = default;
    CellGrid& operator=(CellGrid&&) noexcept = default;
    CellGrid(const CellGrid&) = delete;
    CellGrid& operator=(const CellGrid&) = delete;
    ~CellGrid() = default;

    // Copies the texts; for tables that come from memory.
    static CellGrid fromTexts(const std::vector<std::vector<std::string>>& rows);

    std::size_t rowCount() const { return m_rowStarts.size() - 1; }
    // As wide as the source has it, trailing empty cells included.
    CellRow row(std::size_t index) const;
    // True when all rows are known to be tidy.
    bool isTidy() const { return m_tidyRows == rowCount(); }

    // The 8 bytes of a cell: the offset in the upper 40 bits, the length in the lower 24. A longer cell keeps its place
    // in m_longCells as offset.
    static constexpr unsigned lengthBits = 24;
    static constexpr std::uint64_t longLength = (std::uint64_t{1} << lengthBits) - 1;

    std::string_view text(std::uint64_t packed) const {
        const std::uint64_t length = packed & longLength;
        if (length == longLength) [[unlikely]] {
            return longText(packed >> lengthBits);
        }
        return {m_base + (packed >> lengthBits), length};
    }

private:
    friend class CellGridBuilder;

    struct LongCell {
        std::uint64_t offset = 0;
        std::uint64_t length = 0;
    };

    std::string_view longText(std::uint64_t index) const;

    static constexpr std::uint64_t sparseFlag = std::uint64_t{1} << 63U;
    static constexpr std::uint64_t tidyFlag = std::uint64_t{1} << 62U;
    static constexpr std::uint64_t notBlankFlag = std::uint64_t{1} << 61U;
    static constexpr std::uint64_t plainFlag = std::uint64_t{1} << 60U;
    static constexpr std::uint64_t cellIndex = plainFlag - 1;

    Bytes m_buffer;
    const char* m_base = nullptr;
    std::vector<std::uint64_t> m_cells;
    std::vector<std::uint64_t> m_rowStarts;  // one more than rows; with the flags of each row
    std::vector<LongCell> m_longCells;
    std::size_t m_tidyRows = 0;
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
