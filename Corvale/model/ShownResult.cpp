#include "Corvale/model/ShownResult.h"

#include <algorithm>
#include <utility>

namespace corvale {

namespace {

std::optional<std::int64_t> columnNamed(const DiffResult& result, const std::optional<std::string>& name) {
    const auto found = std::find_if(result.columns.begin(), result.columns.end(),
                                    [&name](const ColumnPair& column) { return column.name == name; });
    return found == result.columns.end() ? std::nullopt : std::optional(found - result.columns.begin());
}

bool isAtSamePlace(const DiffRow& row, const RowIdentity& wanted) {
    return (row.left && row.left == wanted.left) || (row.right && row.right == wanted.right);
}

// The row with that key at the same place in a file; else the first with that key, for repeated keys move together, but
// rows without a key have nothing in common.
std::optional<std::int64_t> rowLike(const DiffRows& rows, const RowIdentity& wanted) {
    std::optional<std::int64_t> first;
    std::int64_t index = 0;
    for (const DiffRow row : rows) {
        if (row.key == wanted.key) {
            if (isAtSamePlace(row, wanted)) {
                return index;
            }
            if (!first && !row.key.empty()) {
                first = index;
            }
        }
        ++index;
    }
    return first;
}

}  // namespace

ShownResult show(std::shared_ptr<const DiffResult> result, ResultView view) {
    ShownResult shown;
    shown.filter = view.filter;
    shown.filter.column = view.columnName ? columnNamed(*result, view.columnName) : std::nullopt;
    shown.visible = shown.filter.apply(*result);
    if (view.selectedRow) {
        shown.selectedRow = rowLike(result->rows, *view.selectedRow);
    }
    shown.result = std::move(result);
    shown.view = std::move(view);
    return shown;
}

}  // namespace corvale
