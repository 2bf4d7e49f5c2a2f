#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using Show = DiffFilter::Show;
using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelSelectionTest : public ModelTest {
protected:
    AppModelSelectionTest() { openPair(); }

    void filter(Show show, std::optional<std::int64_t> column = {}, const std::string& search = "") {
        m_model.setFilter({show, column, search});
    }
};

// The rows of the pair are 1 (same), 2 (changed), 3 (removed), 4 (added).
TEST_F(AppModelSelectionTest, TheFilterChoosesWhatIsListed) {
    const std::vector<std::pair<DiffFilter, std::string>> cases = {
        {{Show::all, {}, ""}, "1 2 3 4"},
        {{Show::changes, {}, ""}, "2 3 4"},
        {{Show::added, {}, ""}, "4"},
        {{Show::removed, {}, ""}, "3"},
        {{Show::changed, {}, ""}, "2"},
        {{Show::changes, 2, ""}, "2"},
        {{Show::changes, 1, ""}, ""},
        {{Show::all, {}, "PEN"}, "1"},
    };
    for (const auto& [filter, keys] : cases) {
        m_model.setFilter(filter);
        EXPECT_EQ(m_model.filter(), filter);
        m_platform.settle();
        EXPECT_EQ(listed(), keys);
    }
}

TEST_F(AppModelSelectionTest, FilteringHappensInTheBackground) {
    filter(Show::all);
    EXPECT_EQ(listed(), "2 3 4");
    EXPECT_EQ(m_watch.take(), "filter filterGeneration");
    m_platform.work();
    EXPECT_EQ(listed(), "2 3 4");
    m_platform.deliver();
    EXPECT_EQ(listed(), "1 2 3 4");
    EXPECT_EQ(m_watch.take(), "visible");
}

TEST_F(AppModelSelectionTest, OfQuickKeystrokesOnlyTheLastIsStored) {
    std::vector<std::string> seen;
    const QObject receiver;
    QObject::connect(&m_model, &AppModel::visibleChanged, &receiver, [this, &seen] { seen.push_back(listed()); });
    for (const char* const typed : {"c", "cu", "cup"}) {
        filter(Show::all, {}, typed);
    }
    m_platform.settle();
    EXPECT_EQ(seen, (std::vector<std::string>{"2"}));
}

TEST_F(AppModelSelectionTest, AnOlderFilterThatEndsLaterIsNotStored) {
    filter(Show::all);
    filter(Show::added);
    step(1);
    EXPECT_EQ(listed(), "4");
    m_platform.settle();
    EXPECT_EQ(listed(), "4");
}

TEST_F(AppModelSelectionTest, AFilterThatEndedIsNotStoredOnceANewerOneIsSet) {
    filter(Show::all);
    m_platform.work();
    filter(Show::added);
    m_platform.deliver();
    EXPECT_EQ(listed(), "2 3 4");
    m_platform.settle();
    EXPECT_EQ(listed(), "4");
}

TEST_F(AppModelSelectionTest, AFilterOfAnOlderResultIsNotStored) {
    filter(Show::all);
    // The comparison ends before the filter of the result that it replaces.
    m_model.compare();
    step(1);
    const auto result = m_model.result();
    EXPECT_EQ(listed(), "1 2 3 4");
    m_watch.take();
    m_platform.settle();
    EXPECT_EQ(m_model.result(), result);
    EXPECT_EQ(m_watch.take(), "");
}

TEST_F(AppModelSelectionTest, AFilterOfAPairThatWasClosedIsNotStored) {
    filter(Show::all);
    m_platform.work();
    m_model.close(Side::before);
    m_platform.settle();
    EXPECT_TRUE(m_model.visible().empty());
}

TEST_F(AppModelSelectionTest, AColumnThatTheResultLacksIsNoFilter) {
    for (const std::int64_t column : {-1, 3, 99}) {
        filter(Show::changes, column);
        EXPECT_EQ(m_model.filter(), DiffFilter());
    }
    EXPECT_EQ(m_platform.waiting(), 0U);
    EXPECT_EQ(m_watch.take(), "");
    m_model.close(Side::before);
    filter(Show::all, 0);
    EXPECT_EQ(m_model.filter(), (DiffFilter{Show::all, {}, ""}));
}

