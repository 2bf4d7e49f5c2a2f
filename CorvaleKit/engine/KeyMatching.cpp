#include "CorvaleKit/engine/KeyMatching.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <optional>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/engine/ColumnMatching.h"
#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/DisplayKey.h"
#include "CorvaleKit/engine/RowInterner.h"

namespace corvale::KeyMatching {

namespace {

constexpr std::uint32_t none = RowPair::none;

// One side's rows by key id.
class KeyIndex {
public:
    // `blank` is the id of the blank key, if any row has it.
    KeyIndex(const DataTable& table, const std::vector<std::size_t>& columns, std::vector<std::uint32_t> ids,
             std::optional<std::uint32_t> blank)
        : m_table(table), m_columns(columns), m_ids(std::move(ids)), m_blank(blank) {}

    std::uint32_t id(std::size_t row) const { return m_ids[row]; }
    bool isBlank(std::size_t row) const { return m_ids[row] == m_blank; }
    std::size_t rowCount() const { return m_ids.size(); }

    // Key id -> rows with it, for `idCount` ids.
    std::vector<std::uint32_t> counts(std::size_t idCount) const {
        std::vector<std::uint32_t> counts(idCount, 0);
        for (const std::uint32_t id : m_ids) {
            ++counts[id];
        }
        return counts;
    }

    void listDuplicates(DuplicateKey::Side side, const std::vector<std::uint32_t>& counts,
                        std::vector<DuplicateKey>& duplicates) const {
        HashMap<std::uint32_t, std::size_t> places;
        for (std::size_t row = 0; row < m_ids.size(); ++row) {
            if (counts[m_ids[row]] < 2 || isBlank(row)) {
                continue;
            }
            const auto [place, isNew] = places.try_emplace(m_ids[row], duplicates.size());
            if (isNew) {
                duplicates.push_back({{}, side, {}});
                DisplayKey::append(duplicates.back().key, m_table.rows()[row], m_columns);
            }
            duplicates[place->second].rowNumbers.push_back(m_table.rowNumber(row));
        }
    }

    std::vector<std::int64_t> blankRowNumbers() const {
        std::vector<std::int64_t> numbers;
        for (std::size_t row = 0; m_blank && row < m_ids.size(); ++row) {
            if (isBlank(row)) {
                numbers.push_back(m_table.rowNumber(row));
            }
        }
        return numbers;
    }

private:
    const DataTable& m_table;
    const std::vector<std::size_t>& m_columns;
    std::vector<std::uint32_t> m_ids;
    std::optional<std::uint32_t> m_blank;
};

// Before's rows grouped by key; each key hands them out in table order.
class RowsByKey {
public:
    RowsByKey(const KeyIndex& before, const std::vector<std::uint32_t>& counts)
        : m_next(counts.size()), m_ends(counts.size()), m_rows(before.rowCount()) {
        std::exclusive_scan(counts.begin(), counts.end(), m_next.begin(), 0U);
        m_ends = m_next;
        for (std::size_t row = 0; row < before.rowCount(); ++row) {
            m_rows[m_ends[before.id(row)]++] = static_cast<std::uint32_t>(row);
        }
    }

