#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Corvale/grid/GridGeometry.h"
#include "CorvaleKit/engine/DiffResult.h"

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

// One line of the grid: a row of a result and how its cells are laid out. Views all it is made of, and so do the texts
// of its cells.
class GridRow {
public:
    GridRow(const DiffResult& result, std::int64_t index, const GridGeometry& layout);

    const DiffResult& result() const { return m_result; }
    // An index into the result's rows.
    std::int64_t index() const { return m_index; }
    const DiffRow& row() const { return m_row; }
    const GridGeometry& layout() const { return m_layout; }
    bool sideBySide() const { return m_layout.view() == ViewMode::sideBySide; }

    // By a place in the layout.
    GridCell cell(std::size_t cell) const;
    // The change in a result column.
    std::optional<ChangeKind> change(std::int64_t column) const;

private:
    std::string_view plainText(const ColumnPair& column, GridGeometry::CellSide side) const;
    GridCell changedCell(const ColumnPair& column, GridGeometry::CellSide side, ChangeKind kind) const;

    const DiffResult& m_result;
    std::int64_t m_index;
    DiffRow m_row;
    const GridGeometry& m_layout;
    RowCells m_cells;
};

}  // namespace corvale
