#pragma once

#include <cstdint>
#include <vector>

#include "CorvaleKit/engine/PollMeter.h"

namespace corvale {

// Where one row stands in both tables.
struct RowPoint {
    std::uint32_t before = 0;
    std::uint32_t after = 0;

    friend bool operator==(const RowPoint&, const RowPoint&) = default;
};

// Finds the longest list of points that increases on both sides.
class LongestChain {
public:
    // `points` stand in increasing order of Before, and no two share an After row. Of several longest chains the one is
    // taken that ends in the last possible point and whose every member follows the last possible predecessor. Time
    // n log n, and n for points that increase already. Throws Cancelled.
    std::vector<RowPoint> of(const std::vector<RowPoint>& points, PollMeter& meter);

private:
    std::vector<std::uint32_t> m_last;         // by chain length - 1: the point that ends such a chain lowest in After
    std::vector<std::uint32_t> m_predecessor;  // by point
};

}  // namespace corvale
