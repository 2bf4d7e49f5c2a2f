#pragma once

#include <QRect>
#include <QRectF>
#include <QString>

class QBrush;
class QColor;
class QPainter;
class QPen;

// What controls and views alike are drawn with.
namespace corvale::Shapes {

// The square of `side` in the middle of `rect`.
QRect centered(int side, const QRect& rect);

// A symbol by its name, filling a square.
void symbol(QPainter& painter, const QString& name, const QColor& color, const QRect& square);

// A box with round corners whose border lies within `area`.
void box(QPainter& painter, const QRectF& area, qreal radius, const QBrush& fill, const QPen& border);

}  // namespace corvale::Shapes
