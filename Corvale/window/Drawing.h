#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>

class QPainter;

// What the window's own controls are drawn with.
namespace corvale::Drawing {

// In pixels, rounded up.
int textWidth(const QFont& font, const QString& text);

// One line, at the start of the rectangle and in the middle of its height; elided where it is too long.
void text(QPainter& painter, const QRect& rect, const QString& text, const QFont& font, const QColor& color,
          Qt::TextElideMode elided = Qt::ElideRight);

// A symbol in the middle of the rectangle.
void symbol(QPainter& painter, const QString& name, const QColor& color, const QRect& rect, int size);

// A rounded rectangle with a line of `lineWidth` pixels inside its edge.
void box(QPainter& painter, const QRect& rect, double radius, const QColor& fill, const QColor& line,
         double lineWidth = 1);

// The same with a dashed line.
void dashedBox(QPainter& painter, const QRect& rect, double radius, const QColor& fill, const QColor& line,
               double lineWidth);

// The soft shadow of a rounded rectangle that floats over something.
void shadow(QPainter& painter, const QRect& rect, double radius);

}  // namespace corvale::Drawing
