#pragma once

#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/loading/DataTable.h"

// Ranks the columns that two tables share by how well each would identify a row.
namespace corvale::KeySuggester {

struct Candidate {
    std::string column;     // Before's header as written, not trimmed
    double uniqueness = 0;  // 0 to 1: distinct values / filled cells, the worse side
    double overlap = 0;     // 0 to 1: share of Before's distinct values that After has
    double score = 0;       // ranking value, higher is better; not a ratio

    friend bool operator==(const Candidate&, const Candidate&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const Candidate& c) {
        return H::combine(std::move(state), c.column, c.uniqueness, c.overlap, c.score);
    }
};

// Best first; equal scores keep Before's column order. Reads the cells of at most 50,000 rows a side, and cannot be
// interrupted. Empty when no column is shared and filled on both sides.
std::vector<Candidate> candidates(const DataTable& before, const DataTable& after);

// The best candidate's column when it is unique enough and the sides share enough of it; none means row order.
std::optional<std::string> suggestedKey(const DataTable& before, const DataTable& after);
// The same choice among candidates already ranked.
std::optional<std::string> suggestedKey(const std::vector<Candidate>& ranked);

}  // namespace corvale::KeySuggester
