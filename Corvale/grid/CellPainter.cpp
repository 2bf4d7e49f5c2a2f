#include "Corvale/grid/CellPainter.h"

#include <QPainter>
#include <QPen>
#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/GridDrawing.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr int textHeight = Metrics::gridRow - 1;  // of a line without its hairline
constexpr int infoSize = 12;
constexpr int infoGap = 6;
constexpr qreal mostForOld = 0.45;  // of a cell too narrow for both values

// Distances of the texts from the edges of their cell.
struct Insets {
    int left;       // of a text, in a pill or not
    int right;      // of a plain text
    int pillRight;  // of a text in a pill
    int pill;       // of the pill
    int valuesGap;  // between old and new value
};

constexpr Insets unifiedInsets{Metrics::gridCellPadding, Metrics::gridCellPadding, Metrics::gridCellPadding, 4, 6};
constexpr Insets sideInsets{6, Metrics::gridCellPaddingRightSideBySide, 4, 1, 3};

const Insets& insets(ViewMode view) { return view == ViewMode::unified ? unifiedInsets : sideInsets; }

quint64 pillName(QSize size, GridCell::Kind kind, bool isCurrent) {
    return static_cast<quint64>(size.width()) << 2U | (kind == GridCell::Kind::changed ? 2U : 0U) |
           (isCurrent ? 1U : 0U);
}

}  // namespace

void CellPainter::forgetPictures() {
    m_pills.clear();
    m_info = {};
}

void CellPainter::paint(QPainter& painter, const QRect& area, const GridCell& cell, const Style& style) {
    switch (cell.kind) {
        case GridCell::Kind::missing:
            break;
        case GridCell::Kind::plain:
            paintPlain(painter, area, cell.text, style);
            break;
        case GridCell::Kind::changed:
        case GridCell::Kind::formatOnly:
            paintChange(painter, area, cell, style);
            break;
    }
}

bool CellPainter::fits(int width, const GridCell& cell, const Style& style) const {
    switch (cell.kind) {
        case GridCell::Kind::missing:
            return true;
        case GridCell::Kind::plain: {
            const int available = width - insets(style.view).left - insets(style.view).right;
            return CellText::isAllOf(plainText(cell.text, available, style), cell.text);
        }
        case GridCell::Kind::changed:
        case GridCell::Kind::formatOnly:
            break;
    }
    const ChangeParts parts = changeParts(cell, width, style);
    return CellText::isAllOf(parts.before, cell.before) && CellText::isAllOf(parts.after, cell.after);
}

void CellPainter::paintPlain(QPainter& painter, const QRect& area, std::string_view text, const Style& style) const {
    if (text.empty()) {
        return;
    }
    const GridFont& font = plainFont(style);
    const Insets& inset = insets(style.view);
    const int width = area.width() - inset.left - inset.right;
    painter.setPen(style.isQuiet ? m_theme.palette().text2 : m_theme.palette().text);
    font.draw(painter,
              QPointF(area.left() + inset.left, font.baseline(area.top(), textHeight)),
              plainText(text, width, style));
}

QString CellPainter::plainText(std::string_view text, int width, const Style& style) const {
    const GridFont& font = plainFont(style);
    // Keys often differ at their ends.
    return style.isKey ? font.elided(CellText::endsOnOneLine(text, width), width, Qt::ElideMiddle)
                       : font.elided(CellText::onOneLine(text, width), width);
}

