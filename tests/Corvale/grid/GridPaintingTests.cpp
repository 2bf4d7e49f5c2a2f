// What the lines of the grid look like: their colours, as they tell one kind of row and cell from another.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <set>

#include "tests/Corvale/grid/GridScene.h"

namespace corvale {
namespace {

using Show = DiffFilter::Show;

class GridPaintingTest : public TestSupport::GridScene {
protected:
    enum Line : std::int64_t { formatOnly, changed, same, removed, added };

    GridPaintingTest() {
        DiffOptions options;
        options.ignoreNumberFormat = false;
        setOptions(options);
        open("ID,A\n1,11.00\n2,42.00\n3,x\n4,y\n", "ID,A\n1,11\n2,39.00\n3,x\n5,z\n");
        setFilter(Show::all);
    }

    const Palette& palette() const { return m_theme.palette(); }

    void paint() { m_picture = viewport().grab().toImage(); }

    std::set<QRgb> colorsIn(const QRect& area) const {
        std::set<QRgb> colors;
        const QRect inside = area.intersected(m_picture.rect());
        for (int y = inside.top(); y <= inside.bottom(); ++y) {
            for (int x = inside.left(); x <= inside.right(); ++x) {
                colors.insert(m_picture.pixel(x, y));
            }
        }
        return colors;
    }

    // The inside of a cell, without the hairlines around it.
    QRect inCell(std::int64_t line, std::size_t cell) const {
        return m_grid.cellArea(line, cell).adjusted(2, 1, -2, -2);
    }
    bool has(const QRect& area, const QColor& color) const { return colorsIn(area).contains(color.rgb()); }
    bool is(const QRect& area, const QColor& color) const { return colorsIn(area) == std::set<QRgb>{color.rgb()}; }

    // The longest horizontal line of one colour.
    int longestRun(const QRect& area, const QColor& color) const {
        int longest = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            int run = 0;
            for (int x = area.left(); x <= area.right(); ++x) {
                run = m_picture.pixel(x, y) == color.rgb() ? run + 1 : 0;
                longest = std::max(longest, run);
            }
        }
        return longest;
    }

    // Beyond the last cell of a line, where nothing is written.
    QRect besideCells(std::int64_t line) const {
        const int left = m_grid.cellArea(line, 1).right() + 4;
        return QRect(left, m_grid.lineArea(line).top() + 1, 20, 20);
    }

    QImage m_picture;
};

TEST_F(GridPaintingTest, AChangedCellHasTheColoursOfAChange) {
    paint();
    const QRect area = inCell(changed, 1);
    EXPECT_TRUE(has(area, palette().changed.fill));
    EXPECT_TRUE(has(area, palette().changed.text));
    EXPECT_TRUE(has(area, palette().text));
    EXPECT_FALSE(has(area, palette().formatOnly.fill));
    EXPECT_FALSE(has(area, palette().formatOnly.text));
}

TEST_F(GridPaintingTest, ACellThatIsOnlyWrittenDifferentlyHasOthers) {
    paint();
    const QRect area = inCell(formatOnly, 1);
    EXPECT_TRUE(has(area, palette().formatOnly.fill));
    EXPECT_TRUE(has(area, palette().formatOnly.text));
    EXPECT_FALSE(has(area, palette().changed.fill));
    EXPECT_FALSE(has(area, palette().changed.text));
    EXPECT_FALSE(has(area, palette().text));
    // It is the blue one.
    EXPECT_GT(palette().formatOnly.text.blue(), palette().formatOnly.text.red());
    EXPECT_GT(palette().formatOnly.text.blue(), palette().formatOnly.text.green());
}

TEST_F(GridPaintingTest, TheOldValueIsStruckOut) {
    const GridFont& font = m_grid.contents().fonts.cell;
    for (const ViewMode view : {ViewMode::unified, ViewMode::sideBySide}) {
        setView(view);
        paint();
        const int least = static_cast<int>(font.width(QStringLiteral("42.00"))) - 1;
        EXPECT_GE(longestRun(inCell(changed, 1), palette().changed.text), least);
        EXPECT_GE(longestRun(inCell(formatOnly, 1), palette().formatOnly.text), least);
    }
    // The new one is not.
    EXPECT_LT(longestRun(inCell(changed, 3), palette().text), 10);
    EXPECT_LT(longestRun(inCell(formatOnly, 3), palette().formatOnly.text), 10);
}

TEST_F(GridPaintingTest, AddedAndRemovedLinesHaveTheirFill) {
    paint();
    EXPECT_TRUE(is(besideCells(added), palette().added.fill));
    EXPECT_TRUE(is(besideCells(removed), palette().removed.fill));
    EXPECT_TRUE(is(besideCells(changed), palette().surface));
    EXPECT_TRUE(is(besideCells(same), palette().surface));
    EXPECT_GT(colorsIn(inCell(added, 1)).size(), 1U);
}

TEST_F(GridPaintingTest, SideBySideTheHalfThatARowLacksIsHatched) {
    setView(ViewMode::sideBySide);
    paint();
    const struct {
        Line line;
        std::size_t lacking;
        std::size_t having;
        QColor fill;
    } cases[] = {{added, 1, 3, palette().added.fill}, {removed, 3, 1, palette().removed.fill}};
    for (const auto& c : cases) {
        const QRect lacking = inCell(c.line, c.lacking);
        EXPECT_GT(colorsIn(lacking).size(), 1U);
        EXPECT_TRUE(has(lacking, palette().surface2));
        EXPECT_FALSE(has(lacking, c.fill));
        EXPECT_FALSE(has(lacking, palette().text));
        EXPECT_TRUE(has(inCell(c.line, c.having), c.fill));
        EXPECT_FALSE(has(inCell(c.line, c.having), palette().surface2));
    }
    EXPECT_TRUE(has(inCell(same, 1), palette().surface));
    EXPECT_TRUE(has(inCell(same, 3), palette().surface));
}

TEST_F(GridPaintingTest, TheSelectedLineIsTinted) {
    m_grid.selectLine(changed);
    m_grid.setFocus();
    paint();
    EXPECT_TRUE(is(besideCells(changed).adjusted(0, 2, 0, 0), palette().accentTint));
    m_grid.clearFocus();
    paint();
    EXPECT_TRUE(is(besideCells(changed).adjusted(0, 2, 0, 0), palette().surface2));
}

}  // namespace
}  // namespace corvale