TEST_F(AppModelSelectionTest, EachFilterHasItsNumber) {
    const auto number = m_model.filterGeneration();
    filter(Show::all);
    filter(Show::added);
    EXPECT_EQ(m_model.filterGeneration(), number + 2);
}

TEST_F(AppModelSelectionTest, ANewResultKeepsTheFilterAndFindsItsColumnByName) {
    m_platform.files["moved.csv"] = "Price,ID,Name\n2,1,Pen\n7,2,Cup\n5,3,Hats\n";
    filter(Show::changed, 2, "");
    m_platform.settle();
    load("moved.csv", Side::before);
    m_platform.settle();
    ASSERT_EQ(m_model.result()->columns[0].name, "Price");
    EXPECT_EQ(m_model.filter(), (DiffFilter{Show::changed, 0, ""}));
    EXPECT_EQ(listed(), "2");
}

TEST_F(AppModelSelectionTest, AColumnThatIsGoneNoLongerFilters) {
    m_platform.files["short.csv"] = "ID,Name\n1,Pen\n2,Mug\n";
    filter(Show::changed, 2, "mug");
    m_platform.settle();
    m_model.open({ScriptedPlatform::url("short.csv"), ScriptedPlatform::url("short.csv")}, Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.filter(), (DiffFilter{Show::changed, {}, "mug"}));
}

TEST_F(AppModelSelectionTest, AfterASwapTheColumnIsFoundUnderTheNameThatTheOtherFileGivesIt) {
    m_platform.files["upper.csv"] = "PRICE,ID,Name\n2,1,Pen\n4,2,Cup\n";
    load("upper.csv", Side::after);
    m_platform.settle();
    filter(Show::changed, 2);
    m_platform.settle();
    ASSERT_EQ(listed(), "2");
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(m_model.filter().column, 0);
    EXPECT_EQ(m_model.result()->columns[0].name, "PRICE");
    EXPECT_EQ(listed(), "2");
}

TEST_F(AppModelSelectionTest, ARowOfTheResultCanBeSelectedAlthoughItIsNotListed) {
    m_model.select(0);
    EXPECT_EQ(selectedKey(), "1");
    EXPECT_EQ(m_watch.take(), "selectedRow");
    m_model.select(std::nullopt);
    EXPECT_EQ(m_model.selectedRow(), std::nullopt);
}

TEST_F(AppModelSelectionTest, ARowThatTheResultLacksSelectsNothing) {
    for (const std::int64_t row : {-1, 4, 99}) {
        m_model.select(1);
        m_model.select(row);
        EXPECT_EQ(m_model.selectedRow(), std::nullopt);
    }
}

TEST_F(AppModelSelectionTest, ArrowKeysWalkTheListAndStopAtItsEnds) {
    std::string walked;
    for (int press = 0; press < 4; ++press) {
        m_model.selectNext();
        walked += selectedKey();
    }
    for (int press = 0; press < 3; ++press) {
        m_model.selectPrevious();
        walked += selectedKey();
    }
    EXPECT_EQ(walked, "2344322");
}

TEST_F(AppModelSelectionTest, WithoutASelectionTheFirstPressSelectsTheFirstOrTheLastRow) {
    m_model.selectNext();
    EXPECT_EQ(selectedKey(), "2");
    m_model.select(std::nullopt);
    m_model.selectPrevious();
    EXPECT_EQ(selectedKey(), "4");
}

TEST_F(AppModelSelectionTest, FromARowThatIsNotListedArrowKeysGoToTheNextOneThatIs) {
    filter(Show::all, {}, "e");
    m_platform.settle();
    ASSERT_EQ(listed(), "1");
    m_model.select(2);
    m_model.selectNext();
    EXPECT_EQ(selectedKey(), "3");
    m_model.selectPrevious();
    EXPECT_EQ(selectedKey(), "1");
}

TEST_F(AppModelSelectionTest, ArrowKeysDoNothingInAnEmptyList) {
    filter(Show::all, {}, "nowhere");
    m_platform.settle();
    m_model.selectNext();
    m_model.selectPrevious();
    EXPECT_EQ(m_model.selectedRow(), std::nullopt);
}

