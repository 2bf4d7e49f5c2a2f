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
        m_positions[m_columns[position]] = position;
    }
    const CellRows& rows = m_table.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i % rowsPerPoll == 0 && onRow) {
            onRow(i);
        }
        const std::size_t before = m_rewritten.size();
        reduceRow(rows[i], reduction);
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
    const std::size_t first = m_rewritten.size();
    bool ascending = true;
    cells.forEachStored([&](std::size_t column, std::string_view cell) {
        const std::size_t position = m_positions[column];
        const std::size_t offset = m_texts.size();
        if (position == absent || !reduction.append(m_texts, cell)) {
            return;
        }
        const std::size_t length = m_texts.size() - offset;
        CORVALE_REQUIRE(length <= std::numeric_limits<std::uint32_t>::max(), "a cell is longer than four gibibytes");
        ascending = ascending && (m_rewritten.size() == first || m_rewritten.back().position < position);
        m_rewritten.push_back({offset, static_cast<std::uint32_t>(length), static_cast<std::uint32_t>(position)});
    });
    if (!ascending) {
        std::sort(m_rewritten.begin() + static_cast<std::ptrdiff_t>(first),
                  m_rewritten.end(),
                  [](const Rewritten& a, const Rewritten& b) { return a.position < b.position; });
    }
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