void CellPainter::paintChange(QPainter& painter, const QRect& area, const GridCell& cell, const Style& style) {
    const Insets& inset = insets(style.view);
    const QPoint corner(area.left() + inset.pill, area.top() + Metrics::pillInsetY);
    const QSize size(area.width() - 2 * inset.pill, Metrics::pillHeight);
    if (size.width() <= 0) {
        return;
    }
    painter.drawPixmap(corner, pill(size, cell.kind, style.isCurrent));

    const bool isFormat = cell.kind == GridCell::Kind::formatOnly;
    const auto& colors = isFormat ? m_theme.palette().formatOnly : m_theme.palette().changed;
    const ChangeParts parts = changeParts(cell, area.width(), style);
    QPointF baseline(area.left() + inset.left, m_fonts.cell.baseline(area.top(), textHeight));
    if (isFormat && style.view == ViewMode::unified) {
        const QRect icon(area.left() + inset.left,
                         area.top() + Metrics::pillInsetY + (Metrics::pillHeight - infoSize) / 2,
                         infoSize,
                         infoSize);
        if (m_info.isNull()) {
            m_info = Icons::pixmap(QStringLiteral("info.circle"), colors.text, infoSize, m_pixelRatio);
        }
        painter.drawPixmap(icon.topLeft(), m_info);
        baseline.rx() += infoSize + infoGap;
    }
    painter.setPen(colors.text);
    paintOldValue(painter, baseline, parts.before);
    painter.setPen(isFormat ? colors.text : m_theme.palette().text);
    paintNewValue(painter, baseline + QPointF(parts.afterOffset, 0), parts.after, isFormat);
}

void CellPainter::paintOldValue(QPainter& painter, QPointF baseline, const QString& text) const {
    if (text.isEmpty()) {
        return;
    }
    const GridFont& font = m_fonts.cell;
    font.draw(painter, baseline, text);
    const qreal y = qRound(baseline.y() - font.metrics().strikeOutPos());
    painter.fillRect(QRectF(baseline.x(), y, font.width(text), 1), painter.pen().color());
}

void CellPainter::paintNewValue(QPainter& painter, QPointF baseline, const QString& text, bool isUnderlined) const {
    if (text.isEmpty()) {
        return;
    }
    const GridFont& font = m_fonts.newValue;
    font.draw(painter, baseline, text);
    if (isUnderlined) {
        constexpr qreal below = 3;
        constexpr qreal dot = 1.5;
        const qreal end = baseline.x() + font.width(text);
        for (qreal x = baseline.x(); x < end; x += 2 * dot) {
            painter.fillRect(QRectF(x, baseline.y() + below, dot, dot), painter.pen().color());
        }
    }
}

CellPainter::ChangeParts CellPainter::changeParts(const GridCell& cell, int width, const Style& style) const {
    const Insets& inset = insets(style.view);
    const bool hasIcon = cell.kind == GridCell::Kind::formatOnly && style.view == ViewMode::unified;
    const int available = width - inset.left - inset.pillRight - (hasIcon ? infoSize + infoGap : 0);
    ChangeParts parts{CellText::onOneLine(cell.before, available), CellText::onOneLine(cell.after, available), 0};
    const qreal gap = cell.before.empty() || cell.after.empty() ? 0 : inset.valuesGap;
    const qreal beforeWidth = m_fonts.cell.width(parts.before);
    const qreal afterWidth = m_fonts.newValue.width(parts.after);
    const qreal left = available - gap;
    if (beforeWidth + afterWidth > left) {
        const qreal forBefore = std::min(beforeWidth, std::max(left - afterWidth, mostForOld * width));
        parts.before = m_fonts.cell.elided(parts.before, std::min(forBefore, left));
        const qreal shownBefore = std::min(forBefore, m_fonts.cell.width(parts.before));
        parts.after = m_fonts.newValue.elided(parts.after, left - shownBefore);
        parts.afterOffset = shownBefore + gap;
    } else {
        parts.afterOffset = beforeWidth + gap;
    }
    return parts;
}

const QPixmap& CellPainter::pill(QSize size, GridCell::Kind kind, bool isCurrent) {
    QPixmap& picture = m_pills[pillName(size, kind, isCurrent)];
    if (picture.isNull()) {
        const Palette& palette = m_theme.palette();
        const auto& colors = kind == GridCell::Kind::changed ? palette.changed : palette.formatOnly;
        picture = GridDrawing::transparentPicture(size, m_pixelRatio);
        QPainter painter(&picture);
        Shapes::box(painter,
                    QRectF(QPointF(), size),
                    Metrics::pillRadius,
                    colors.fill,
                    isCurrent ? QPen(palette.accent, 2) : QPen(colors.edge));
    }
    return picture;
}

}  // namespace corvale
