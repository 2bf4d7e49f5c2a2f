#pragma once

#include <QFont>

#include "Corvale/grid/GridColumns.h"
#include "Corvale/grid/GridFonts.h"
#include "Corvale/grid/GridGeometry.h"
#include "Corvale/grid/GridLayout.h"

namespace corvale {

// What the grid and its header work out from a result, a view and a width, and keep until one of them changes.
struct GridContents {
    explicit GridContents(const QFont& font) : fonts(font, ViewMode::unified, false) {}

    GridLayout widths;
    GridColumns columns;
    GridGeometry layout;
    GridFonts fonts;
};

}  // namespace corvale
