#pragma once

#include <QHash>
#include <QPixmap>
#include <QRect>
#include <string_view>

#include "Corvale/grid/GridFonts.h"
#include "Corvale/grid/GridRow.h"
#include "Corvale/model/AppSettings.h"

class QPainter;

namespace corvale {

class Theme;

// Paints one cell of a line, and tells what of it did not fit. Keeps drawn pills, which look the same in every line of
// a column, until forgetPictures().
class CellPainter {
public:
    // How a cell is painted; texts of lines without a change stand back.
    struct Style {
        ViewMode view = ViewMode::unified;
        bool isKey = false;
        bool isQuiet = false;
        bool isCurrent = false;  // the changed cell that was gone to
    };

    // Both outlive the painter.
    CellPainter(const Theme& theme, const GridFonts& fonts) : m_theme(theme), m_fonts(fonts) {}

    void forgetPictures();
    // Of the screen that pictures are drawn for.
    void setPixelRatio(qreal pixelRatio) { m_pixelRatio = pixelRatio; }

    // `area` is the cell's place in a line. Draws nothing for a missing cell.
    void paint(QPainter& painter, const QRect& area, const GridCell& cell, const Style& style);
    // False when something is elided or has tabs or line breaks, which a line cannot show.
    bool fits(int width, const GridCell& cell, const Style& style) const;

private:
    // What a changed cell shows, and where.
    struct ChangeParts {
        QString before;
        QString after;
        qreal afterOffset = 0;  // from the start of the text
    };

    void paintPlain(QPainter& painter, const QRect& area, std::string_view text, const Style& style) const;
    // What a plain cell shows.
    QString plainText(std::string_view text, int width, const Style& style) const;
    void paintChange(QPainter& painter, const QRect& area, const GridCell& cell, const Style& style);
    void paintOldValue(QPainter& painter, QPointF baseline, const QString& text) const;
    void paintNewValue(QPainter& painter, QPointF baseline, const QString& text, bool isUnderlined) const;
    const QPixmap& pill(QSize size, GridCell::Kind kind, bool isCurrent);
    ChangeParts changeParts(const GridCell& cell, int width, const Style& style) const;
    const GridFont& plainFont(const Style& style) const { return style.isKey ? m_fonts.key : m_fonts.cell; }

    const Theme& m_theme;
    const GridFonts& m_fonts;
    qreal m_pixelRatio = 1;
    QHash<quint64, QPixmap> m_pills;
    QPixmap m_info;
};

}  // namespace corvale
