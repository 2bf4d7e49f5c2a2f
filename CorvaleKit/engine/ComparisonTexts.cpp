#include "CorvaleKit/engine/ComparisonTexts.h"

#include <algorithm>
#include <utility>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

// Reduces a long text once: a million cells of a workbook may show the same string, so that a few kilobytes of file
// could become gigabytes of reduced texts.
class ComparisonTexts::SharedTexts {
public:
    template <typename Reduce>
    Rewritten reduced(std::string_view cell, Reduce reduce) {
        constexpr std::size_t leastShared = 128;  // in bytes
        if (cell.size() < leastShared) {
            return reduce();
        }
        if (const auto known = m_byPlace.find(cell.data()); known != m_byPlace.end()) {
            return known->second;
        }
        const Rewritten text = reduce();
        m_byPlace.try_emplace(cell.data(), text);
        return text;
    }

private:
    HashMap<const char*, Rewritten> m_byPlace;
};

ComparisonTexts::ComparisonTexts(DataTable table, std::vector<std::size_t> columns, const CellReduction& reduction,
                                 const std::function<void(std::size_t)>& onRow)
    : m_table(std::move(table)), m_columns(std::move(columns)), m_positions(m_table.headers().size(), absent) {
    for (std::size_t position = 0; position < m_columns.size(); ++position) {
        m_hasRepeats = m_hasRepeats || m_positions[m_columns[position]] != absent;
        m_positions[m_columns[position]] = position;
        m_areAdjacent = m_areAdjacent && m_columns[position] == m_columns.front() + position;
    }
    const bool mayChange = reduction.mayChange(m_table.rows());
    SharedTexts shared;
    for (std::size_t begin = 0; begin < rowCount(); begin += rowsPerPoll) {
        if (onRow) {
            onRow(begin);
        }
        if (mayChange) {
            reduceRows(begin, std::min(begin + rowsPerPoll, rowCount()), reduction, shared);
        }
    }
}

void ComparisonTexts::reduceRows(std::size_t begin, std::size_t end, const CellReduction& reduction,
                                 SharedTexts& shared) {
    const CellRows& rows = m_table.rows();
    for (std::size_t i = begin; i < end; ++i) {
        const std::size_t before = m_rewritten.size();
        if (const CellRow row = rows[i]; reduction.mayChange(row)) {
            reduceRow(row, reduction, shared);
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

void ComparisonTexts::reduceRow(const CellRow& cells, const CellReduction& reduction, SharedTexts& shared) {
    if (m_hasRepeats || m_columns.size() <= 2 * cells.storedCells()) {
        for (std::size_t position = 0; position < m_columns.size(); ++position) {
            reduceCell(position, cells[m_columns[position]], reduction, shared);
        }
        return;
    }
    const auto first = static_cast<std::ptrdiff_t>(m_rewritten.size());
    cells.forEachStored([&](std::size_t column, std::string_view cell) {
        if (m_positions[column] != absent) {
            reduceCell(m_positions[column], cell, reduction, shared);
        }
    });
    std::sort(m_rewritten.begin() + first, m_rewritten.end(), [](const Rewritten& a, const Rewritten& b) {
        return a.position < b.position;
    });
}

void ComparisonTexts::reduceCell(std::size_t position, std::string_view cell, const CellReduction& reduction,
                                 SharedTexts& shared) {
    Rewritten text = shared.reduced(cell, [&] { return reduced(cell, reduction); });
    if (text.isThere()) {
        text.position = static_cast<std::uint32_t>(position);
        m_rewritten.push_back(text);
    }
}

ComparisonTexts::Rewritten ComparisonTexts::reduced(std::string_view cell, const CellReduction& reduction) {
    Rewritten text;
    text.offset = m_texts.size();
    if (reduction.mayChange(cell) && reduction.appendRewritten(m_texts, cell)) {
        const std::size_t length = m_texts.size() - text.offset;
        CORVALE_REQUIRE(length < Rewritten::none, "a cell is longer than four gibibytes");
        text.length = static_cast<std::uint32_t>(length);
    }
    return text;
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
