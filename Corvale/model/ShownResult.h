#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// A row as the user knows it, whatever its index in a result.
struct RowIdentity {
    std::optional<std::string> key;    // none where the keys of the next result mean something else
    std::optional<std::int64_t> left;  // row indexes, to tell repeated keys apart
    std::optional<std::int64_t> right;

    friend bool operator==(const RowIdentity&, const RowIdentity&) = default;
};

// How the user was looking at a result, in terms that also hold for the next one.
struct ResultView {
    DiffFilter filter;                      // its column counts only through columnName
    std::optional<std::string> columnName;  // of the filter's column
    std::optional<RowIdentity> selectedRow;

    friend bool operator==(const ResultView&, const ResultView&) = default;
};

// What is known of the next result.
struct NextResult {
    RowMatch match;
    bool isSwapped = false;  // its Before is the After of the result at hand
};

// `filter` and `selectedRow` are of that result.
ResultView viewOf(const DiffResult& result, const DiffFilter& filter, std::optional<std::int64_t> selectedRow,
                  const NextResult& next);

// A result with all that is shown of it.
struct ShownResult {
    std::shared_ptr<const DiffResult> result;
    DiffFilter filter;
    std::vector<std::int64_t> visible;  // indexes into the result's rows that pass the filter, ascending
    std::optional<std::int64_t> selectedRow;
    ResultView view;  // from which the rest follows
};

// Carries a view over to a result: a column that is gone no longer filters, and a row that is gone is not selected.
// Linear in the rows; on any thread. Throws Cancelled when asked to stop.
ShownResult show(std::shared_ptr<const DiffResult> result, ResultView view, const CancelCheck& isCancelled = {});

// The row of a result that a row is carried over to; none where it is gone. Linear in the rows.
std::optional<std::int64_t> rowIn(const DiffResult& result, const std::optional<RowIdentity>& row);

// The filter of a view with its column as the result numbers it.
DiffFilter filterIn(const DiffResult& result, const ResultView& view);

}  // namespace corvale
