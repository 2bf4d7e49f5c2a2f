#include "Corvale/grid/GridGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Corvale/style/Metrics.h"

namespace corvale {

namespace {

constexpr std::size_t none = std::numeric_limits<std::size_t>::max();
constexpr double mostPinned = 0.45;  // of the viewport's width

int rounded(double x) { return static_cast<int>(std::lround(x)); }

}  // namespace

GridGeometry::GridGeometry(const GridLayout& layout, ViewMode view, std::optional<std::int64_t> keyColumn,
                           int viewportWidth)
    : m_view(view), m_viewportWidth(viewportWidth), m_contentWidth(rounded(layout.contentWidth(view))) {
    double x = GridLayout::leadingWidth;
    if (view == ViewMode::unified) {
        appendCells(layout, layout.columns, CellSide::both, x);
    } else {
        appendCells(layout, layout.beforeColumns, CellSide::before, x);
        m_gapLeft = rounded(x);
        x += GridLayout::gapWidth;
        appendCells(layout, layout.afterColumns, CellSide::after, x);
    }
    indexColumns(layout.columns.size());
    if (view == ViewMode::unified && keyColumn) {
        const auto key = cellOfColumn(*keyColumn);
        if (key && leadingWidth + m_cells[*key].width() <= mostPinned * viewportWidth) {
            m_pinnable = key;
        }
    }
}

void GridGeometry::appendCells(const GridLayout& layout, const std::vector<std::int64_t>& columns, CellSide side,
                               double& x) {
    for (const std::int64_t column : columns) {
        const int left = rounded(x);
        x += layout.drawnWidth(m_view, column);
        m_cells.push_back({column, side, left, rounded(x)});
    }
}

void GridGeometry::indexColumns(std::size_t count) {
    m_firstCell.assign(count, none);
    m_afterCell.assign(count, none);
    for (std::size_t cell = 0; cell < m_cells.size(); ++cell) {
        auto& index = m_cells[cell].side == CellSide::after ? m_afterCell : m_firstCell;
        index[static_cast<std::size_t>(m_cells[cell].column)] = cell;
    }
}

int GridGeometry::maximumScroll() const { return std::max(0, m_contentWidth - m_viewportWidth); }

std::optional<std::size_t> GridGeometry::pinnedCell(int scroll) const {
    return m_pinnable && m_cells[*m_pinnable].left - scroll <= leadingWidth ? m_pinnable : std::nullopt;
}

int GridGeometry::scrolledAreaLeft(int scroll) const {
    const auto pinned = pinnedCell(scroll);
    return leadingWidth + (pinned ? m_cells[*pinned].width() : 0);
}

GridGeometry::Range GridGeometry::visibleCells(int scroll) const {
    const int left = scrolledAreaLeft(scroll) + scroll;
    const int right = m_viewportWidth + scroll;
    const auto begin =
        std::partition_point(m_cells.begin(), m_cells.end(), [&](const Cell& cell) { return cell.right <= left; });
    const auto end = std::partition_point(begin, m_cells.end(), [&](const Cell& cell) { return cell.left < right; });
    return {static_cast<std::size_t>(begin - m_cells.begin()), static_cast<std::size_t>(end - m_cells.begin())};
}

int GridGeometry::screenLeft(std::size_t cell, int scroll) const {
    return pinnedCell(scroll) == cell ? leadingWidth : m_cells[cell].left - scroll;
}

int GridGeometry::shownWidth(std::size_t cell, int scroll) const {
    const int left = screenLeft(cell, scroll);
    const int right = std::min(left + m_cells[cell].width(), m_viewportWidth);
    const int from = pinnedCell(scroll) == cell ? left : std::max(left, scrolledAreaLeft(scroll));
    return std::max(0, right - from);
}

std::optional<std::size_t> GridGeometry::cellAt(int x, int scroll) const {
    if (x < leadingWidth || x >= m_viewportWidth) {
        return std::nullopt;
    }
    if (x < scrolledAreaLeft(scroll)) {
        return pinnedCell(scroll);
    }
    const int position = x + scroll;
    const auto found =
        std::partition_point(m_cells.begin(), m_cells.end(), [&](const Cell& cell) { return cell.right <= position; });
    const bool isThere = found != m_cells.end() && found->left <= position;
    return isThere ? std::optional(static_cast<std::size_t>(found - m_cells.begin())) : std::nullopt;
}

GridGeometry::Place GridGeometry::place(std::size_t cell, int scroll) const {
    if (shownWidth(cell, scroll) >= std::min(Metrics::outOfView, m_cells[cell].width())) {
        return Place::onScreen;
    }
    const int left = screenLeft(cell, scroll);
    const int hiddenLeft = scrolledAreaLeft(scroll) - left;
    const int hiddenRight = left + m_cells[cell].width() - m_viewportWidth;
    return hiddenLeft > hiddenRight ? Place::leftOfIt : Place::rightOfIt;
}

void GridGeometry::noteOutOfView(std::size_t cell, int scroll, OutOfView& found) const {
    switch (place(cell, scroll)) {
        case Place::onScreen:
            break;
        case Place::leftOfIt:
            found.left = std::max(found.left.value_or(cell), cell);
            break;
        case Place::rightOfIt:
            found.right = std::min(found.right.value_or(cell), cell);
            break;
    }
}

GridGeometry::OutOfView GridGeometry::outOfView(std::span<const CellChange> changes, int scroll) const {
    OutOfView found;
    for (const CellChange& change : changes) {
        const auto column = static_cast<std::size_t>(change.column);
        for (const std::size_t cell : {m_firstCell[column], m_afterCell[column]}) {
            if (cell != none) {
                noteOutOfView(cell, scroll, found);
            }
        }
    }
    return found;
}

int GridGeometry::scrollToShow(std::size_t cell, int scroll) const {
    // Once scrolled, the key column may be pinned, so that less is left for the others.
    const int rightmost = m_cells[cell].right - m_viewportWidth;
    int leftmost = m_cells[cell].left - leadingWidth;
    if (m_pinnable && *m_pinnable < cell) {
        leftmost -= m_cells[*m_pinnable].width();
    }
    if (m_pinnable == cell) {
        return std::max(scroll, rightmost);
    }
    const int wanted = std::min(std::max(scroll, rightmost), leftmost);
    return std::clamp(wanted, 0, maximumScroll());
}

std::optional<std::size_t> GridGeometry::cellOfColumn(std::int64_t column) const {
    const auto index = static_cast<std::size_t>(column);
    if (column < 0 || index >= m_firstCell.size()) {
        return std::nullopt;
    }
    const std::size_t cell = m_firstCell[index] != none ? m_firstCell[index] : m_afterCell[index];
    return cell == none ? std::nullopt : std::optional(cell);
}

}  // namespace corvale
