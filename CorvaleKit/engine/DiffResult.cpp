#include "CorvaleKit/engine/DiffResult.h"

#include "CorvaleKit/engine/RowCells.h"

namespace corvale {

namespace {

std::optional<std::int64_t> number(const DataTable& table, std::optional<std::int64_t> row) {
    return row ? std::optional(table.rowNumber(static_cast<std::size_t>(*row))) : std::nullopt;
}

}  // namespace

bool DiffSummary::hasDifferences() const {
    return added > 0 || removed > 0 || changed > 0 || addedColumns > 0 || removedColumns > 0;
}

std::string_view DiffResult::cellBefore(const DiffRow& row, const ColumnPair& column) const& {
    return RowCells(*this, row).before(column);
}

std::string_view DiffResult::cellAfter(const DiffRow& row, const ColumnPair& column) const& {
    return RowCells(*this, row).after(column);
}

std::optional<std::int64_t> DiffResult::rowNumber(DuplicateKey::Side side, const DiffRow& row) const {
    return side == DuplicateKey::Side::before ? number(before, row.left) : number(after, row.right);
}

std::int64_t DiffResult::rowNumber(const DiffRow& row) const {
    return row.right ? *number(after, row.right) : *number(before, row.left);
}

}  // namespace corvale
