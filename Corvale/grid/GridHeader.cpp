#include "Corvale/grid/GridHeader.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/LinePainter.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

using CellSide = GridGeometry::CellSide;

constexpr int keyIcon = 13;
constexpr int titlePadding = 6;
constexpr int titleGap = 6;
constexpr int leastName = 30;  // before the note beside it gives way

// Distances within a header.
struct Spacing {
    int left;
    int right;
    int gap;
};

Spacing spacing(bool sideBySide) {
    return sideBySide ? Spacing{Metrics::gridCellPaddingLeftSideBySide, Metrics::gridCellPaddingRightSideBySide, 4}
                      : Spacing{Metrics::gridCellPadding, Metrics::gridCellPadding, 5};
}

}  // namespace

GridHeader::GridHeader(const AppModel& model, const GridContents& contents, const Theme& theme, QWidget* parent)
    : QWidget(parent), m_model(model), m_contents(contents), m_theme(theme) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void GridHeader::setScroll(int scroll) {
    m_scroll = scroll;
    update();
}

int GridHeader::heightFor(ViewMode view) {
    return view == ViewMode::unified ? Metrics::gridHeader
                                     : Metrics::gridTitlesSideBySide + Metrics::gridHeaderSideBySide;
}

QString GridHeader::title(std::size_t cell) const {
    const GridGeometry::Cell& place = m_contents.geometry.cells()[cell];
    const QString name = m_contents.columns.name(place.column, place.side);
    return m_contents.columns.isIgnored(place.column) ? name + u' ' + tr("(ignored)") : name;
}

QRect GridHeader::columnArea(std::size_t cell) const {
    const int top = sideBySide() ? Metrics::gridTitlesSideBySide : 0;
    const int left = m_contents.geometry.screenLeft(cell, m_scroll);
    return {left, top, m_contents.geometry.cells()[cell].width(), height() - top - 1};
}

void GridHeader::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    painter.fillRect(rect(), palette.surface2);
    if (!m_model.result()) {
        return;
    }
    const int scrolledLeft = m_contents.geometry.scrolledAreaLeft(m_scroll);
    painter.setClipRect(scrolledLeft, 0, width() - scrolledLeft, height());
    if (sideBySide()) {
        paintSideTitles(painter);
    }
    paintColumns(painter);
    painter.setClipping(false);
    if (const auto pinned = m_contents.geometry.pinnedCell(m_scroll)) {
        paintColumn(painter, *pinned);
    }
    paintLeadingBlock(painter);
    painter.fillRect(0, height() - 1, width(), 1, palette.border);
    if (!m_model.visible().empty()) {
        LinePainter::paintEdges(painter, palette.border, m_contents.geometry, m_scroll, height());
    }
}

void GridHeader::paintSideTitles(QPainter& painter) const {
    const GridGeometry& geometry = m_contents.geometry;
    const int before = GridGeometry::leadingWidth - m_scroll;
    const int gap = geometry.gapLeft() - m_scroll;
    const int after = gap + Metrics::gridHalfGap;
    const DiffResult& result = *m_model.result();
    paintSideTitle(painter,
                   {before, 0, gap - before, Metrics::gridTitlesSideBySide},
                   RowTexts::sideName(DuplicateKey::Side::before),
                   CellText::whole(result.before.sourceName()));
    paintSideTitle(painter,
                   {after, 0, geometry.contentWidth() - m_scroll - after, Metrics::gridTitlesSideBySide},
                   RowTexts::sideName(DuplicateKey::Side::after),
                   CellText::whole(result.after.sourceName()));
}

void GridHeader::paintSideTitle(QPainter& painter, const QRect& area, const QString& side, const QString& file) const {
    const GridFont& titleFont = m_contents.fonts.sideTitle;
    const GridFont& fileFont = m_contents.fonts.headerNote;
    // Scrolled half away, the title still begins where its half does on screen.
    const int left = std::max(area.left(), GridGeometry::leadingWidth) + titlePadding;
    const int room = area.right() + 1 - left;
    if (room <= 0) {
        return;
    }
    const QString title = titleFont.elided(side, room);
    painter.setPen(m_theme.palette().text);
    titleFont.draw(painter, QPointF(left, titleFont.baseline(area.top(), area.height())), title);
    const qreal fileLeft = titleFont.width(title) + titleGap;
    painter.setPen(m_theme.palette().text2);
    fileFont.draw(painter,
                  QPointF(left + fileLeft, fileFont.baseline(area.top(), area.height())),
                  fileFont.elided(file, room - fileLeft, Qt::ElideMiddle));
}

