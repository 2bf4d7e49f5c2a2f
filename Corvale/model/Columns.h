#pragma once

#include <string>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/loading/DataTable.h"

// The columns that the user may choose among.
namespace corvale::Columns {

// Before's names, in its order, that After has too when letter case does not count: what rows may be matched by.
std::vector<std::string> shared(const DataTable& before, const DataTable& after);

// Before's names, then After's that Before lacks when letter case does not count: what may be left out of the
// comparison.
std::vector<std::string> all(const DataTable& before, const DataTable& after);

// Whether the options leave a column of this name out; letter case does not count, as in the comparison.
bool isIgnored(const DiffOptions& options, const std::string& column);

// Leaves the column out, or compares it again.
void toggleIgnored(DiffOptions& options, const std::string& column);

}  // namespace corvale::Columns
