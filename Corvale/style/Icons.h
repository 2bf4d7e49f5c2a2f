#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

// The symbols of the window, drawn from files that the program carries: no icon theme is needed. A symbol has one
// colour, which the caller takes from the palette; ask again when the palette changes. On the main thread.
//
// Symbols are named with dots, as "plus.circle.fill". An unknown name ends the process: a view asks for one that was
// never drawn.
namespace corvale::Icons {

// A square picture of `size` logical pixels, for a screen of `ratio` device pixels to one. Kept in Qt's cache of
// pictures, so that asking again costs a look-up.
QPixmap pixmap(const QString& symbol, const QColor& color, int size, qreal ratio);

struct Colors {
    QColor normal;
    QColor disabled;
    QColor on;  // of a button that is switched on, or a selected line of a list
};

// An icon that draws itself sharply at every size and ratio.
QIcon icon(const QString& symbol, const Colors& colors);

// The icon of the program itself, in the usual sizes from 16 to 256.
QIcon application();

}  // namespace corvale::Icons
