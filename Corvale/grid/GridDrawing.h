#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {
struct Palette;
}

// Pictures and colours that several views of a result are drawn with.
namespace corvale::GridDrawing {

// For a screen of that many pixels a point; `size` is in points.
QPixmap transparentPicture(QSize size, qreal pixelRatio);

// A square tile of diagonals, one across every `period` points.
QPixmap hatch(int period, const QColor& ground, const QColor& lines, qreal pixelRatio);

// `share`, 0 to 1, of a colour over another.
QColor mixed(const QColor& color, const QColor& ground, qreal share);

// Of a row's status in words and as a symbol.
QColor statusColor(const Palette& palette, DiffRow::Status status);

}  // namespace corvale::GridDrawing
