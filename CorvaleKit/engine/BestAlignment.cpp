#include "CorvaleKit/engine/BestAlignment.h"

#include <absl/strings/string_view.h>

#include <algorithm>
#include <limits>
#include <numeric>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/engine/StoredPositions.h"

namespace corvale {

BestAlignment::BestAlignment(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter)
    : m_before(before), m_after(after), m_meter(meter), m_similarity(before, after) {}

void BestAlignment::align(const RowStretch& stretch, std::vector<RowPair>& pairs) {
    // Numbering a column's texts costs about eight comparisons of two texts for every row.
    constexpr std::size_t comparisonsPerRow = 8;
    const std::size_t area = stretch.beforeCount() * stretch.afterCount();
    m_weights.clear();
    if (area <= comparisonsPerRow * stretch.rowCount()) {
        weighRowByRow(stretch);
    } else {
        weighColumnByColumn(stretch);
    }
    findTotals(stretch.beforeCount(), stretch.afterCount());
    collect(stretch, pairs);
}

void BestAlignment::weighRowByRow(const RowStretch& stretch) {
    for (std::uint32_t before = stretch.beforeBegin; before < stretch.beforeEnd; ++before) {
        for (std::uint32_t after = stretch.afterBegin; after < stretch.afterEnd; ++after) {
            m_meter.spend(m_similarity.columnCount());
            const auto equalCells = m_similarity.equalCells(before, after);
            m_weights.push_back(equalCells ? weight(*equalCells) : notPairable);
        }
    }
}

void BestAlignment::weighColumnByColumn(const RowStretch& stretch) {
    m_beforeRows.clear();
    m_afterRows.clear();
    for (std::uint32_t row = stretch.beforeBegin; row < stretch.beforeEnd; ++row) {
        m_beforeRows.push_back(m_before.row(row));
    }
    for (std::uint32_t row = stretch.afterBegin; row < stretch.afterEnd; ++row) {
        m_afterRows.push_back(m_after.row(row));
    }
    const auto positions = comparedPositions();
    // Where none of the rows has a cell, all of them are equal.
    const auto emptyColumns = m_similarity.columnCount() - positions.size();
    m_weights.assign(m_beforeRows.size() * m_afterRows.size(), static_cast<std::int32_t>(emptyColumns));
    for (const std::size_t position : positions) {
        m_meter.spend(m_weights.size());
        internColumn(position);
        countEqualCells();
    }
    for (std::int32_t& value : m_weights) {
        value = weight(static_cast<std::size_t>(value));
    }
}

std::vector<std::size_t> BestAlignment::comparedPositions() const {
    const auto isThin = [](const ComparisonTexts::Row& row) { return row.isThin(); };
    if (std::all_of(m_beforeRows.begin(), m_beforeRows.end(), isThin) &&
        std::all_of(m_afterRows.begin(), m_afterRows.end(), isThin)) {
        StoredPositions stored;
        for (const auto* rows : {&m_beforeRows, &m_afterRows}) {
            for (const auto& row : *rows) {
                stored.add(row);
            }
        }
        return stored.sorted();
    }
    std::vector<std::size_t> all(m_similarity.columnCount());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return all;
}

void BestAlignment::countEqualCells() {
    std::int32_t* equalCells = m_weights.data();
    for (const std::uint32_t beforeId : m_beforeIds) {
        for (const std::uint32_t afterId : m_afterIds) {
            *equalCells++ += beforeId == afterId ? 1 : 0;
        }
    }
}

void BestAlignment::internColumn(std::size_t position) {
    constexpr std::uint32_t onlyInBefore = std::numeric_limits<std::uint32_t>::max();
    const auto text = [position](const ComparisonTexts::Row& row) {
        return absl::string_view(row[position].data(), row[position].size());
    };
    HashMap<absl::string_view, std::uint32_t> ids;
    ids.reserve(m_afterRows.size());
    m_afterIds.clear();
    for (const auto& row : m_afterRows) {
        m_afterIds.push_back(ids.try_emplace(text(row), static_cast<std::uint32_t>(ids.size())).first->second);
    }
    m_beforeIds.clear();
    for (const auto& row : m_beforeRows) {
        const auto known = ids.find(text(row));
        m_beforeIds.push_back(known == ids.end() ? onlyInBefore : known->second);
    }
}

// One more than the equal cells, so that two rows without any still prefer each other where they count as similar.
std::int32_t BestAlignment::weight(std::size_t equalCells) const {
    return m_similarity.isEnough(equalCells) ? static_cast<std::int32_t>(equalCells) + 1 : notPairable;
}

void BestAlignment::findTotals(std::size_t beforeCount, std::size_t afterCount) {
    const std::size_t width = afterCount + 1;
    m_totals.assign((beforeCount + 1) * width, 0);
    for (std::size_t before = beforeCount; before-- > 0;) {
        const std::int32_t* weights = &m_weights[before * afterCount];
        std::int32_t* totals = &m_totals[before * width];
        const std::int32_t* next = totals + width;
        for (std::size_t after = afterCount; after-- > 0;) {
            const std::int32_t paired = weights[after] == notPairable ? 0 : weights[after] + next[after + 1];
            totals[after] = std::max({paired, next[after], totals[after + 1]});
        }
    }
}

void BestAlignment::collect(RowStretch stretch, std::vector<RowPair>& pairs) const {
    const std::size_t afterCount = stretch.afterCount();
    std::size_t cell = 0;   // in m_weights
    std::size_t total = 0;  // the same two rows in m_totals
    while (!stretch.lacksASide()) {
        const std::size_t nextTotal = total + afterCount + 1;
        const std::int32_t paired = m_weights[cell];
        if (paired != notPairable && m_totals[total] == paired + m_totals[nextTotal + 1]) {
            pairs.push_back({stretch.beforeBegin++, stretch.afterBegin++});
            cell += afterCount + 1;
            total = nextTotal + 1;
        } else if (m_totals[total] == m_totals[nextTotal]) {
            pairs.push_back({stretch.beforeBegin++, RowPair::none});
            cell += afterCount;
            total = nextTotal;
        } else {
            pairs.push_back({RowPair::none, stretch.afterBegin++});
            ++cell;
            ++total;
        }
    }
    appendUnpaired(stretch, pairs);
}

}  // namespace corvale
