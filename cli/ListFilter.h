#pragma once

#include <vector>

#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "cli/Arguments.h"

namespace corvale::Cli {

// The filter for a result's list; its column is found by name, equal as it stands or else ignoring letter case. Throws
// ColumnFailure.
DiffFilter listFilter(const ListChoice& list, const std::vector<ColumnPair>& columns);

}  // namespace corvale::Cli
