#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "CorvaleKit/engine/DiffResult.h"

// Steps from one changed cell of the listed rows to the next, in reading order and round in a circle. Costs a look at
// each row passed over.
namespace corvale::ChangeWalk {

// A changed cell of a line, which is a place in the list of visible rows.
struct Stop {
    std::int64_t line = 0;
    std::size_t change = 0;  // index into the row's changes

    friend bool operator==(const Stop&, const Stop&) = default;
};

// Where to step from: a changed cell, or a line before its first cell, or nowhere.
struct Start {
    std::optional<std::int64_t> line;
    std::optional<std::size_t> change;
};

struct Step {
    Stop stop;
    bool wrapped = false;  // the list began again to get there

    friend bool operator==(const Step&, const Step&) = default;
};

// None when no visible row has a changed cell.
std::optional<Step> next(const DiffResult& result, const std::vector<std::int64_t>& visible, const Start& start);
std::optional<Step> previous(const DiffResult& result, const std::vector<std::int64_t>& visible, const Start& start);

}  // namespace corvale::ChangeWalk
