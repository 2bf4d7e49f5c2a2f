#include <gtest/gtest.h>

#include "Corvale/model/ShownResult.h"
#include "CorvaleKit/engine/DiffEngine.h"

namespace corvale {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using Show = DiffFilter::Show;

const RowMatch byId = RowMatch::key({"ID"});

std::shared_ptr<const DiffResult> compared(const Rows& before, const Rows& after, const RowMatch& match = byId,
                                           const std::vector<std::string>& headers = {"ID", "Price"}) {
    return std::make_shared<const DiffResult>(DiffEngine::compare(
        DataTable(headers, before, "b.csv"), DataTable(headers, after, "a.csv"), match, {}, NumberStyle::dotDecimal));
}

const Rows three = {{"1", "a"}, {"2", "b"}, {"3", "c"}};

// Where the selected row of one result is in the next one.
std::optional<std::int64_t> carried(const DiffResult& from, std::int64_t row, std::shared_ptr<const DiffResult> to,
                                    bool isSwapped = false) {
    const ResultView view = viewOf(from, {}, row, {to->match, isSwapped});
    return show(std::move(to), view).selectedRow;
}

TEST(ShownResult, HoldsWhatItWasMadeFrom) {
    const auto result = compared(three, {{"1", "x"}, {"2", "b"}, {"3", "y"}});
    const ResultView view = viewOf(*result, {Show::changed, 1, "x"}, 2, {byId});
    EXPECT_EQ(view.columnName, "Price");
    EXPECT_EQ(view.selectedRow, (RowIdentity{"3", 2, 2}));
    const ShownResult shown = show(result, view);
    EXPECT_EQ(shown.result, result);
    EXPECT_EQ(shown.view, view);
    EXPECT_EQ(shown.filter, (DiffFilter{Show::changed, 1, "x"}));
    EXPECT_EQ(shown.visible, (std::vector<std::int64_t>{0}));
    EXPECT_EQ(shown.selectedRow, 2);
}

TEST(ShownResult, AColumnIsFoundByItsNameOnly) {
    const auto result = compared(three, three);
    ResultView view;
    view.filter = {Show::all, 0, ""};
    EXPECT_EQ(show(result, view).filter.column, std::nullopt);
    view.columnName = "Price";
    EXPECT_EQ(show(result, view).filter.column, 1);
    view.columnName = "price";
    EXPECT_EQ(show(result, view).filter.column, std::nullopt);
}

TEST(ShownResult, ARowIsFoundByItsKeyWhereverItIs) {
    const auto from = compared(three, three);
    const auto to = compared({{"9", "z"}, {"3", "c"}, {"2", "b"}}, {{"3", "c"}, {"2", "b"}, {"9", "z"}});
    for (std::int64_t row = 0; row < 3; ++row) {
        const auto found = carried(*from, row, to);
        if (row == 0) {
            EXPECT_EQ(found, std::nullopt);
        } else {
            ASSERT_TRUE(found);
            EXPECT_EQ(to->rows[static_cast<std::size_t>(*found)].key, from->rows[static_cast<std::size_t>(row)].key);
        }
    }
}

TEST(ShownResult, OfRepeatedKeysTheOneAtTheSamePlaceIsTakenElseTheFirst) {
    const Rows repeated = {{"7", "a"}, {"7", "b"}, {"7", "c"}};
    const auto from = compared(repeated, repeated);
    for (std::int64_t row = 0; row < 3; ++row) {
        EXPECT_EQ(carried(*from, row, from), row);
    }
    EXPECT_EQ(carried(*from, 2, compared({{"0", "z"}, {"7", "a"}}, {{"0", "z"}, {"7", "a"}})), 1);
}

TEST(ShownResult, OfAPairThatIsTwoRowsNowTheFirstIsTaken) {
    const Rows before = {{"1", "a"}, {"2", "b"}, {"3", "c"}};
    const Rows after = {{"1", "a"}, {"2", "z"}, {"3", "c"}};
    const auto from = compared(before, after);
    ASSERT_EQ(from->rows[1].left, 1);
    ASSERT_EQ(from->rows[1].right, 1);
    const auto to = compared(before, after, RowMatch::key({"Price"}));
    const auto found = carried(*from, 1, to);
    ASSERT_TRUE(found);
    const auto place = static_cast<std::size_t>(*found);
    EXPECT_EQ(to->rows[place].status, DiffRow::Status::removed);
    EXPECT_EQ(to->rows[place].left, 1);
    ASSERT_EQ(to->rows[place + 1].status, DiffRow::Status::added);
    EXPECT_EQ(to->rows[place + 1].right, 1);
}

TEST(ShownResult, RowsWithoutAKeyAreFoundByTheirPlaceOnly) {
    const auto from = compared({{"1", "a"}, {"", "b"}, {"", "c"}}, {{"1", "a"}});
    ASSERT_EQ(from->rows[2].key, "");
    EXPECT_EQ(carried(*from, 2, from), 2);
    EXPECT_EQ(carried(*from, 2, compared({{"", "b"}, {"1", "a"}}, {{"1", "a"}})), std::nullopt);
}

TEST(ShownResult, WithAnotherKeyARowIsFoundByItsPlace) {
    const Rows crossed = {{"1", "2"}, {"2", "1"}, {"3", "3"}};
    const auto from = compared(crossed, crossed);
    const auto to = compared(crossed, crossed, RowMatch::key({"Price"}));
    ASSERT_EQ(to->rows[0].key, "2");
    for (std::int64_t row = 0; row < 3; ++row) {
        EXPECT_EQ(carried(*from, row, to), row);
        EXPECT_EQ(carried(*to, row, from), row);
        EXPECT_EQ(carried(*from, row, compared(crossed, crossed, RowMatch::rowOrder())), row);
    }
}

TEST(ShownResult, ARowOfOneSideIsFoundByItsPlaceThereToo) {
    const auto from = compared(three, {{"1", "a"}});
    const auto to = compared(three, {{"8", "a"}}, RowMatch::rowOrder());
    const auto found = carried(*from, 1, to);
    ASSERT_TRUE(found);
    EXPECT_EQ(to->rows[static_cast<std::size_t>(*found)].left, 1);
}

TEST(ShownResult, AfterASwapEveryRowIsFoundWhereItsSidesAreExchanged) {
    const Rows before = {{"1", "a"}, {"7", "b"}, {"7", "c"}, {"4", "d"}};
    const Rows after = {{"9", "x"}, {"7", "b"}, {"1", "a"}, {"7", "c"}};
    for (const RowMatch& match : {byId, RowMatch::rowOrder()}) {
        const auto from = compared(before, after, match);
        const auto to = compared(after, before, match);
        for (std::size_t row = 0; row < from->rows.size(); ++row) {
            const auto found = carried(*from, static_cast<std::int64_t>(row), to, true);
            ASSERT_TRUE(found) << row;
            const DiffRow there = to->rows[static_cast<std::size_t>(*found)];
            EXPECT_TRUE(there.left == from->rows[row].right || there.right == from->rows[row].left) << row;
            if (match == byId) {
                EXPECT_EQ(there.left, from->rows[row].right) << row;
                EXPECT_EQ(there.right, from->rows[row].left) << row;
            }
        }
    }
}

TEST(ShownResult, AfterASwapAColumnHasTheNameOfTheOtherFile) {
    DiffOptions options;
    options.ignoreColumnOrder = false;
    const DataTable before({"ID", "Price"}, {{"1", "2"}}, "b.csv");
    const DataTable after({"ID", "Cost"}, {{"1", "3"}}, "a.csv");
    const auto result = DiffEngine::compare(before, after, RowMatch::rowOrder(), options, NumberStyle::dotDecimal);
    EXPECT_EQ(viewOf(result, {Show::all, 1, ""}, {}, {RowMatch::rowOrder(), false}).columnName, "Price");
    EXPECT_EQ(viewOf(result, {Show::all, 1, ""}, {}, {RowMatch::rowOrder(), true}).columnName, "Cost");
}

TEST(ShownResult, AKeyWrittenInOtherLettersIsTheSameKey) {
    const auto from = compared(three, three);
    EXPECT_EQ(viewOf(*from, {}, 0, {RowMatch::key({"id"}), true}).selectedRow->key, "1");
    EXPECT_EQ(viewOf(*from, {}, 0, {RowMatch::key({"Price"}), false}).selectedRow->key, std::nullopt);
    EXPECT_EQ(viewOf(*from, {}, 0, {RowMatch::rowOrder(), false}).selectedRow->key, std::nullopt);
}

TEST(ShownResult, RowNumbersAreKeysUntilTheSidesAreSwapped) {
    const auto from = compared(three, three, RowMatch::rowOrder());
    EXPECT_EQ(viewOf(*from, {}, 0, {RowMatch::rowOrder(), false}).selectedRow->key, "2");
    EXPECT_EQ(viewOf(*from, {}, 0, {RowMatch::rowOrder(), true}).selectedRow->key, std::nullopt);
}

}  // namespace
}  // namespace corvale
