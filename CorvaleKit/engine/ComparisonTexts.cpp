#include "CorvaleKit/engine/ComparisonTexts.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

ComparisonTexts::ComparisonTexts(DataTable table, std::vector<std::size_t> columns, const CellReduction& reduction,
                                 const std::function<void(std::size_t)>& onRow)
    : m_table(std::move(table)), m_columns(std::move(columns)), m_positions(m_table.headers().size(), absent) {
    for (std::size_t position = 0; position < m_columns.size(); ++position) {
        m_hasRepeats = m_hasRepeats || m_positions[m_columns[position]] != absent;
        m_positions[m_columns[position]] = position;
        m_areAdjacent = m_areAdjacent && m_columns[position] == m_columns.front() + position;
    }
    const bool mayChange = reduction.mayChange(m_table.rows());
    for (std::size_t begin = 0; begin < rowCount(); begin += rowsPerPoll) {
        if (onRow) {
            onRow(begin);
        }
        if (mayChange) {
            reduceRows(begin, std::min(begin + rowsPerPoll, rowCount()), reduction);
        }
    }
}

void ComparisonTexts::reduceRows(std::size_t begin, std::size_t end, const CellReduction& reduction) {
    const CellRows& rows = m_table.rows();
    for (std::size_t i = begin; i < end; ++i) {
        const std::size_t before = m_rewritten.size();
        if (const CellRow row = rows[i]; reduction.mayChange(row)) {
            reduceRow(row, reduction);
        }
        if (m_rowStarts.empty() && m_rewritten.size() > before) {
            m_rowStarts.reserve(rows.size() + 1);
            m_rowStarts.assign(i + 1, 0);
        }
        if (!m_rowStarts.empty()) {
            m_rowStarts.push_back(m_rewritten.size());
        }
    }
}

void ComparisonTexts::reduceRow(const CellRow& cells, const CellReduction& reduction) {
    if (m_hasRepeats || m_columns.size() <= 2 * cells.storedCells()) {
        for (std::size_t position = 0; position < m_columns.size(); ++position) {
            const std::string_view cell = cells[m_columns[position]];
            if (reduction.mayChange(cell)) {
                rewrite(position, cell, reduction);
            }
        }
        return;
    }
    const auto first = static_cast<std::ptrdiff_t>(m_rewritten.size());
    cells.forEachStored([&](std::size_t column, std::string_view cell) {
        if (m_positions[column] != absent && reduction.mayChange(cell)) {
            rewrite(m_positions[column], cell, reduction);
        }
    });
    std::sort(m_rewritten.begin() + first, m_rewritten.end(), [](const Rewritten& a, const Rewritten& b) {
        return a.position < b.position;
    });
}

void ComparisonTexts::rewrite(std::size_t position, std::string_view cell, const CellReduction& reduction) {
    const std::size_t offset = m_texts.size();
    if (!reduction.appendRewritten(m_texts, cell)) {
        return;
    }
    const std::size_t length = m_texts.size() - offset;
    CORVALE_REQUIRE(length <= std::numeric_limits<std::uint32_t>::max(), "a cell is longer than four gibibytes");
    m_rewritten.push_back({offset, static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(position)});
}

std::string_view ComparisonTexts::Row::rewrittenOrCell(std::size_t position) const {
    const auto found = std::lower_bound(
        m_rewritten.begin(), m_rewritten.end(), position, [](const Rewritten& text, std::size_t wanted) {
            return text.position < wanted;
        });
    if (found == m_rewritten.end() || found->position != position) {
        return m_cells[m_texts->m_columns[position]];
    }
    return std::string_view(m_texts->m_texts).substr(found->offset, found->length);
}

}  // namespace corvale
