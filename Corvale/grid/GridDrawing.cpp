#include "Corvale/grid/GridDrawing.h"

#include <QPainter>
#include <QPen>

#include "Corvale/style/Palette.h"

namespace corvale::GridDrawing {

QPixmap transparentPicture(QSize size, qreal pixelRatio) {
    QPixmap picture((QSizeF(size) * pixelRatio).toSize());
    picture.setDevicePixelRatio(pixelRatio);
    picture.fill(Qt::transparent);
    return picture;
}

QPixmap hatch(int period, const QColor& ground, const QColor& lines, qreal pixelRatio) {
    QPixmap tile = transparentPicture({period, period}, pixelRatio);
    tile.fill(ground);
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(lines, 1));
    // The neighbours' diagonals reach into the corners.
    for (const int offset : {-period, 0, period}) {
        painter.drawLine(QPointF(offset, period), QPointF(offset + period, 0));
    }
    return tile;
}

QColor mixed(const QColor& color, const QColor& ground, qreal share) {
    const auto part = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
    return {part(color.red(), ground.red()), part(color.green(), ground.green()), part(color.blue(), ground.blue())};
}

QColor statusColor(const Palette& palette, DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return palette.added.text;
        case DiffRow::Status::removed:
            return palette.removed.text;
        case DiffRow::Status::changed:
            return palette.changed.text;
        case DiffRow::Status::same:
            break;
    }
    return palette.text2;
}

}  // namespace corvale::GridDrawing
