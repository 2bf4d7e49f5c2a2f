#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Corvale/grid/GridLayout.h"
#include "tests/Corvale/grid/GridResults.h"

namespace corvale {
namespace {

using Columns = std::vector<std::int64_t>;

DiffResult oneColumn(const std::string& header, const std::vector<std::string>& values) {
    std::string csv = "ID," + header + "\n";
    for (std::size_t i = 0; i < values.size(); ++i) {
        csv += std::to_string(i) + "," + values[i] + "\n";
    }
    return GridResults::compared(csv, csv);
}

// A layout of the given widths, all columns on both sides.
GridLayout layoutOf(const std::vector<double>& widths) {
    GridLayout layout;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto column = static_cast<std::int64_t>(i);
        layout.columns.push_back(column);
        layout.beforeColumns.push_back(column);
        layout.afterColumns.push_back(column);
        layout.widths[column] = widths[i];
    }
    return layout;
}

TEST(GridLayout, WidthFollowsTheLongestOfHeaderAndValues) {
    struct Case {
        const char* description;
        std::string header;
        std::vector<std::string> values;
        double width;
    };
    const std::string twentyNine(29, 'x');
    const Case cases[] = {
        {"one character wide, raised to the minimum", "Q", {"1", "2", "3"}, 84},
        {"a header of seven counts as nine", "Quarter", {"1"}, 9 * 7.5 + 22},
        {"a header of six counts as eight, 82, raised", "Season", {"1"}, 84},
        {"a value of ten", "Name", {"0123456789"}, 97},
        {"a value of 29, one below the maximum", "Name", {twentyNine}, 239.5},
        {"a value of 30", "Name", {twentyNine + "x"}, 240},
        {"a value of 40", "Name", {std::string(40, 'x')}, 240},
        {"a header of 40", std::string(40, 'x'), {"1"}, 240},
        {"characters, not bytes", "Name", {"äöüäöüäöüä"}, 97},
        {"a family of emoji is one character", "Name", {"👩‍👩‍👧‍👦👩‍👩‍👧‍👦"}, 84},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(GridLayout::of(oneColumn(c.header, c.values)).width(1), c.width) << c.description;
    }
}

TEST(GridLayout, AnIdColumnOfSingleCharactersGetsTheMinimum) {
    EXPECT_EQ(GridLayout::of(GridResults::compared("ID\n1\n", "ID\n1\n2\n")).width(0), 84);
}

TEST(GridLayout, TheLongerOfTheTwoSidesCounts) {
    const auto result = GridResults::compared("ID,A,B\n1,0123456789ABC,x\n", "ID,A,B\n1,x,0123456789ABC\n");
    const GridLayout layout = GridLayout::of(result);
    EXPECT_EQ(layout.width(1), 13 * 7.5 + 22);
    EXPECT_EQ(layout.width(2), 13 * 7.5 + 22);
}

TEST(GridLayout, OnlyTheFirst200RowsAreRead) {
    std::vector<std::string> values(201, "x");
    values[200] = "long enough to widen it";
    EXPECT_EQ(GridLayout::of(oneColumn("Name", values)).width(1), 84);
    values[199] = values[200];
    EXPECT_EQ(GridLayout::of(oneColumn("Name", values)).width(1), 23 * 7.5 + 22);
}

TEST(GridLayout, ColumnsStandInTheOrderOfTheirTable) {
    const auto result = GridResults::compared("ID,A,Old,B\n1,a,o,b\n", "B,ID,New,A\nb,1,n,a\n");
    ASSERT_EQ(result.columns.size(), 5U);  // ID, A, Old, B, New
    const GridLayout layout = GridLayout::of(result);
    EXPECT_EQ(layout.columns, (Columns{0, 1, 2, 3, 4}));
    EXPECT_EQ(layout.beforeColumns, (Columns{0, 1, 2, 3}));
    EXPECT_EQ(layout.afterColumns, (Columns{3, 0, 4, 1}));
}

TEST(GridLayout, ScaleFitsBothHalvesIntoTheWidth) {
    struct Case {
        const char* description;
        std::vector<double> widths;
        double available;
        double scale;
    };
    const Case cases[] = {
        {"just enough", {100, 150}, 246 + 500, 1.0},
        {"one point short", {100, 150}, 246 + 499, 499.0 / 500},
        {"half of it is less than the least", {100, 150}, 246 + 250, 0.55},
        {"exactly the least", {100, 150}, 246 + 275, 0.55},
        {"narrower than what is fixed", {100, 150}, 10, 0.55},
        {"far too wide", {100, 150}, 5000, 1.0},
        {"no columns", {}, 10, 1.0},
    };
    for (const Case& c : cases) {
        GridLayout layout = layoutOf(c.widths);
        layout.fit(ViewMode::sideBySide, c.available);
        EXPECT_DOUBLE_EQ(layout.scale, c.scale) << c.description;
    }
}

TEST(GridLayout, UnifiedNeverScales) {
    GridLayout layout = layoutOf({240, 240, 240});
    layout.scale = 0.7;
    layout.fit(ViewMode::unified, 300.0);
    EXPECT_EQ(layout.scale, 1.0);
}

TEST(GridLayout, AnUnknownWidthNeverScales) {
    GridLayout layout = layoutOf({240, 240, 240});
    layout.scale = 0.7;
    layout.fit(ViewMode::sideBySide, std::nullopt);
    EXPECT_EQ(layout.scale, 1.0);
}

TEST(GridLayout, ContentWidthSumsWhatIsDrawn) {
    GridLayout layout = layoutOf({100, 150});
    EXPECT_DOUBLE_EQ(layout.contentWidth(ViewMode::unified), 234 + 250 * 1.6);
    EXPECT_DOUBLE_EQ(layout.contentWidth(ViewMode::sideBySide), 234 + 500 + 12);
    layout.scale = 0.55;
    EXPECT_DOUBLE_EQ(layout.contentWidth(ViewMode::sideBySide), 234 + 500 * 0.55 + 12);
    EXPECT_DOUBLE_EQ(layout.contentWidth(ViewMode::unified), 234 + 250 * 1.6);
}

TEST(GridLayout, AMissingWidthCountsAs120) {
    GridLayout layout = layoutOf({100, 150});
    layout.widths.erase(1);
    EXPECT_EQ(layout.width(1), 120);
    EXPECT_DOUBLE_EQ(layout.drawnWidth(ViewMode::unified, 1), 192);
    EXPECT_DOUBLE_EQ(layout.contentWidth(ViewMode::unified), 234 + 160 + 192);
    layout.fit(ViewMode::sideBySide, 246.0 + 330);
    EXPECT_DOUBLE_EQ(layout.scale, 330.0 / 440);
}

TEST(GridLayout, OfAResultIsFittedToAWidth) {
    GridLayout layout = GridLayout::of(GridResults::compared("ID,A\n1,a\n", "ID,A\n1,b\n"));
    EXPECT_EQ(layout.scale, 1.0);
    layout.fit(ViewMode::sideBySide, 500.0);
    EXPECT_DOUBLE_EQ(layout.scale, 254.0 / (4 * 84));
}

}  // namespace
}  // namespace corvale
