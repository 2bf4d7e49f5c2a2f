#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "Corvale/grid/GridGeometry.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/engine/RowCells.h"

namespace corvale {

// What a cell of a line shows.
struct GridCell {
    enum class Kind : std::uint8_t {
        missing,     // the row is not on this side
        plain,       // one text
        changed,     // an old and a new value
        formatOnly,  // the same value, written differently
    };

    Kind kind = Kind::plain;
    GridGeometry::CellSide side = GridGeometry::CellSide::both;
    std::string_view text;    // plain
    std::string_view before;  // the old value, where the cell shows it
    std::string_view after;   // the new value, likewise

    friend bool operator==(const GridCell&, const GridCell&) = default;
};

// The change in a result column, of those of a row.
std::optional<ChangeKind> changeIn(std::span<const CellChange> changes, std::int64_t column);

// One line of the grid: a row of a result and how its cells are laid out. Views all it is made of, and so do the texts
// of its cells.
class GridRow {
public:
    // `index` is one into the result's rows.
    GridRow(const DiffResult& result, std::int64_t index, const GridGeometry& geometry);

    const DiffResult& result() const { return m_result; }
    const DiffRow& row() const { return m_row; }
    const GridGeometry& geometry() const { return m_geometry; }
    bool sideBySide() const { return m_geometry.view() == ViewMode::sideBySide; }

    // By a place in the layout.
    GridCell cell(std::size_t cell) const;

private:
    std::string_view plainText(const ColumnPair& column, GridGeometry::CellSide side) const;
    GridCell changedCell(const ColumnPair& column, GridGeometry::CellSide side, ChangeKind kind) const;

    const DiffResult& m_result;
    DiffRow m_row;
    const GridGeometry& m_geometry;
    RowCells m_cells;
};

}  // namespace corvale
