#include "CorvaleKit/engine/RowSimilarity.h"

namespace corvale {

std::optional<std::size_t> RowSimilarity::equalCells(std::size_t before, std::size_t after) {
    std::size_t equal = m_columnCount;
    const bool differTooMuch = m_comparison.anyDifference(
        m_before.row(before), m_after.row(after), [&](std::size_t) { return !isEnough(--equal); });
    return differTooMuch ? std::nullopt : std::optional(equal);
}

}  // namespace corvale