    // The first row of the key that was not taken yet, or `none`.
    std::uint32_t take(std::uint32_t id) { return m_next[id] < m_ends[id] ? m_rows[m_next[id]++] : none; }

private:
    std::vector<std::uint32_t> m_next;
    std::vector<std::uint32_t> m_ends;
    std::vector<std::uint32_t> m_rows;
};

struct RemovedRow {
    std::uint32_t anchor = 0;  // how many After rows stand above it
    std::uint32_t row = 0;
};

// Before's unmatched rows by their place among After's: each behind the partner of its nearest matched predecessor.
std::vector<RemovedRow> removedRows(const std::vector<std::uint32_t>& partners) {
    std::vector<RemovedRow> removed;
    std::uint32_t anchor = 0;
    for (std::size_t row = 0; row < partners.size(); ++row) {
        if (partners[row] != none) {
            anchor = partners[row] + 1;
        } else {
            removed.push_back({anchor, static_cast<std::uint32_t>(row)});
        }
    }
    std::stable_sort(
        removed.begin(), removed.end(), [](const RemovedRow& a, const RemovedRow& b) { return a.anchor < b.anchor; });
    return removed;
}

std::vector<RowPair> inDisplayOrder(const std::vector<std::uint32_t>& leftOfAfter,
                                    const std::vector<RemovedRow>& removed) {
    std::vector<RowPair> pairs;
    pairs.reserve(leftOfAfter.size() + removed.size());
    auto next = removed.begin();
    for (std::uint32_t j = 0; j <= leftOfAfter.size(); ++j) {
        for (; next != removed.end() && next->anchor == j; ++next) {
            pairs.push_back({next->row, none});
        }
        if (j < leftOfAfter.size()) {
            pairs.push_back({leftOfAfter[j], j});
        }
    }
    return pairs;
}

std::vector<RowPair> pairRows(const KeyIndex& before, const KeyIndex& after,
                              const std::vector<std::uint32_t>& beforeCounts, const CancelCheck& isCancelled) {
    RowsByKey free(before, beforeCounts);
    std::vector<std::uint32_t> leftOfAfter(after.rowCount(), none);
    std::vector<std::uint32_t> rightOfBefore(before.rowCount(), none);
    for (std::size_t j = 0; j < after.rowCount(); ++j) {
        if (j % rowsPerPoll == 0) {
            stopIfCancelled(isCancelled);
        }
        if (after.isBlank(j)) {
            continue;
        }
        leftOfAfter[j] = free.take(after.id(j));
        if (leftOfAfter[j] != none) {
            rightOfBefore[leftOfAfter[j]] = static_cast<std::uint32_t>(j);
        }
    }
    return inDisplayOrder(leftOfAfter, removedRows(rightOfBefore));
}

// The matching key of a row whose key cells are all empty.
std::string blankKey(std::size_t columns) {
    return std::string(columns == 0 ? 0 : columns - 1, RowInterner::separator);
}

// Both sides' rows by key; the key texts themselves are no longer needed.
struct KeyIndexes {
    KeyIndex before;
    KeyIndex after;
    std::size_t idCount = 0;
};

KeyIndexes indexKeys(const DataTable& before, const DataTable& after, const KeyColumns& columns,
                     const CellReduction& reduction, const CancelCheck& isCancelled) {
    const auto poll = [&](std::size_t) { stopIfCancelled(isCancelled); };
    const ComparisonTexts beforeTexts(before, columns.before, reduction, poll);
    const ComparisonTexts afterTexts(after, columns.after, reduction, poll);
    RowInterner interner(beforeTexts, afterTexts);
    auto beforeIds = interner.internBefore(poll);
    auto afterIds = interner.internAfter(poll);
    return {KeyIndex(before, columns.before, std::move(beforeIds), interner.find(blankKey(columns.before.size()))),
            KeyIndex(after, columns.after, std::move(afterIds), interner.find(blankKey(columns.after.size()))),
            interner.idCount()};
}

bool contains(const std::vector<std::size_t>& columns, std::optional<std::int64_t> column) {
    return column && std::find(columns.begin(), columns.end(), static_cast<std::size_t>(*column)) != columns.end();
}

}  // namespace

std::vector<std::size_t> keyColumns(const std::vector<std::string>& names, const DataTable& table) {
    const auto& headers = table.headers();
    std::vector<std::size_t> columns;
    for (const auto& name : names) {
        auto found = std::find(headers.begin(), headers.end(), name);
        if (found == headers.end()) {
            found = std::find_if(headers.begin(), headers.end(), [&](const auto& header) {
                return ColumnMatching::isSameName(header, name);
            });
        }
        if (found != headers.end()) {
            columns.push_back(static_cast<std::size_t>(found - headers.begin()));
        }
    }
    return columns;
}

std::vector<bool> areKeyColumns(const DiffResult& result) {
    const auto before = keyColumns(result.match.columns(), result.before);
    const auto after = keyColumns(result.match.columns(), result.after);
    std::vector<bool> areKeys;
    areKeys.reserve(result.columns.size());
    for (const ColumnPair& column : result.columns) {
        areKeys.push_back(contains(before, column.left) || contains(after, column.right));
    }
    return areKeys;
}

Matches matchByKey(const DataTable& before, const DataTable& after, const KeyColumns& columns,
                   const DiffOptions& options, NumberStyle style, const CancelCheck& isCancelled) {
    const auto [beforeIndex, afterIndex, idCount] =
        indexKeys(before, after, columns, CellReduction::ofKeys(options, style), isCancelled);
    const auto beforeCounts = beforeIndex.counts(idCount);
    Matches matches;
    beforeIndex.listDuplicates(DuplicateKey::Side::before, beforeCounts, matches.duplicates);
    afterIndex.listDuplicates(DuplicateKey::Side::after, afterIndex.counts(idCount), matches.duplicates);
    matches.blankKeys = {beforeIndex.blankRowNumbers(), afterIndex.blankRowNumbers()};
    matches.pairs = pairRows(beforeIndex, afterIndex, beforeCounts, isCancelled);
    return matches;
}

}  // namespace corvale::KeyMatching
