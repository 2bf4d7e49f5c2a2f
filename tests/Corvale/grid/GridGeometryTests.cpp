#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "Corvale/grid/GridGeometry.h"

namespace corvale {
namespace {

using CellSide = GridGeometry::CellSide;
using Place = GridGeometry::Place;
using Range = GridGeometry::Range;

GridLayout layoutOf(const std::vector<double>& widths) {
    GridLayout layout;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto column = static_cast<std::int64_t>(i);
        layout.columns.push_back(column);
        layout.beforeColumns.push_back(column);
        layout.afterColumns.insert(layout.afterColumns.begin(), column);
        layout.widths[column] = widths[i];
    }
    return layout;
}

// Unified, cells of 160 pixels each.
GridGeometry unified(std::size_t columns, int viewport, std::optional<std::int64_t> key = std::nullopt) {
    return {layoutOf(std::vector<double>(columns, 100)), ViewMode::unified, key, viewport};
}

std::vector<CellChange> changesIn(const std::vector<std::int32_t>& columns) {
    std::vector<CellChange> changes;
    for (const auto column : columns) {
        changes.push_back({column, ChangeKind::value});
    }
    return changes;
}

TEST(GridGeometry, UnifiedCellsFollowTheLeadingBlock) {
    const auto geometry = unified(2, 1000);
    const std::vector<GridGeometry::Cell> expected = {
        {0, CellSide::both, 234, 394},
        {1, CellSide::both, 394, 554},
    };
    EXPECT_EQ(geometry.cells(), expected);
    EXPECT_EQ(geometry.contentWidth(), 554);
    EXPECT_EQ(geometry.maximumScroll(), 0);
}

TEST(GridGeometry, TheHalvesStandInTheirOwnOrderAroundTheGap) {
    const GridGeometry geometry(layoutOf({100, 150}), ViewMode::sideBySide, 0, 500);
    const std::vector<GridGeometry::Cell> expected = {
        {0, CellSide::before, 234, 334},
        {1, CellSide::before, 334, 484},
        {1, CellSide::after, 496, 646},
        {0, CellSide::after, 646, 746},
    };
    EXPECT_EQ(geometry.cells(), expected);
    EXPECT_EQ(geometry.gapLeft(), 484);
    EXPECT_EQ(geometry.maximumScroll(), 246);
}

TEST(GridGeometry, ALayoutThatWasFittedDoesNotScroll) {
    for (int viewport = 500; viewport < 1200; ++viewport) {
        GridLayout layout = layoutOf({84, 101.5, 240, 91.5});
        layout.fit(ViewMode::sideBySide, viewport);
        const GridGeometry geometry(layout, ViewMode::sideBySide, 0, viewport);
        if (layout.scale > 0.55) {
            EXPECT_EQ(geometry.maximumScroll(), 0) << viewport;
        }
    }
}

TEST(GridGeometry, CellsShareTheirEdges) {
    const GridGeometry geometry(layoutOf({84, 91.5, 99.03, 84.7}), ViewMode::unified, {}, 500);
    for (std::size_t i = 1; i < geometry.cells().size(); ++i) {
        EXPECT_EQ(geometry.cells()[i].left, geometry.cells()[i - 1].right);
    }
}

TEST(GridGeometry, TheKeyColumnIsPinnedWhileMostOfTheViewportIsFree) {
    // 234 + 160 = 394 is 45 % of 875.6.
    EXPECT_EQ(unified(9, 876, 0).pinnedCell(0), 0U);
    EXPECT_EQ(unified(9, 875, 0).pinnedCell(0), std::nullopt);
    EXPECT_EQ(unified(9, 876).pinnedCell(0), std::nullopt);
    EXPECT_EQ(unified(9, 876, 99).pinnedCell(0), std::nullopt);
}

TEST(GridGeometry, NoColumnIsPinnedSideBySide) {
    const GridGeometry geometry(layoutOf({100, 150}), ViewMode::sideBySide, 0, 4000);
    EXPECT_EQ(geometry.pinnedCell(0), std::nullopt);
}

TEST(GridGeometry, AKeyColumnInTheMiddleIsPinnedOnceItWouldScrollAway) {
    const auto geometry = unified(12, 1000, 1);
    EXPECT_EQ(geometry.pinnedCell(159), std::nullopt);
    EXPECT_EQ(geometry.screenLeft(1, 159), 235);
    EXPECT_EQ(geometry.pinnedCell(160), 1U);
    EXPECT_EQ(geometry.screenLeft(1, 160), 234);
    EXPECT_EQ(geometry.pinnedCell(700), 1U);
    EXPECT_EQ(geometry.screenLeft(1, 700), 234);
    EXPECT_EQ(geometry.shownWidth(1, 700), 160);
    EXPECT_EQ(geometry.scrolledAreaLeft(159), 234);
    EXPECT_EQ(geometry.scrolledAreaLeft(160), 394);
}

TEST(GridGeometry, ACellIsOutOfViewWithLessThan44PixelsOfIt) {
    const auto geometry = unified(20, 800);
    // Cell 0 is at 234 - scroll; the viewport's scrolling part begins at 234.
    EXPECT_EQ(geometry.place(0, 0), Place::onScreen);
    EXPECT_EQ(geometry.place(0, 116), Place::onScreen);
    EXPECT_EQ(geometry.place(0, 117), Place::leftOfIt);
    // Cell 3 ends at 874.
    EXPECT_EQ(geometry.place(4, 117), Place::rightOfIt);
    EXPECT_EQ(geometry.place(4, 118), Place::onScreen);
}

TEST(GridGeometry, TheNearestChangedCellsOutOfViewAreFound) {
    struct Case {
        const char* description;
        std::vector<std::int32_t> columns;
        int scroll;
        GridGeometry::OutOfView expected;
    };
    // 566 pixels of cells of 160: at 640, cells 4 to 6 show whole and 86 pixels of cell 7.
    const Case cases[] = {
        {"nothing changed", {}, 640, {}},
        {"all on screen", {4, 5, 7}, 640, {}},
        {"both sides", {0, 2, 5, 8, 11}, 640, {2, 8}},
        {"left only", {1, 3}, 640, {3, {}}},
        {"right only", {9, 12}, 640, {{}, 9}},
        {"not scrolled", {0, 12}, 0, {{}, 12}},
    };
    const auto geometry = unified(20, 800);
    for (const Case& c : cases) {
        EXPECT_EQ(geometry.outOfView(changesIn(c.columns), c.scroll), c.expected) << c.description;
    }
}

TEST(GridGeometry, SideBySideEachHalfOfAChangeCounts) {
    const GridGeometry geometry(layoutOf({100, 100, 100, 100}), ViewMode::sideBySide, {}, 634);
    // Before's cells fill the viewport; After's, in reverse, are to the right of the gap: 3 2 1 0.
    EXPECT_EQ(geometry.outOfView(changesIn({1}), 0), (GridGeometry::OutOfView{{}, 6}));
    EXPECT_EQ(geometry.outOfView(changesIn({1, 3}), 0), (GridGeometry::OutOfView{{}, 4}));
    EXPECT_EQ(geometry.outOfView(changesIn({0, 1}), 412), (GridGeometry::OutOfView{1, {}}));
}

TEST(GridGeometry, ScrollingToACellMovesNoFurtherThanNeeded) {
    const auto geometry = unified(20, 800);
    EXPECT_EQ(geometry.scrollToShow(1, 0), 0);
    EXPECT_EQ(geometry.scrollToShow(5, 0), 234 + 6 * 160 - 800);
    EXPECT_EQ(geometry.scrollToShow(5, 700), 700);
    EXPECT_EQ(geometry.scrollToShow(2, 1000), 320);
    EXPECT_EQ(geometry.scrollToShow(19, 0), geometry.maximumScroll());
}

TEST(GridGeometry, EveryCellThatWasScrolledToShowsWhole) {
    for (const std::optional<std::int64_t> key :
         {std::optional<std::int64_t>(), std::optional<std::int64_t>(0), std::optional<std::int64_t>(4)}) {
        const auto geometry = unified(20, 1000, key);
        for (int scroll = 0; scroll <= geometry.maximumScroll(); scroll += 97) {
            for (std::size_t cell = 0; cell < geometry.cells().size(); ++cell) {
                const int shown = geometry.scrollToShow(cell, scroll);
                EXPECT_EQ(geometry.shownWidth(cell, shown), 160) << cell << " from " << scroll;
            }
        }
    }
}

TEST(GridGeometry, AColumnOnOneSideIsFoundInItsHalf) {
    GridLayout layout = layoutOf({100, 100});
    layout.beforeColumns = {0};
    layout.afterColumns = {1};
    const GridGeometry geometry(layout, ViewMode::sideBySide, {}, 800);
    EXPECT_EQ(geometry.cellOfColumn(0), 0U);
    EXPECT_EQ(geometry.cellOfColumn(1), 1U);
    EXPECT_EQ(geometry.cellOfColumn(2), std::nullopt);
    EXPECT_EQ(geometry.cellOfColumn(-1), std::nullopt);
}

// The obvious way: every cell is looked at.
Range slowVisibleCells(const GridGeometry& geometry, int scroll) {
    Range range{geometry.cells().size(), 0};
    for (std::size_t cell = 0; cell < geometry.cells().size(); ++cell) {
        if (geometry.pinnedCell(scroll) != cell && geometry.shownWidth(cell, scroll) > 0) {
            range = {std::min(range.begin, cell), cell + 1};
        }
    }
    return range;
}

std::optional<std::size_t> slowCellAt(const GridGeometry& geometry, int x, int scroll) {
    if (x < GridGeometry::leadingWidth || x >= geometry.viewportWidth()) {
        return std::nullopt;
    }
    const auto pinned = geometry.pinnedCell(scroll);
    const auto covers = [&](std::size_t cell) {
        const int left = geometry.screenLeft(cell, scroll);
        return left <= x && x < left + geometry.cells()[cell].width();
    };
    if (pinned && covers(*pinned)) {
        return pinned;
    }
    for (std::size_t cell = 0; cell < geometry.cells().size(); ++cell) {
        if (covers(cell)) {
            return cell;
        }
    }
    return std::nullopt;
}

TEST(GridGeometry, SearchingAgreesWithLookingAtEveryCell) {
    std::mt19937 random(20);
    const auto upTo = [&](int limit) { return std::uniform_int_distribution<int>(0, limit)(random); };
    for (int round = 0; round < 300; ++round) {
        std::vector<double> widths(static_cast<std::size_t>(upTo(12)) + 1);
        std::generate(widths.begin(), widths.end(), [&] { return 84 + upTo(1560) / 10.0; });
        const auto view = round % 2 == 0 ? ViewMode::unified : ViewMode::sideBySide;
        const GridGeometry geometry(layoutOf(widths), view, upTo(3), 300 + upTo(1500));
        const int scroll = upTo(geometry.maximumScroll());
        const Range expected = slowVisibleCells(geometry, scroll);
        const Range found = geometry.visibleCells(scroll);
        if (expected.begin < expected.end) {
            EXPECT_EQ(found, expected) << round;
        } else {
            EXPECT_EQ(found.begin, found.end) << round;
        }
        for (int x = 0; x < geometry.viewportWidth() + 5; x += 3) {
            EXPECT_EQ(geometry.cellAt(x, scroll), slowCellAt(geometry, x, scroll)) << round << " at " << x;
        }
    }
}

}  // namespace
}  // namespace corvale
