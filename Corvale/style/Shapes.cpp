#include "Corvale/style/Shapes.h"

#include <QBrush>
#include <QColor>
#include <QPainter>
#include <QPen>

#include "Corvale/style/Icons.h"

namespace corvale::Shapes {

QRect centered(int side, const QRect& rect) {
    QRect square(0, 0, side, side);
    square.moveCenter(rect.center());
    return square;
}

void symbol(QPainter& painter, const QString& name, const QColor& color, const QRect& square) {
    const qreal pixelRatio = painter.device()->devicePixelRatioF();
    painter.drawPixmap(square.topLeft(), Icons::pixmap(name, color, square.width(), pixelRatio));
}

void box(QPainter& painter, const QRectF& area, qreal radius, const QBrush& fill, const QPen& border) {
    const qreal inset = border.style() == Qt::NoPen ? 0 : border.widthF() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    painter.setPen(border);
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    painter.restore();
}

}  // namespace corvale::Shapes
