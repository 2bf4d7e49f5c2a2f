#include "Corvale/grid/RowField.h"

#include "Corvale/grid/GridRow.h"
#include "Corvale/grid/VisibleSpaces.h"
#include "CorvaleKit/engine/RowCells.h"

namespace corvale {

RowField RowField::of(const DiffResult& result, const GridColumns& columns, std::int64_t row, std::size_t column) {
    const DiffRow diffRow = result.rows[static_cast<std::size_t>(row)];
    const ColumnPair& pair = result.columns[column];
    const RowCells cells(result, diffRow);
    RowField field;
    field.name = columns.name(static_cast<std::int64_t>(column), GridGeometry::CellSide::both);
    field.isKey = columns.isKey(static_cast<std::int64_t>(column));
    if (diffRow.left && pair.left) {
        field.before = cells.before(pair);
    }
    if (diffRow.right && pair.right) {
        field.after = cells.after(pair);
    }
    if (const auto kind = changeIn(diffRow.changes, static_cast<std::int64_t>(column))) {
        field.kind = *kind == ChangeKind::value ? Kind::changed : Kind::formatOnly;
        field.isSpacing = *kind == ChangeKind::whitespace;
    }
    return field;
}

bool RowField::showsSpaces() const {
    return isSpacing || (kind != Kind::plain && before && after && differOnlyInSpaces(*before, *after));
}

}  // namespace corvale
