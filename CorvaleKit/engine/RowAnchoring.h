#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "CorvaleKit/engine/PollMeter.h"

// Finds identical rows that keep their order: between them, rows are paired by similarity.
namespace corvale::RowAnchoring {

// The rows of both tables as numbers below `count`; equal numbers stand for identical rows.
struct RowIds {
    std::vector<std::uint32_t> before;
    std::vector<std::uint32_t> after;
    std::size_t count = 0;
};

// For each Before row the After row that it is anchored to, or RowPair::none; those that are increase. Common head and
// tail first, then rows that are unique on both sides, and again between those; short stretches without any are
// anchored by their minimal difference. Time n log n and memory n on any input. Throws Cancelled.
std::vector<std::uint32_t> partners(const RowIds& ids, PollMeter& meter);

}  // namespace corvale::RowAnchoring
