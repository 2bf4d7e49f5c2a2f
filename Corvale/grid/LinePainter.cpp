#include "Corvale/grid/LinePainter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPen>
#include <algorithm>

#include "Corvale/grid/GridDrawing.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

using CellSide = GridGeometry::CellSide;
using Place = GridGeometry::Place;
using RowSide = DuplicateKey::Side;

constexpr int contentHeight = LinePainter::lineHeight - 1;
constexpr int gutterPadding = 7;
constexpr int widestNumber = 41;  // beside the bar of the selected line
constexpr int gapWidth = Metrics::gridHalfGap;
constexpr float shadowOpacity = 0.16F;
constexpr qreal tintOfColoredHairline = 0.45;
constexpr QSize tabSize(Metrics::edgeTabWidth, Metrics::edgeTabHeight);
constexpr int tabRadius = 5;
constexpr int tabIcon = 11;
constexpr int hatchPeriod = 8;  // across; six between the diagonals

}  // namespace

void LinePainter::forgetPictures() {
    m_cells.forgetPictures();
    m_hatch = {};
    m_statusSymbols = {};
    m_tabs = {};
}

void LinePainter::setPixelRatio(qreal pixelRatio) {
    if (!qFuzzyCompare(m_pixelRatio, pixelRatio)) {
        m_pixelRatio = pixelRatio;
        m_cells.setPixelRatio(pixelRatio);
        forgetPictures();
    }
}

std::optional<QColor> LinePainter::fill(const GridRow& line, const State& state) const {
    const Palette& palette = m_theme.palette();
    if (state.isSelected) {
        return state.gridHasFocus ? palette.accentTint : palette.surface2;
    }
    if (!line.sideBySide() && line.row().status == DiffRow::Status::added) {
        return palette.added.fill;
    }
    if (!line.sideBySide() && line.row().status == DiffRow::Status::removed) {
        return palette.removed.fill;
    }
    return state.isHovered ? std::optional(palette.surface2) : std::nullopt;
}

QColor LinePainter::hairline(const GridRow& line) const {
    const Palette& palette = m_theme.palette();
    if (!line.sideBySide() && line.row().status == DiffRow::Status::added) {
        return GridDrawing::mixed(palette.added.edge, palette.added.fill, tintOfColoredHairline);
    }
    if (!line.sideBySide() && line.row().status == DiffRow::Status::removed) {
        return GridDrawing::mixed(palette.removed.edge, palette.removed.fill, tintOfColoredHairline);
    }
    return palette.line;
}

CellPainter::Style LinePainter::cellStyle(const GridRow& line, std::size_t cell) const {
    CellPainter::Style style;
    style.view = line.geometry().view();
    style.isKey = m_contents.columns.isKey(line.geometry().cells()[cell].column);
    style.isQuiet = line.row().status == DiffRow::Status::same;
    return style;
}

void LinePainter::paintScrolled(QPainter& painter, const GridRow& line, int y, int scroll, const State& state) {
    const GridGeometry& geometry = line.geometry();
    if (line.sideBySide()) {
        paintHalves(painter, line, y, scroll, state);
    } else if (const auto color = fill(line, state)) {
        painter.fillRect(0, y, geometry.viewportWidth(), contentHeight, *color);
    }
    const auto [begin, end] = geometry.visibleCells(scroll);
    for (std::size_t cell = begin; cell < end; ++cell) {
        paintCell(painter, line, cell, y, scroll, state);
    }
}

void LinePainter::paintCell(QPainter& painter, const GridRow& line, std::size_t cell, int y, int scroll,
                            const State& state) {
    const GridGeometry& geometry = line.geometry();
    const QRect area(geometry.screenLeft(cell, scroll), y, geometry.cells()[cell].width(), lineHeight);
    const GridCell content = line.cell(cell);
    CellPainter::Style style = cellStyle(line, cell);
    style.isCurrent = state.currentColumn == geometry.cells()[cell].column;
    if (line.sideBySide() && content.kind != GridCell::Kind::missing) {
        const bool isFirst = cell == 0 || geometry.cells()[cell - 1].side != geometry.cells()[cell].side;
        if (!isFirst) {
            painter.fillRect(area.left(), y, 1, contentHeight, m_theme.palette().line);
        }
    }
    m_cells.paint(painter, area, content, style);
}

