#include <gtest/gtest.h>

#include <QApplication>
#include <string>

#include "Corvale/grid/CellPainter.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

using Kind = GridCell::Kind;

GridCell plain(std::string_view text) { return {Kind::plain, GridGeometry::CellSide::both, text, {}, {}}; }

GridCell changed(std::string_view before, std::string_view after, Kind kind = Kind::changed) {
    return {kind, GridGeometry::CellSide::both, {}, before, after};
}

TEST(CellPainter, KnowsWhatFits) {
    const Theme theme(*qApp);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    const GridFonts fonts(font, ViewMode::unified, false);
    const CellPainter painter(theme, fonts);
    const std::string longCell(16384, 'x');
    struct Case {
        GridCell cell;
        int width;
        bool fits;
    };
    const Case cases[] = {
        {plain(""), 30, true},
        {plain("Terracotta pot"), 240, true},
        {plain("Terracotta pot"), 60, false},
        {plain("two\nlines"), 240, false},
        {plain(longCell), 240, false},
        {changed("42.00", "39.00"), 134, true},
        {changed("42.00", "39.00"), 70, false},
        {changed("", "39.00"), 70, true},
        {changed("42.00", ""), 70, true},
        {changed("a\nb", "c"), 134, false},
        {changed(longCell, "c"), 240, false},
        {changed("11.00", "11", Kind::formatOnly), 134, true},
        {changed("11.00", "11", Kind::formatOnly), 90, false},
        {{Kind::missing, GridGeometry::CellSide::before, {}, {}, {}}, 10, true},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(painter.fits(c.width, c.cell, {}), c.fits)
            << c.cell.text.substr(0, 20) << c.cell.before.substr(0, 20) << ' ' << c.cell.after << " in " << c.width;
    }
}

}  // namespace
}  // namespace corvale
