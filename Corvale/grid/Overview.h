#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "CorvaleKit/engine/DiffRow.h"

// The whole result in a few pixels: where its added, removed and changed rows are.
namespace corvale::Overview {

// From left to right.
enum class Lane : std::uint8_t { removed, changed, added };
constexpr std::size_t lanes = 3;

// How many rows of each kind there are in equal stretches of a result.
struct Counts {
    std::int64_t rows = 0;
    std::vector<std::array<std::int32_t, lanes>> stretches;  // one a row, or 4096 where there are more rows

    friend bool operator==(const Counts&, const Counts&) = default;
};

// Linear in the rows; on any thread.
Counts count(const DiffRows& rows);

// A coloured bar of one lane; pixels from the top.
struct Mark {
    Lane lane = Lane::changed;
    double top = 0;
    double height = 0;
    double opacity = 1;

    friend bool operator==(const Mark&, const Mark&) = default;
};

// One mark a row where each can have two pixels, else bins of two pixels which say by their opacity, from 45 % up, how
// large the share of such rows is. Lane by lane, from the top.
std::vector<Mark> marks(const Counts& counts, int height);

// The pixel at which a row begins, and the row at a pixel; both moved into bounds.
double topOfRow(std::int64_t row, std::int64_t rows, int height);
std::int64_t rowAt(double y, std::int64_t rows, int height);

}  // namespace corvale::Overview
