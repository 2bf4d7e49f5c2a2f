#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "Corvale/grid/GridLayout.h"
#include "Corvale/model/AppSettings.h"
#include "Corvale/style/Metrics.h"
#include "CorvaleKit/engine/DiffRow.h"

namespace corvale {

// Where the cells of a line are. A line is wider than the viewport and scrolls under what is pinned at its left: the
// leading block always, and in the unified view the key column, as soon as it would scroll away, while both leave most
// of the viewport free. `scroll` is how far the line is scrolled, in pixels; other positions are pixels of the
// viewport. Costs the logarithm of the number of columns, and what is on screen.
class GridGeometry {
public:
    // Which value a cell shows.
    enum class CellSide : std::uint8_t { both, before, after };

    // A place in a line, named by its index from left to right.
    struct Cell {
        std::int64_t column = 0;  // index into DiffResult::columns
        CellSide side = CellSide::both;
        int left = 0;  // in the unscrolled line
        int right = 0;

        int width() const { return right - left; }
        friend bool operator==(const Cell&, const Cell&) = default;
    };

    // Cells [begin, end).
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
        friend bool operator==(const Range&, const Range&) = default;
    };

    // Where a cell is that hardly shows.
    enum class Place : std::uint8_t { onScreen, leftOfIt, rightOfIt };

    // The nearest cells on either side out of view.
    struct OutOfView {
        std::optional<std::size_t> left;
        std::optional<std::size_t> right;
        friend bool operator==(const OutOfView&, const OutOfView&) = default;
    };

    static constexpr int leadingWidth = static_cast<int>(GridLayout::leadingWidth);
    static constexpr int numbersWidth = static_cast<int>(GridLayout::numbersWidth);
    // Of the status and its header.
    static constexpr int statusLeft = numbersWidth + Metrics::gridCellPadding;

    GridGeometry() = default;
    // `keyColumn` is the one that may be pinned, an index into DiffResult::columns.
    GridGeometry(const GridLayout& layout, ViewMode view, std::optional<std::int64_t> keyColumn, int viewportWidth);

    const std::vector<Cell>& cells() const { return m_cells; }
    ViewMode view() const { return m_view; }
    int contentWidth() const { return m_contentWidth; }
    int viewportWidth() const { return m_viewportWidth; }
    int maximumScroll() const;
    // The left edge of the gap between the halves in the unscrolled line; side by side only.
    int gapLeft() const { return m_gapLeft; }

    // The key column while it stays behind at the left.
    std::optional<std::size_t> pinnedCell(int scroll) const;
    // Where the scrolling part of a line begins.
    int scrolledAreaLeft(int scroll) const;
    // The cells that show in the scrolling part, the pinned one left out unless it is among them.
    Range visibleCells(int scroll) const;
    int screenLeft(std::size_t cell, int scroll) const;
    // The width that shows.
    int shownWidth(std::size_t cell, int scroll) const;
    std::optional<std::size_t> cellAt(int x, int scroll) const;

    // A cell is out of view when less than 44 pixels of it show.
    Place place(std::size_t cell, int scroll) const;
    OutOfView outOfView(std::span<const CellChange> changes, int scroll) const;
    // The scroll nearest to `scroll` at which the cell shows whole, or its left part when it is too wide.
    int scrollToShow(std::size_t cell, int scroll) const;

    // Where a column is shown; for a column that only After has, side by side, its After cell.
    std::optional<std::size_t> cellOfColumn(std::int64_t column) const;

private:
    void appendCells(const GridLayout& layout, const std::vector<std::int64_t>& columns, CellSide side, double& x);
    void indexColumns(std::size_t count);
    void noteOutOfView(std::size_t cell, int scroll, OutOfView& found) const;

    ViewMode m_view = ViewMode::unified;
    int m_viewportWidth = 0;
    int m_contentWidth = leadingWidth;
    int m_gapLeft = 0;
    std::vector<Cell> m_cells;
    std::optional<std::size_t> m_pinnable;
    // By column: its cells, `none` where it has no such one. Unified, the first holds all.
    std::vector<std::size_t> m_firstCell;
    std::vector<std::size_t> m_afterCell;
};

}  // namespace corvale
