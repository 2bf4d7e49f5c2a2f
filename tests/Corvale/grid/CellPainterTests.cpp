#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
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

// The pixels of a cell that a painter fills.
QImage painted(const GridCell& cell, const CellPainter::Style& style) {
    const Theme theme(*qApp);
    QFont font = QApplication::font();
    font.setPixelSize(13);
    const GridFonts fonts(font, style.view, false);
    CellPainter cells(theme, fonts);
    const QRect area(0, 0, 160, 28);
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    cells.paint(painter, area, cell, style);
    return image;
}

TEST(CellPainter, ALongKeyShowsBothOfItsEnds) {
    const std::string first = "begin" + std::string(3'000'000, 'x');
    const std::string middle = "begin" + std::string(300, 'x') + "y" + std::string(300, 'x');
    CellPainter::Style style;
    style.isKey = true;
    const QImage shown = painted(plain(first + "end"), style);
    EXPECT_NE(painted(plain(first + "END"), style), shown);
    EXPECT_NE(painted(plain("BEGIN" + first.substr(5) + "end"), style), shown);
    EXPECT_EQ(painted(plain(middle + "end"), style), shown);
    style.isKey = false;
    EXPECT_EQ(painted(plain(first + "END"), style), painted(plain(first + "end"), style));
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
        {plain("two\ttabs"), 240, false},
        {plain("1\u00A0234\u202F567"), 240, true},
        {plain("1\u00A0234\u202F567"), 60, false},
        {plain(longCell), 240, false},
        {changed("42.00", "39.00"), 134, true},
        {changed("42.00", "39.00"), 70, false},
        {changed("", "39.00"), 70, true},
        {changed("42.00", ""), 70, true},
        {changed("a\nb", "c"), 134, false},
        {changed("1\u00A0234", "1\u202F235"), 134, true},
        {changed("1\t234", "1\u202F235"), 134, false},
        {changed(longCell, "c"), 240, false},
        {changed("11.00", "11", Kind::formatOnly), 134, true},
        {changed("11.00", "11", Kind::formatOnly), 90, false},
        {{Kind::missing, GridGeometry::CellSide::before, {}, {}, {}}, 10, true},
    };
    for (const Case& c : cases) {
        for (const bool isKey : {false, true}) {
            CellPainter::Style style;
            style.isKey = isKey;
            EXPECT_EQ(painter.fits(c.width, c.cell, style), c.fits)
                << c.cell.text.substr(0, 20) << c.cell.before.substr(0, 20) << ' ' << c.cell.after << " in " << c.width;
        }
    }
}

}  // namespace
}  // namespace corvale
