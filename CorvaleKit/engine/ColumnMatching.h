#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/loading/DataTable.h"

// Which column of Before is which column of After.
namespace corvale::ColumnMatching {

// What two headers share when they are the same name: lower-cased, without outer spaces and tabs.
std::string foldedName(std::string_view header);

// Equal as they stand, or ignoring letter case once trimmed of spaces and tabs.
bool isSameName(std::string_view a, std::string_view b);

// The columns of a result in display order: by name, or by position where options.ignoreColumnOrder is off.
// `keyColumns` are the key names of the row match, empty for row order.
std::vector<ColumnPair> pairColumns(const DataTable& before, const DataTable& after, const DiffOptions& options,
                                    const std::vector<std::string>& keyColumns);

// True when the columns on both sides, ignored ones included, stand in another order in After.
bool columnOrderChanged(const std::vector<ColumnPair>& columns);

}  // namespace corvale::ColumnMatching
