#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "CorvaleKit/engine/RowPair.h"

namespace corvale {

// Consecutive rows of Before and of After that are looked at together. The ends are one past the last row.
struct RowStretch {
    std::uint32_t beforeBegin = 0;
    std::uint32_t beforeEnd = 0;
    std::uint32_t afterBegin = 0;
    std::uint32_t afterEnd = 0;

    std::size_t beforeCount() const { return beforeEnd - beforeBegin; }
    std::size_t afterCount() const { return afterEnd - afterBegin; }
    // Of both sides together.
    std::size_t rowCount() const { return beforeCount() + afterCount(); }
    // True when no pair can come of it.
    bool lacksASide() const { return beforeBegin == beforeEnd || afterBegin == afterEnd; }

    friend bool operator==(const RowStretch&, const RowStretch&) = default;
};

// Appends the rows of both sides alone, Before's first.
inline void appendUnpaired(const RowStretch& rows, std::vector<RowPair>& pairs) {
    for (std::uint32_t row = rows.beforeBegin; row < rows.beforeEnd; ++row) {
        pairs.push_back({row, RowPair::none});
    }
    for (std::uint32_t row = rows.afterBegin; row < rows.afterEnd; ++row) {
        pairs.push_back({RowPair::none, row});
    }
}

}  // namespace corvale
