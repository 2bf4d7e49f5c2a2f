#include "Corvale/window/Drawing.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <cmath>

#include "Corvale/style/Shapes.h"

namespace corvale::Drawing {

int textWidth(const QFont& font, const QString& text) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(text)));
}

void text(QPainter& painter, const QRect& rect, const QString& text, const QFont& font, const QColor& color,
          Qt::TextElideMode elided) {
    painter.setFont(font);
    painter.setPen(color);
    const QString shown =
        textWidth(font, text) <= rect.width() ? text : QFontMetricsF(font).elidedText(text, elided, rect.width());
    // At the start as the window reads, but in the direction of the text itself: "13 rows" stays so in any window.
    const Qt::LayoutDirection window = painter.layoutDirection();
    const Qt::Alignment start = QStyle::visualAlignment(window, Qt::AlignLeft);
    painter.setLayoutDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    painter.drawText(rect, static_cast<int>(start | Qt::AlignAbsolute | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
    painter.setLayoutDirection(window);
}

void symbol(QPainter& painter, const QString& name, const QColor& color, const QRect& rect, int size) {
    Shapes::symbol(painter, name, color, Shapes::centered(size, rect));
}

void box(QPainter& painter, const QRect& rect, double radius, const QColor& fill, const QColor& line,
         double lineWidth) {
    Shapes::box(painter, rect, radius, fill, QPen(line, lineWidth));
}

void dashedBox(QPainter& painter, const QRect& rect, double radius, const QColor& fill, const QColor& line,
               double lineWidth) {
    QPen pen(line, lineWidth);
    pen.setDashPattern({3, 3});
    Shapes::box(painter, rect, radius, fill, pen);
}

void shadow(QPainter& painter, const QRect& rect, double radius) {
    constexpr int reach = 24;
    constexpr int drop = 8;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    // Rings of one faint colour, which add up towards the middle.
    painter.setBrush(QColor(10, 12, 18, 3));
    for (int grow = reach; grow > 0; grow -= 2) {
        painter.drawRoundedRect(
            QRectF(rect).adjusted(-grow, -grow, grow, grow).translated(0, drop), radius + grow, radius + grow);
    }
    painter.restore();
}

}  // namespace corvale::Drawing
