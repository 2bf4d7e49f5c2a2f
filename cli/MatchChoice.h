#pragma once

#include <optional>
#include <string>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "cli/Arguments.h"
#include "cli/TableLoading.h"

namespace corvale::Cli {

// A column that was asked for and is not there.
class ColumnFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// How rows will be matched, and whether the program chose it.
struct MatchChoice {
    RowMatch match;
    bool isSuggested = false;
};

// `wanted` as it stands when both tables have its key columns, else a ColumnFailure that names the file; without it the
// suggested key, and row order where there is none.
MatchChoice chooseMatch(const std::optional<RowMatch>& wanted, const PairChoice& files, const TablePair& tables);

// The filter for a result's list; its column is found by name, equal as it stands or else ignoring letter case. Throws
// ColumnFailure.
DiffFilter listFilter(const ListChoice& list, const std::vector<ColumnPair>& columns);

}  // namespace corvale::Cli
