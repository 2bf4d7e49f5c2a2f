#include "Corvale/grid/GridRow.h"

#include <algorithm>

namespace corvale {

using CellSide = GridGeometry::CellSide;

std::optional<ChangeKind> changeIn(std::span<const CellChange> changes, std::int64_t column) {
    const auto found = std::partition_point(
        changes.begin(), changes.end(), [column](const CellChange& change) { return change.column < column; });
    return found != changes.end() && found->column == column ? std::optional(found->kind) : std::nullopt;
}

GridRow::GridRow(const DiffResult& result, std::int64_t index, const GridGeometry& geometry)
    : m_result(result),
      m_row(result.rows[static_cast<std::size_t>(index)]),
      m_geometry(geometry),
      m_cells(result, m_row) {}

GridCell GridRow::cell(std::size_t cell) const {
    const GridGeometry::Cell& place = m_geometry.cells()[cell];
    const ColumnPair& column = m_result.columns[static_cast<std::size_t>(place.column)];
    const bool isMissing =
        (place.side == CellSide::before && !m_row.left) || (place.side == CellSide::after && !m_row.right);
    if (isMissing) {
        return {GridCell::Kind::missing, place.side, {}, {}, {}};
    }
    if (const auto kind = changeIn(m_row.changes, place.column)) {
        return changedCell(column, place.side, *kind);
    }
    return {GridCell::Kind::plain, place.side, plainText(column, place.side), {}, {}};
}

std::string_view GridRow::plainText(const ColumnPair& column, CellSide side) const {
    switch (side) {
        case CellSide::before:
            return m_cells.before(column);
        case CellSide::after:
            return m_cells.after(column);
        case CellSide::both:
            break;
    }
    return m_cells.shown(column);
}

GridCell GridRow::changedCell(const ColumnPair& column, CellSide side, ChangeKind kind) const {
    GridCell cell;
    cell.kind = kind == ChangeKind::value ? GridCell::Kind::changed : GridCell::Kind::formatOnly;
    cell.side = side;
    if (side != CellSide::after) {
        cell.before = m_cells.before(column);
    }
    if (side != CellSide::before) {
        cell.after = m_cells.after(column);
    }
    return cell;
}

}  // namespace corvale
