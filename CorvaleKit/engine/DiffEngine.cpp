#include "CorvaleKit/engine/DiffEngine.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/CellReduction.h"
#include "CorvaleKit/engine/ColumnMatching.h"
#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/KeyMatching.h"
#include "CorvaleKit/engine/Normalizer.h"
#include "CorvaleKit/engine/RowComparison.h"
#include "CorvaleKit/engine/RowOrderAlignment.h"

namespace corvale::DiffEngine {

namespace {

constexpr std::size_t styleSampleRows = 3000;
constexpr double textsShare = 0.7;     // of the progress: both sides' comparison texts
constexpr double matchedShare = 0.85;  // and the matched rows

// The compared columns, in result order: their places in the result and in each table.
struct ComparedColumns {
    std::vector<std::int32_t> results;
    std::vector<std::size_t> before;
    std::vector<std::size_t> after;
};

ComparedColumns comparedColumns(const std::vector<ColumnPair>& columns) {
    ComparedColumns compared;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].isCompared()) {
            compared.results.push_back(static_cast<std::int32_t>(i));
            compared.before.push_back(static_cast<std::size_t>(*columns[i].left));
            compared.after.push_back(static_cast<std::size_t>(*columns[i].right));
        }
    }
    return compared;
}

void count(DiffSummary& summary, DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            ++summary.added;
            return;
        case DiffRow::Status::removed:
            ++summary.removed;
            return;
        case DiffRow::Status::changed:
            ++summary.changed;
            return;
        case DiffRow::Status::same:
            ++summary.same;
            return;
    }
}

// One comparison under way: its stages in order.
class Comparison {
public:
    Comparison(const DataTable& before, const DataTable& after, const RowMatch& match, const DiffOptions& options,
               const Callbacks& callbacks)
        : m_callbacks(callbacks),
          m_totalRows(static_cast<double>(std::max<std::size_t>(1, before.rows().size() + after.rows().size()))) {
        m_result.before = before;
        m_result.after = after;
        m_result.match = match;
        m_result.options = options;
    }

    DiffResult run(NumberStyle localeStyle) {
        const auto start = std::chrono::steady_clock::now();
        pairColumns();
        resolveStyle(localeStyle);
        const ComparisonTexts before = texts(m_result.before, m_compared.before, 0);
        const ComparisonTexts after = texts(m_result.after, m_compared.after, m_result.before.rows().size());
        const auto rows = matchRows(before, after);
        report(matchedShare);
        buildRows(rows, before, after);
        report(1.0);
        m_result.duration = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return std::move(m_result);
    }

private:
    void report(double fraction) const {
        if (m_callbacks.progress) {
            m_callbacks.progress(fraction);
        }
    }

    void pairColumns() {
        m_result.columns =
            ColumnMatching::pairColumns(m_result.before, m_result.after, m_result.options, m_result.match.columns());
        m_result.columnOrderChanged = ColumnMatching::columnOrderChanged(m_result.columns);
        m_compared = comparedColumns(m_result.columns);
        for (const ColumnPair& column : m_result.columns) {
            m_result.summary.addedColumns += column.left ? 0 : 1;
            m_result.summary.removedColumns += column.right ? 0 : 1;
        }
    }

    void resolveStyle(NumberStyle localeStyle) {
        m_result.numberStyle = m_result.options.numberStyle;
        if (m_result.numberStyle == NumberStyle::automatic) {
            m_result.numberStyle = Normalizer::detectStyle(
                {m_result.before, m_compared.before}, {m_result.after, m_compared.after}, styleSampleRows, localeStyle);
        }
    }

    // `rowsDone` rows of the other side came before.
    ComparisonTexts texts(const DataTable& table, const std::vector<std::size_t>& columns, std::size_t rowsDone) const {
        return {table, columns, CellReduction::ofCells(m_result.options, m_result.numberStyle), [&](std::size_t row) {
                    stopIfCancelled(m_callbacks.isCancelled);
                    report(static_cast<double>(rowsDone + row) * textsShare / m_totalRows);
                }};
    }

    RowOrderAlignment::AlignedRows matchRows(const ComparisonTexts& before, const ComparisonTexts& after) {
        if (!m_result.match.isKey()) {
            return RowOrderAlignment::align(before, after, m_callbacks.isCancelled);
        }
        const auto& names = m_result.match.columns();
        KeyMatching::KeyColumns columns{KeyMatching::keyColumns(names, m_result.before),
                                        KeyMatching::keyColumns(names, m_result.after)};
        const bool hasKey = columns.before.size() == names.size() && columns.after.size() == names.size();
        if (!hasKey) {
            columns = {};
        }
        auto matches = KeyMatching::matchByKey(
            m_result.before, m_result.after, columns, m_result.options, m_result.numberStyle, m_callbacks.isCancelled);
        m_result.duplicates = std::move(matches.duplicates);
        if (hasKey) {
            m_result.blankKeys = std::move(matches.blankKeys);
        }
        m_rowKeys = {false, columns.before, columns.after};
        return {std::move(matches.pairs), {}};
    }

    void buildRows(const RowOrderAlignment::AlignedRows& matched, const ComparisonTexts& before,
                   const ComparisonTexts& after) {
        const auto& pairs = matched.pairs;
        DiffRows::Builder rows(m_result.before, m_result.after, std::move(m_rowKeys), pairs.size());
        RowComparison comparison;
        std::vector<std::int64_t> changes(m_result.columns.size(), 0);
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            if (i % rowsPerPoll == 0) {
                stopIfCancelled(m_callbacks.isCancelled);
            }
            const bool areSame = i < matched.areSame.size() && matched.areSame[i];
            if (pairs[i].hasLeft() && pairs[i].hasRight() && !areSame) {
                const auto left = before.row(pairs[i].left);
                const auto right = after.row(pairs[i].right);
                comparison.forEachDifference(left, right, [&](std::size_t position) {
                    const std::int32_t column = m_compared.results[position];
                    rows.addChange(column, classify(pairs[i], position));
                    ++changes[static_cast<std::size_t>(column)];
                });
            }
            count(m_result.summary, rows.add(pairs[i]));
        }
        for (std::size_t column = 0; column < changes.size(); ++column) {
            if (changes[column] > 0) {
                m_result.summary.changesByColumn[static_cast<std::int64_t>(column)] = changes[column];
            }
        }
        m_result.rows = rows.finish();
    }

    ChangeKind classify(RowPair pair, std::size_t position) {
        const ChangeKind kind = Normalizer::classify(m_result.before.rows()[pair.left][m_compared.before[position]],
                                                     m_result.after.rows()[pair.right][m_compared.after[position]],
                                                     m_result.numberStyle);
        ++m_result.summary.changedCells;
        m_result.summary.typeOnlyCells += kind == ChangeKind::value ? 0 : 1;
        return kind;
    }

    const Callbacks& m_callbacks;
    double m_totalRows;
    DiffResult m_result;
    ComparedColumns m_compared;
    RowKeys m_rowKeys;
};

}  // namespace

DiffResult compare(const DataTable& before, const DataTable& after, const RowMatch& match, const DiffOptions& options,
                   NumberStyle localeStyle, const Callbacks& callbacks) {
    return Comparison(before, after, match, options, callbacks).run(localeStyle);
}

}  // namespace corvale::DiffEngine