void GridHeader::paintColumns(QPainter& painter) const {
    const auto [begin, end] = m_contents.geometry.visibleCells(m_scroll);
    for (std::size_t cell = begin; cell < end; ++cell) {
        paintColumn(painter, cell);
    }
}

int GridHeader::textWidth(std::size_t cell) const {
    const GridGeometry::Cell& place = m_contents.geometry.cells()[cell];
    const Spacing space = spacing(sideBySide());
    int width = place.width() - space.left - space.right;
    width -= m_contents.columns.isKey(place.column) ? keyIcon + space.gap : 0;
    width -= m_contents.columns.hasChanges(place.column) ? Metrics::changeDot + space.gap : 0;
    return std::max(width, 0);
}

void GridHeader::paintColumn(QPainter& painter, std::size_t cell) const {
    const GridGeometry::Cell& place = m_contents.geometry.cells()[cell];
    const Palette& palette = m_theme.palette();
    const QRect area = columnArea(cell);
    const Spacing space = spacing(sideBySide());
    qreal x = area.left() + space.left;
    if (m_contents.columns.isKey(place.column)) {
        const QRect icon(qRound(x), area.top() + (area.height() - keyIcon) / 2, keyIcon, keyIcon);
        Shapes::symbol(painter, QStringLiteral("key"), palette.text2, icon);
        x += keyIcon + space.gap;
    }
    const GridFont& nameFont = m_contents.fonts.header;
    const GridFont& noteFont = m_contents.fonts.headerNote;
    const QString note = m_contents.columns.isIgnored(place.column) ? u' ' + tr("(ignored)") : QString();
    const int room = textWidth(cell);
    const qreal forName = std::max(room - noteFont.width(note), std::min<qreal>(room, leastName));
    const QString name = nameFont.elided(m_contents.columns.name(place.column, place.side), forName);
    painter.setPen(palette.text2);
    nameFont.draw(painter, QPointF(x, nameFont.baseline(area.top(), area.height())), name);
    const qreal nameWidth = nameFont.width(name);
    x += nameWidth;
    const QString shownNote = noteFont.elided(note, room - nameWidth);
    noteFont.draw(painter, QPointF(x, noteFont.baseline(area.top(), area.height())), shownNote);
    x += noteFont.width(shownNote);
    if (m_contents.columns.hasChanges(place.column)) {
        const qreal top = area.top() + (area.height() - Metrics::changeDot) / 2.0;
        Shapes::box(painter,
                    QRectF(x + space.gap, top, Metrics::changeDot, Metrics::changeDot),
                    Metrics::changeDot / 2.0,
                    palette.changed.mark,
                    palette.changed.mark);
    }
}

void GridHeader::paintLeadingBlock(QPainter& painter) const {
    const GridFont& font = m_contents.fonts.header;
    const int top = sideBySide() ? Metrics::gridTitlesSideBySide : 0;
    const qreal baseline = font.baseline(top, height() - top - 1);
    const QString row = tr("Row");
    painter.setPen(m_theme.palette().text2);
    font.draw(painter, QPointF(qRound((GridLayout::numbersWidth - font.width(row)) / 2), baseline), row);
    font.draw(painter, QPointF(GridGeometry::statusLeft, baseline), tr("Status"));
}

bool GridHeader::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        showToolTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

void GridHeader::showToolTip(const QPoint& position, const QPoint& globalPosition) {
    const auto cell = m_contents.geometry.cellAt(position.x(), m_scroll);
    if (!m_model.result() || !cell) {
        QToolTip::hideText();
        return;
    }
    const QString text = title(*cell);
    const bool fits = m_contents.fonts.header.width(text) <= textWidth(*cell);
    QToolTip::showText(globalPosition, fits ? QString() : CellText::toolTip(text), this);
}

}  // namespace corvale
