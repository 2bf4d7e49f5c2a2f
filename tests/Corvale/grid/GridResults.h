#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "tests/support/Tables.h"

// Results to show in a grid.
namespace corvale::GridResults {

// Two CSV texts compared by the column named `key`, or by row order where it is empty.
inline DiffResult compared(std::string_view before, std::string_view after, const std::string& key = "ID",
                           const DiffOptions& options = {}) {
    const RowMatch match = key.empty() ? RowMatch::rowOrder() : RowMatch::key({key});
    return DiffEngine::compare(Tables::table(before, "before.csv"),
                               Tables::table(after, "after.csv"),
                               match,
                               options,
                               NumberStyle::dotDecimal);
}

// All rows of a result.
inline std::vector<std::int64_t> allRows(const DiffResult& result) {
    std::vector<std::int64_t> rows(result.rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i] = static_cast<std::int64_t>(i);
    }
    return rows;
}

}  // namespace corvale::GridResults