TEST_F(AppModelSelectionTest, AFilterLeavesTheSelection) {
    m_model.select(1);
    filter(Show::added);
    m_platform.settle();
    EXPECT_EQ(selectedKey(), "2");
}

TEST_F(AppModelSelectionTest, ANewResultKeepsTheSelectionByKey) {
    m_platform.files["shuffled.csv"] = "ID,Name,Price\n9,Mug,1\n3,Hat,5\n2,Cup,3\n";
    m_model.select(1);
    ASSERT_EQ(selectedKey(), "2");
    load("shuffled.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(selectedKey(), "2");
    EXPECT_NE(m_model.selectedRow(), 1);
}

TEST_F(AppModelSelectionTest, ARowThatIsGoneIsNotSelected) {
    m_platform.files["others.csv"] = "ID,Name,Price\n1,Pen,2\n4,Ink,1\n";
    m_model.select(1);
    m_model.open({ScriptedPlatform::url("others.csv"), ScriptedPlatform::url("others.csv")}, Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.selectedRow(), std::nullopt);
}

TEST_F(AppModelSelectionTest, WithAnotherMatchTheSelectionStaysOnTheRowAndNotOnItsText) {
    m_platform.files["a.csv"] = "ID,Price\n4,1\n3,2\n2,3\n";
    openPair("a.csv", "a.csv");
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    m_model.select(0);
    ASSERT_EQ(selectedKey(), "4");
    m_model.setMatch(MatchChoice::rowOrder());
    m_platform.settle();
    // By row order the key is the row number, and row 4 is another row.
    EXPECT_EQ(m_model.selectedRow(), 0);
    EXPECT_EQ(selectedKey(), "2");
}

TEST_F(AppModelSelectionTest, SwapKeepsTheSelectedRowThoughItsNumbersChangeSides) {
    m_platform.files["long.csv"] = "A,B\nnew,1\nx,1\ny,1\nz,1\n";
    m_platform.files["short.csv"] = "A,B\nx,1\ny,1\nz,1\n";
    openPair("short.csv", "long.csv");
    m_model.setMatch(MatchChoice::rowOrder());
    m_platform.settle();
    const auto text = [this] {
        const DiffResult& result = *m_model.result();
        const DiffRow row = result.rows[static_cast<std::size_t>(*m_model.selectedRow())];
        return std::string(row.left ? result.cellBefore(row, result.columns[0]) : "-") + " " +
               std::string(row.right ? result.cellAfter(row, result.columns[0]) : "-");
    };
    for (std::int64_t row = 0; row < 4; ++row) {
        m_model.select(row);
        const std::string selected = text();
        m_model.swap();
        m_platform.settle();
        EXPECT_EQ(text(), selected == "- new" ? "new -" : selected);
        m_model.swap();
        m_platform.settle();
        EXPECT_EQ(text(), selected);
        EXPECT_EQ(m_model.selectedRow(), row);
    }
}

TEST_F(AppModelSelectionTest, RowDetailsFollowTheUsersChoice) {
    m_model.toggleInspector();
    EXPECT_EQ(m_watch.take(), "inspectorWanted showInspector");
    EXPECT_FALSE(m_model.showInspector());
    EXPECT_FALSE(m_model.inspectorWanted());
    m_model.select(1);
    EXPECT_FALSE(m_model.showInspector());
    m_model.toggleInspector();
    EXPECT_TRUE(m_model.showInspector());
    EXPECT_TRUE(m_model.inspectorWanted());
    m_model.select(2);
    EXPECT_TRUE(m_model.showInspector());
}

TEST_F(AppModelSelectionTest, TheFocusIsAskedForUntilTheFieldHasIt) {
    m_model.setFocusSearch(true);
    EXPECT_TRUE(m_model.focusSearch());
    EXPECT_EQ(m_watch.take(), "focusSearch");
    m_model.setFocusSearch(false);
    EXPECT_FALSE(m_model.focusSearch());
}

}  // namespace
}  // namespace corvale
