#pragma once

#include <QColor>
#include <QPixmap>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QString>

#include "CorvaleKit/engine/DiffResult.h"

class QPainter;

namespace corvale {
struct Palette;
}

// Shapes and colours that several views of a result are drawn with.
namespace corvale::GridDrawing {

// A symbol by its name, filling `area`.
void symbol(QPainter& painter, const QString& name, const QColor& color, const QRect& area);

// A filled box whose border lies within `area`.
void roundedBox(QPainter& painter, const QRectF& area, qreal radius, const QColor& fill, const QColor& border,
                qreal borderWidth = 1);

// For a screen of that many pixels a point; `size` is in points.
QPixmap transparentPicture(QSize size, qreal pixelRatio);

// A square tile of diagonals, one across every `period` points.
QPixmap hatch(int period, const QColor& ground, const QColor& lines, qreal pixelRatio);

// `share`, 0 to 1, of a colour over another.
QColor mixed(const QColor& color, const QColor& ground, qreal share);

// Of a row's status in words and as a symbol.
QColor statusColor(const Palette& palette, DiffRow::Status status);

}  // namespace corvale::GridDrawing
