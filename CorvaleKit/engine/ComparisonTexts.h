#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/CellReduction.h"
#include "CorvaleKit/loading/DataTable.h"

namespace corvale {

// The reduced texts of one table's compared columns: a matrix rows x positions, a position being a place in the list of
// compared columns. Only texts that reduction changed are stored; all others are read from the table, which it shares.
class ComparisonTexts {
public:
    class Row;

    // `columns` are column indexes of `table`, by position. `onRow` is called before every 4096th row, 0 included.
    ComparisonTexts(DataTable table, std::vector<std::size_t> columns, const CellReduction& reduction,
                    const std::function<void(std::size_t)>& onRow = {});

    std::size_t rowCount() const { return m_table.rows().size(); }
    std::size_t columnCount() const { return m_columns.size(); }
    // A view of one row, valid while this object lives.
    Row row(std::size_t index) const;

    // The byte that Row::joinedBy() may find between the texts; none where it finds none.
    std::optional<char> delimiter() const { return m_table.rows().delimiter(); }

    // For a walk down a single column: starts fetching what the rows below will look at.
    void prefetchBelow(std::size_t index) const {
        if (m_columns.size() == 1) {
            m_table.rows().prefetchBelow(index, m_columns.front());
        }
    }

    // The column index of a position, and the position of a column index, or `absent`.
    std::size_t column(std::size_t position) const { return m_columns[position]; }
    std::size_t position(std::size_t column) const { return m_positions[column]; }
    static constexpr std::size_t absent = static_cast<std::size_t>(-1);

private:
    struct Rewritten {
        static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

        std::uint64_t offset = 0;
        std::uint32_t length = none;
        std::uint32_t position = 0;

        bool isThere() const { return length != none; }
    };
    class SharedTexts;

    void reduceRows(std::size_t begin, std::size_t end, const CellReduction& reduction, SharedTexts& shared);
    void reduceRow(const CellRow& cells, const CellReduction& reduction, SharedTexts& shared);
    void reduceCell(std::size_t position, std::string_view cell, const CellReduction& reduction, SharedTexts& shared);
    // Without a position; not there when the cell is its own reduced text.
    Rewritten reduced(std::string_view cell, const CellReduction& reduction);

    DataTable m_table;
    std::vector<std::size_t> m_columns;
    std::vector<std::size_t> m_positions;
    bool m_hasRepeats = false;  // a column stands at several positions, as when two names mean one key column
    bool m_areAdjacent = true;  // each column is the right neighbour of that at the position before
    std::string m_texts;
    std::vector<Rewritten> m_rewritten;      // by row, then position
    std::vector<std::uint64_t> m_rowStarts;  // into m_rewritten, one more than rows; empty without any
};

class ComparisonTexts::Row {
public:
    // `position` is below size().
    std::string_view operator[](std::size_t position) const {
        return m_rewritten.empty() ? m_cells[m_texts->m_columns[position]] : rewrittenOrCell(position);
    }
    std::size_t size() const { return m_texts->m_columns.size(); }
    const CellRow& cells() const { return m_cells; }

    // The texts with one `delimiter` between them, where that is how the source has them and no text has a delimiter;
    // otherwise none.
    std::optional<std::string_view> joinedBy(char delimiter) const {
        return m_texts->m_areAdjacent && m_rewritten.empty() && size() > 0
                   ? m_cells.joinedBy(delimiter, m_texts->m_columns.front(), size())
                   : std::nullopt;
    }

    // The same as stretches, of positions in place of columns. False, without a call, where there are none.
    using Stretch = CellRow::Stretch;
    template <typename Visit>
    bool forEachStretch(char delimiter, Visit visit) const {
        if (!m_texts->m_areAdjacent || !m_rewritten.empty() || size() == 0) {
            return false;
        }
        const std::size_t first = m_texts->m_columns.front();
        return m_cells.forEachStretch(delimiter, first, size(), [&visit, first](Stretch stretch) {
            stretch.first -= first;
            visit(stretch);
        });
    }

    // True when both rows are known at a look at their bytes to have the same texts; false says nothing. Of few columns
    // a comparison one by one is as quick.
    static bool areAlike(const Row& a, const Row& b) {
        return a.m_texts->m_areAdjacent && b.m_texts->m_areAdjacent && a.m_rewritten.empty() && b.m_rewritten.empty() &&
               a.size() == b.size() && a.size() > fewColumns &&
               CellRow::areAlike(
                   a.m_cells, a.m_texts->m_columns.front(), b.m_cells, b.m_texts->m_columns.front(), a.size());
    }

    // True when the source has so few of the cells that forEachStored is the cheaper way to the texts.
    bool isThin() const { return m_cells.storedCells() < size() / 4 && !m_texts->m_hasRepeats; }
    // Calls visit(position) for every position whose cell the source has, in the table's column order. The texts at all
    // other positions are empty.
    template <typename Visit>
    void forEachStored(Visit visit) const {
        m_cells.forEachStored([&](std::size_t column, std::string_view) {
            if (const std::size_t position = m_texts->m_positions[column]; position != absent) {
                visit(position);
            }
        });
    }

private:
    friend class ComparisonTexts;
    static constexpr std::size_t fewColumns = 2;

    Row(const CellRow& cells, const ComparisonTexts& texts, std::span<const Rewritten> rewritten)
        : m_cells(cells), m_texts(&texts), m_rewritten(rewritten) {}

    std::string_view rewrittenOrCell(std::size_t position) const;

    CellRow m_cells;
    const ComparisonTexts* m_texts;
    std::span<const Rewritten> m_rewritten;
};

inline ComparisonTexts::Row ComparisonTexts::row(std::size_t index) const {
    std::span<const Rewritten> rewritten;
    if (!m_rowStarts.empty()) {
        rewritten = {m_rewritten.data() + m_rowStarts[index], m_rowStarts[index + 1] - m_rowStarts[index]};
    }
    return {m_table.rows()[index], *this, rewritten};
}

}  // namespace corvale
