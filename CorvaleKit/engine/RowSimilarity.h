#pragma once

#include <cstddef>
#include <optional>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/RowComparison.h"

namespace corvale {

// How far a Before row and an After row agree, cell by cell.
class RowSimilarity {
public:
    // Both sides have the same number of columns and must outlive this object.
    RowSimilarity(const ComparisonTexts& before, const ComparisonTexts& after)
        : m_before(before), m_after(after), m_columnCount(before.columnCount()) {}

    std::size_t columnCount() const { return m_columnCount; }

    // True when that many equal cells make two rows similar: at least half of them. A single column says too little, so
    // that its rows always are.
    bool isEnough(std::size_t equalCells) const { return m_columnCount < 2 || 2 * equalCells >= m_columnCount; }
    bool areSimilar(std::size_t before, std::size_t after) { return equalCells(before, after).has_value(); }

    // The number of equal cells of similar rows; none for other rows, which half of their cells tell.
    std::optional<std::size_t> equalCells(std::size_t before, std::size_t after);

private:
    const ComparisonTexts& m_before;
    const ComparisonTexts& m_after;
    std::size_t m_columnCount;
    RowComparison m_comparison;
};

}  // namespace corvale
