#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QString>

#include "Corvale/model/AppSettings.h"

namespace corvale {

// A font with what painting asks of it again and again.
class GridFont {
public:
    explicit GridFont(const QFont& font);

    const QFont& font() const { return m_font; }
    const QFontMetricsF& metrics() const { return m_metrics; }
    qreal width(const QString& text) const { return m_metrics.horizontalAdvance(text); }
    // The text, or as much of it as fits with "…" for the rest.
    QString elided(const QString& text, qreal width, Qt::TextElideMode mode = Qt::ElideRight) const;
    // The baseline at which a line of text is centred between `top` and `top` + `height`.
    qreal baseline(qreal top, qreal height) const;

private:
    QFont m_font;
    QFontMetricsF m_metrics;
    qreal m_widestCharacter;
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
