#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/engine/RowPair.h"
#include "CorvaleKit/loading/DataTable.h"

// Pairs rows that have the same key.
namespace corvale::KeyMatching {

// For each name the first header that equals it exactly, else the first that does ignoring letter case once both are
// trimmed of spaces and tabs. A name without a header is left out.
std::vector<std::size_t> keyColumns(const std::vector<std::string>& names, const DataTable& table);

// For each column of a result, whether rows are matched by it on either side; none is where they are matched by order.
std::vector<bool> areKeyColumns(const DiffResult& result);

struct Matches {
    std::vector<RowPair> pairs;            // in display order
    std::vector<DuplicateKey> duplicates;  // Before entries first, each side by the first row of the key
    BlankKeys blankKeys;
};

// The key columns of each side.
struct KeyColumns {
    std::vector<std::size_t> before;
    std::vector<std::size_t> after;
};

// After's order, each removed row right behind the row that its nearest matched predecessor was paired with. Repeats of
// a key are paired in order; rows whose key is blank never. `style` is resolved. Linear in the rows. Throws Cancelled.
Matches matchByKey(const DataTable& before, const DataTable& after, const KeyColumns& columns,
                   const DiffOptions& options, NumberStyle style, const CancelCheck& isCancelled);

}  // namespace corvale::KeyMatching
