#pragma once

#include <QPixmap>
#include <QRect>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Corvale/grid/CellPainter.h"
#include "Corvale/grid/GridContents.h"
#include "Corvale/grid/GridRow.h"
#include "Corvale/style/Metrics.h"

class QColor;
class QPainter;

namespace corvale {

class Theme;

// Paints the lines of the grid, in two rounds: what scrolls sideways, under one clip for all lines, then what is pinned
// over it.
class LinePainter {
public:
    static constexpr int lineHeight = Metrics::gridRow;

    struct State {
        bool isSelected = false;
        bool isHovered = false;
        bool gridHasFocus = false;
        std::optional<std::int64_t> currentColumn;  // of the changed cell that was gone to
    };

    // Both outlive the painter.
    LinePainter(const Theme& theme, const GridContents& contents)
        : m_theme(theme), m_contents(contents), m_cells(theme, contents.fonts) {}

    // After the theme or the layout has changed.
    void forgetPictures();
    // Of the screen that pictures are drawn for.
    void setPixelRatio(qreal pixelRatio);

    // `y` is the line's top, `scroll` how far it is scrolled sideways.
    void paintScrolled(QPainter& painter, const GridRow& line, int y, int scroll, const State& state);
    void paintPinned(QPainter& painter, const GridRow& line, int y, int scroll, const State& state);
    // The frame of the selected line, over its neighbours.
    void paintSelection(QPainter& painter, int y, int width, bool gridHasFocus) const;
    // The edges of what is pinned, down the whole height.
    static void paintEdges(QPainter& painter, const QColor& border, const GridGeometry& geometry, int scroll,
                           int height);

    // Where the mark is that leads to changed cells out of view.
    static QRect tabArea(const GridGeometry& geometry, GridGeometry::Place side, int y, int scroll);

    const CellPainter& cells() const { return m_cells; }
    CellPainter::Style cellStyle(const GridRow& line, std::size_t cell) const;

private:
    void paintHalves(QPainter& painter, const GridRow& line, int y, int scroll, const State& state);
    void paintHalf(QPainter& painter, const GridRow& line, const QRect& area, GridGeometry::CellSide side,
                   const State& state);
    void paintCell(QPainter& painter, const GridRow& line, std::size_t cell, int y, int scroll, const State& state);
    void paintNumber(QPainter& painter, const GridRow& line, DuplicateKey::Side side, const QRect& area,
                     bool isSelected) const;
    const GridFont& numberFont(const QString& text, bool isSelected) const;
    void paintStatus(QPainter& painter, const DiffRow& row, int y);
    void paintTab(QPainter& painter, GridGeometry::Place side, const QRect& area);

    // What is behind the cells of a whole line, or of its leading block side by side.
    std::optional<QColor> fill(const GridRow& line, const State& state) const;
    QColor hairline(const GridRow& line) const;

    const Theme& m_theme;
    const GridContents& m_contents;
    CellPainter m_cells;
    qreal m_pixelRatio = 0;
    QPixmap m_hatch;
    std::array<QPixmap, 4> m_statusSymbols;  // by DiffRow::Status
    std::array<QPixmap, 2> m_tabs;           // left, right
};

}  // namespace corvale