void LinePainter::paintHalves(QPainter& painter, const GridRow& line, int y, int scroll, const State& state) {
    const GridGeometry& geometry = line.geometry();
    const int gap = geometry.gapLeft() - scroll;
    const int right = geometry.contentWidth() - scroll;
    const QRect before(
        GridGeometry::leadingWidth - scroll, y, gap - GridGeometry::leadingWidth + scroll, contentHeight);
    const QRect after(gap + gapWidth, y, right - gap - gapWidth, contentHeight);
    paintHalf(painter, line, before, CellSide::before, state);
    paintHalf(painter, line, after, CellSide::after, state);
    painter.fillRect(gap, y, gapWidth, contentHeight, m_theme.palette().surface2);
    painter.fillRect(gap, y, 1, lineHeight, m_theme.palette().border);
    painter.fillRect(gap + gapWidth - 1, y, 1, lineHeight, m_theme.palette().border);
}

void LinePainter::paintHalf(QPainter& painter, const GridRow& line, const QRect& area, CellSide side,
                            const State& state) {
    const Palette& palette = m_theme.palette();
    const bool isBefore = side == CellSide::before;
    const bool isMissing = isBefore ? !line.row().left : !line.row().right;
    if (isMissing) {
        if (m_hatch.isNull()) {
            m_hatch = GridDrawing::hatch(hatchPeriod, palette.surface2, palette.hatch, m_pixelRatio);
        }
        painter.drawTiledPixmap(area.intersected({0, area.top(), line.geometry().viewportWidth(), area.height()}),
                                m_hatch,
                                QPointF(0, area.top() % hatchPeriod));
        return;
    }
    const DiffRow::Status status = line.row().status;
    if (status == DiffRow::Status::added || status == DiffRow::Status::removed) {
        painter.fillRect(area, isBefore ? palette.removed.fill : palette.added.fill);
    } else if (const auto color = fill(line, state)) {
        painter.fillRect(area, *color);
    }
}

void LinePainter::paintPinned(QPainter& painter, const GridRow& line, int y, int scroll, const State& state) {
    const GridGeometry& geometry = line.geometry();
    const QColor ground = fill(line, state).value_or(m_theme.palette().surface);
    const auto pinned = geometry.pinnedCell(scroll);
    painter.fillRect(0, y, geometry.scrolledAreaLeft(scroll), contentHeight, ground);
    if (pinned) {
        paintCell(painter, line, *pinned, y, scroll, state);
    }
    paintNumber(painter, line, RowSide::before, {0, y, Metrics::gridGutter, contentHeight}, state.isSelected);
    paintNumber(
        painter, line, RowSide::after, {Metrics::gridGutter, y, Metrics::gridGutter, contentHeight}, state.isSelected);
    paintStatus(painter, line.row(), y);
    painter.fillRect(0, y + contentHeight, geometry.viewportWidth(), 1, hairline(line));

    const auto outOfView = geometry.outOfView(line.row().changes, scroll);
    if (outOfView.left) {
        paintTab(painter, Place::leftOfIt, tabArea(geometry, Place::leftOfIt, y, scroll));
    }
    if (outOfView.right) {
        paintTab(painter, Place::rightOfIt, tabArea(geometry, Place::rightOfIt, y, scroll));
    }
}

void LinePainter::paintNumber(QPainter& painter, const GridRow& line, RowSide side, const QRect& area,
                              bool isSelected) const {
    const Palette& palette = m_theme.palette();
    painter.fillRect(area.right(), area.top(), 1, area.height(), isSelected ? palette.accentLine : hairline(line));
    const bool isThere = line.result().rowNumber(side, line.row()).has_value();
    const QString text = RowTexts::number(line.result(), line.row(), side);
    const int right = area.right() - gutterPadding;
    const GridFont& font = numberFont(text, isSelected);
    const QString shown = font.elided(text, widestNumber, Qt::ElideLeft);
    painter.setPen(!isThere ? palette.text3 : isSelected ? palette.text : palette.text2);
    font.draw(painter, QPointF(right - font.width(shown), font.baseline(area.top(), area.height())), shown);
}

