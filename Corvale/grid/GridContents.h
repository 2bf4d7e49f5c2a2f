#pragma once

#include <QFont>

#include "Corvale/grid/GridColumns.h"
#include "Corvale/grid/GridFonts.h"
#include "Corvale/grid/GridGeometry.h"
#include "Corvale/grid/GridLayout.h"

namespace corvale {

// What the grid and its header work out from a result, a view and a width, and keep until one of them changes.
struct GridContents {
    explicit GridContents(const QFont& base)
        : fonts(base, ViewMode::unified, false), m_fontsOf{base, ViewMode::unified, false} {}

    // Those for the widths as they are; made only when they are others, since a drag of an edge asks for each pixel.
    void setFonts(const QFont& base, ViewMode view) {
        const FontsOf wanted{base, view, layout.scale < 1};
        if (!(wanted == m_fontsOf)) {
            m_fontsOf = wanted;
            fonts = GridFonts(base, view, wanted.isScaled);
        }
    }

    GridLayout layout;
    GridColumns columns;
    GridGeometry geometry;
    GridFonts fonts;

private:
    struct FontsOf {
        QFont base;
        ViewMode view;
        bool isScaled;
        friend bool operator==(const FontsOf&, const FontsOf&) = default;
    };

    FontsOf m_fontsOf;
};

}  // namespace corvale
