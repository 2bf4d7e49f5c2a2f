#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <iterator>

#include "CorvaleKit/engine/DiffRow.h"

namespace corvale {
namespace {

using Fill = std::function<void(DiffRows::Builder&)>;

// The rows that `fill` adds, over two tables of the same two rows.
DiffRows rowsOf(const Fill& fill) {
    static const DataTable table({"ID", "A"}, {{"1", "x"}, {"1", "y"}}, "t.csv");
    DiffRows::Builder builder(table, table, {false, {0}, {0}}, 1);
    fill(builder);
    return builder.finish();
}

// All that can be told of one row, each otherwise than of the others; the keys are the same.
const Fill oneRow[] = {
    [](DiffRows::Builder& rows) {
        rows.add({0, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.add({0, 1});
    },
    [](DiffRows::Builder& rows) {
        rows.add({1, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.add({0, RowPair::none});
    },
    [](DiffRows::Builder& rows) {
        rows.add({RowPair::none, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.addChange(0, ChangeKind::value);
        rows.add({0, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.addChange(1, ChangeKind::value);
        rows.add({0, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.addChange(1, ChangeKind::letterCase);
        rows.add({0, 0});
    },
    [](DiffRows::Builder& rows) {
        rows.addChange(0, ChangeKind::value);
        rows.addChange(1, ChangeKind::value);
        rows.add({0, 0});
    },
};

TEST(DiffRow, IsEqualWhereAllIsThatCanBeToldOfIt) {
    for (std::size_t i = 0; i < std::size(oneRow); ++i) {
        for (std::size_t j = 0; j < std::size(oneRow); ++j) {
            const DiffRows a = rowsOf(oneRow[i]);
            const DiffRows b = rowsOf(oneRow[j]);
            EXPECT_EQ(a[0] == b[0], i == j) << i << " " << j;
            EXPECT_EQ(a == b, i == j) << i << " " << j;
        }
    }
}

TEST(DiffRow, OfAnotherKeyIsAnotherRow) {
    const DataTable one({"ID"}, {{"1"}}, "t.csv");
    const DataTable two({"ID"}, {{"2"}}, "t.csv");
    DiffRows::Builder ones(one, one, {false, {0}, {0}}, 1);
    DiffRows::Builder twos(two, two, {false, {0}, {0}}, 1);
    ones.add({0, 0});
    twos.add({0, 0});
    const DiffRows a = ones.finish();
    const DiffRows b = twos.finish();
    EXPECT_FALSE(a[0] == b[0]);
    EXPECT_FALSE(a == b);
}

TEST(DiffRows, AreEqualOnlyInTheSameNumberAndOrder) {
    const auto add = [](std::initializer_list<RowPair> pairs) {
        return rowsOf([pairs](DiffRows::Builder& rows) {
            for (const RowPair pair : pairs) {
                rows.add(pair);
            }
        });
    };
    EXPECT_EQ(add({{0, 0}, {1, 1}}), add({{0, 0}, {1, 1}}));
    EXPECT_NE(add({{0, 0}, {1, 1}}), add({{1, 1}, {0, 0}}));
    EXPECT_NE(add({{0, 0}, {1, 1}}), add({{0, 0}}));
    EXPECT_NE(add({{0, 0}}), add({{0, 0}, {1, 1}}));
    EXPECT_EQ(add({}), DiffRows());
}

}  // namespace
}  // namespace corvale
