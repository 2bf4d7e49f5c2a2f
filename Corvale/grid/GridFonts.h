#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPointF>
#include <QString>
#include <memory>

#include "Corvale/grid/PairAdvances.h"
#include "Corvale/model/AppSettings.h"

class QPainter;

namespace corvale {

// A font with what painting asks of it again and again. Shaping texts is what painting a page of cells costs, so plain
// ones are put together from what is known of their pairs of characters.
class GridFont {
public:
    explicit GridFont(const QFont& font);

    const QFont& font() const { return m_font; }
    const QFontMetricsF& metrics() const { return m_metrics; }
    qreal width(const QString& text) const;
    // The text, or as much of it as fits with "…" for the rest.
    QString elided(const QString& text, qreal width, Qt::TextElideMode mode = Qt::ElideRight) const;
    // The baseline at which a line of text is centred between `top` and `top` + `height`.
    qreal baseline(qreal top, qreal height) const;
    // In the painter's pen; leaves some font in the painter.
    void draw(QPainter& painter, const QPointF& baseline, const QString& text) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    std::shared_ptr<const PairAdvances> m_pairs;
};

// The fonts of the grid, relative to that of the window. Line heights are fixed, so beyond a size they grow no more.
struct GridFonts {
    GridFonts(const QFont& base, ViewMode view, bool isScaled);

    GridFont cell;
    GridFont newValue;
    GridFont key;
    GridFont number;
    GridFont longNumber;  // for one with too many digits
    GridFont selectedNumber;
    GridFont status;
    GridFont unchangedStatus;
    GridFont header;
    GridFont headerNote;  // what is not the name
    GridFont sideTitle;
};

}  // namespace corvale