const GridFont& LinePainter::numberFont(const QString& text, bool isSelected) const {
    const GridFonts& fonts = m_contents.fonts;
    if (isSelected && fonts.selectedNumber.width(text) <= widestNumber) {
        return fonts.selectedNumber;
    }
    return fonts.number.width(text) <= widestNumber ? fonts.number : fonts.longNumber;
}

void LinePainter::paintStatus(QPainter& painter, const DiffRow& row, int y) {
    const QColor color = GridDrawing::statusColor(m_theme.palette(), row.status);
    QPixmap& symbol = m_statusSymbols.at(static_cast<std::size_t>(row.status));
    if (symbol.isNull()) {
        symbol = Icons::pixmap(RowTexts::statusSymbol(row.status), color, Metrics::icon, m_pixelRatio);
    }
    painter.drawPixmap(GridGeometry::statusLeft, y + (contentHeight - Metrics::icon) / 2, symbol);
    const GridFont& font =
        row.status == DiffRow::Status::same ? m_contents.fonts.unchangedStatus : m_contents.fonts.status;
    constexpr int left = GridGeometry::statusLeft + Metrics::icon + Metrics::gridStatusGap;
    painter.setPen(color);
    font.draw(painter,
              QPointF(left, font.baseline(y, contentHeight)),
              font.elided(RowTexts::statusWord(row.status), GridGeometry::leadingWidth - left - 2));
}

QRect LinePainter::tabArea(const GridGeometry& geometry, Place side, int y, int scroll) {
    constexpr int top = (contentHeight - tabSize.height()) / 2;
    const int left =
        side == Place::leftOfIt ? geometry.scrolledAreaLeft(scroll) : geometry.viewportWidth() - tabSize.width();
    return {QPoint(left, y + top), tabSize};
}

void LinePainter::paintTab(QPainter& painter, Place side, const QRect& area) {
    const bool isLeft = side == Place::leftOfIt;
    QPixmap& picture = m_tabs.at(isLeft ? 0 : 1);
    if (picture.isNull()) {
        const auto& colors = m_theme.palette().changed;
        picture = GridDrawing::transparentPicture(tabSize, m_pixelRatio);
        QPainter onPicture(&picture);
        // Its outer side lies beyond the picture, so that only the inner corners are round.
        const QRectF box =
            QRectF(QPointF(), tabSize).adjusted(isLeft ? -2 * tabRadius : 0, 0, isLeft ? 0 : 2 * tabRadius, 0);
        Shapes::box(onPicture, box, tabRadius, colors.fill, colors.mark);
        if (isLeft) {
            onPicture.translate(tabSize.width(), 0);
            onPicture.scale(-1, 1);
        }
        const QRect icon((tabSize.width() - tabIcon) / 2, (tabSize.height() - tabIcon) / 2, tabIcon, tabIcon);
        Shapes::symbol(onPicture, QStringLiteral("chevron.right"), colors.text, icon);
    }
    painter.drawPixmap(area.topLeft(), picture);
}

void LinePainter::paintSelection(QPainter& painter, int y, int width, bool gridHasFocus) const {
    const QColor color = gridHasFocus ? m_theme.palette().accent : m_theme.palette().field;
    const int top = std::max(y - 1, 0);
    painter.fillRect(0, top, width, 2, color);
    painter.fillRect(0, y + contentHeight, width, 2, color);
    painter.fillRect(0, top, Metrics::selectedRowBar, y + contentHeight + 2 - top, color);
}

void LinePainter::paintEdges(QPainter& painter, const QColor& border, const GridGeometry& geometry, int scroll,
                             int height) {
    painter.fillRect(GridGeometry::leadingWidth, 0, 1, height, border);
    if (scroll == 0) {
        return;
    }
    const int edge = geometry.scrolledAreaLeft(scroll);
    painter.fillRect(edge, 0, 1, height, border);
    QLinearGradient shadow(edge + 1, 0, edge + 1 + Metrics::pinnedShadow, 0);
    shadow.setColorAt(0, QColor::fromRgbF(0, 0, 0, shadowOpacity));
    shadow.setColorAt(1, Qt::transparent);
    painter.fillRect(edge + 1, 0, Metrics::pinnedShadow, height, shadow);
}

}  // namespace corvale
