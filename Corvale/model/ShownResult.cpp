#include "Corvale/model/ShownResult.h"

#include <algorithm>
#include <utility>

#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

std::optional<std::int64_t> columnNamed(const DiffResult& result, const std::optional<std::string>& name) {
    const auto found = std::find_if(result.columns.begin(), result.columns.end(), [&name](const ColumnPair& column) {
        return column.name == name;
    });
    return found == result.columns.end() ? std::nullopt : std::optional(found - result.columns.begin());
}

// True when the same key names the same row in both; the row numbers that stand for keys are those of one side.
bool keysAreComparable(const RowMatch& match, const NextResult& next) {
    const auto isSame = [](const std::string& a, const std::string& b) { return Text::equalIgnoringCase(a, b); };
    return match.isKey() == next.match.isKey() && (match.isKey() || !next.isSwapped) &&
           std::equal(match.columns().begin(),
                      match.columns().end(),
                      next.match.columns().begin(),
                      next.match.columns().end(),
                      isSame);
}

std::string nameInNext(const DiffResult& result, const ColumnPair& column, const NextResult& next) {
    return next.isSwapped && column.right ? result.after.headers()[static_cast<std::size_t>(*column.right)]
                                          : column.name;
}

RowIdentity identityInNext(const DiffResult& result, const DiffRow& row, const NextResult& next) {
    RowIdentity identity;
    identity.left = next.isSwapped ? row.right : row.left;
    identity.right = next.isSwapped ? row.left : row.right;
    if (keysAreComparable(result.match, next)) {
        identity.key = std::string(row.key);
    }
    return identity;
}

bool isAtSamePlace(const DiffRow& row, const RowIdentity& wanted) {
    return (row.left && row.left == wanted.left) || (row.right && row.right == wanted.right);
}

// The row at the same place in a file, which is one row unless a pair is two now: then the first of these. Else the
// first with that key, for repeated keys move together, but rows without a key have nothing in common.
std::optional<std::int64_t> rowLike(const DiffRows& rows, const RowIdentity& wanted) {
    std::optional<std::int64_t> first;
    std::int64_t index = -1;
    for (const DiffRow row : rows) {
        ++index;
        if (wanted.key && row.key != *wanted.key) {
            continue;
        }
        if (isAtSamePlace(row, wanted)) {
            return index;
        }
        if (!first && wanted.key && !row.key.empty()) {
            first = index;
        }
    }
    return first;
}

}  // namespace

ResultView viewOf(const DiffResult& result, const DiffFilter& filter, std::optional<std::int64_t> selectedRow,
                  const NextResult& next) {
    ResultView view;
    view.filter = filter;
    if (filter.column) {
        view.columnName = nameInNext(result, result.columns[static_cast<std::size_t>(*filter.column)], next);
    }
    if (selectedRow) {
        view.selectedRow = identityInNext(result, result.rows[static_cast<std::size_t>(*selectedRow)], next);
    }
    return view;
}

std::optional<std::int64_t> rowIn(const DiffResult& result, const std::optional<RowIdentity>& row) {
    return row ? rowLike(result.rows, *row) : std::nullopt;
}

DiffFilter filterIn(const DiffResult& result, const ResultView& view) {
    DiffFilter filter = view.filter;
    filter.column = view.columnName ? columnNamed(result, view.columnName) : std::nullopt;
    return filter;
}

ShownResult show(std::shared_ptr<const DiffResult> result, ResultView view, const CancelCheck& isCancelled) {
    ShownResult shown;
    shown.filter = filterIn(*result, view);
    shown.visible = shown.filter.apply(*result, isCancelled);
    shown.selectedRow = rowIn(*result, view.selectedRow);
    shown.result = std::move(result);
    shown.view = std::move(view);
    return shown;
}

}  // namespace corvale
