#include "CorvaleKit/engine/RowSimilarity.h"

namespace corvale {

// Ends as soon as the answer is settled: unrelated rows are told apart by half of their cells.
bool RowSimilarity::areSimilar(std::size_t before, std::size_t after) const {
    if (m_columnCount < 2) {
        return true;
    }
    const auto beforeRow = m_before.row(before);
    const auto afterRow = m_after.row(after);
    std::size_t missing = (m_columnCount + 1) / 2;
    for (std::size_t position = 0; m_columnCount - position >= missing; ++position) {
        if (beforeRow[position] == afterRow[position] && --missing == 0) {
            return true;
        }
    }
    return false;
}

std::optional<std::size_t> RowSimilarity::equalCells(std::size_t before, std::size_t after) const {
    const auto beforeRow = m_before.row(before);
    const auto afterRow = m_after.row(after);
    std::size_t equal = 0;
    for (std::size_t position = 0; position < m_columnCount; ++position) {
        equal += beforeRow[position] == afterRow[position] ? 1 : 0;
        if (!isEnough(equal + (m_columnCount - position - 1))) {
            return std::nullopt;
        }
    }
    return equal;
}

}  // namespace corvale
