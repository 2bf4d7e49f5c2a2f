#pragma once

#include <optional>

#include "CorvaleKit/engine/DiffOptions.h"
#include "cli/Arguments.h"
#include "cli/TableLoading.h"

namespace corvale::Cli {

// How rows will be matched, and whether the program chose it.
struct MatchChoice {
    RowMatch match;
    bool isSuggested = false;
};

// `wanted` as it stands when both tables have its key columns, else a ColumnFailure that names the file; without it the
// suggested key, and row order where there is none.
MatchChoice chooseMatch(const std::optional<RowMatch>& wanted, const PairChoice& files, const TablePair& tables);

}  // namespace corvale::Cli
