#pragma once

#include <cstddef>
#include <string>

namespace corvale::benchmarks {

// Two versions of one order list as CSV.
struct CSVPair {
    std::string before;
    std::string after;
};

struct PairOptions {
    std::size_t rows = 0;
    bool everyRowChanged = false;  // else about one row in a hundred
};

// The same pair on every machine: ten columns, 0.5 % of the rows removed, as many added, 0.2 % changed in letter case
// only.
CSVPair makePair(const PairOptions& options);

// A table of `rows` × 10 that shares no row with another seed's.
std::string makeUnrelated(std::size_t rows, unsigned seed);

}  // namespace corvale::benchmarks
