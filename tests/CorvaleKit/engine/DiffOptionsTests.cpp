#include <absl/hash/hash.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"

namespace corvale {
namespace {

TEST(DiffOptions, IgnoreWhiteSpaceAndColumnOrderAtFirst) {
    const DiffOptions options;
    EXPECT_FALSE(options.ignoreCase);
    EXPECT_TRUE(options.ignoreWhitespace);
    EXPECT_FALSE(options.ignoreNumberFormat);
    EXPECT_TRUE(options.ignoreColumnOrder);
    EXPECT_TRUE(options.ignoredColumns.empty());
    EXPECT_EQ(options.numberStyle, NumberStyle::automatic);
}

TEST(DiffOptions, DifferWhenAnyMemberDoes) {
    std::vector<DiffOptions> all(7);
    all[1].ignoreCase = true;
    all[2].ignoreWhitespace = false;
    all[3].ignoreNumberFormat = true;
    all[4].ignoreColumnOrder = false;
    all[5].ignoredColumns = {"Note"};
    all[6].numberStyle = NumberStyle::dotDecimal;
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = 0; j < all.size(); ++j) {
            EXPECT_EQ(all[i] == all[j], i == j);
            EXPECT_EQ(absl::HashOf(all[i]) == absl::HashOf(all[j]), i == j);
        }
    }
}

TEST(RowMatch, IsRowOrderOrKeyColumns) {
    const RowMatch order = RowMatch::rowOrder();
    EXPECT_EQ(RowMatch(), order);
    EXPECT_FALSE(order.isKey());
    EXPECT_TRUE(order.columns().empty());
    const RowMatch key = RowMatch::key({"b", "a"});
    EXPECT_TRUE(key.isKey());
    EXPECT_EQ(key.columns(), (std::vector<std::string>{"b", "a"}));
}

TEST(RowMatch, DiffersByCaseAndColumnOrder) {
    const std::vector<RowMatch> all = {RowMatch::rowOrder(),
                                       RowMatch::key({}),
                                       RowMatch::key({"a"}),
                                       RowMatch::key({"a", "b"}),
                                       RowMatch::key({"b", "a"})};
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = 0; j < all.size(); ++j) {
            EXPECT_EQ(all[i] == all[j], i == j);
            EXPECT_EQ(absl::HashOf(all[i]) == absl::HashOf(all[j]), i == j);
        }
    }
}

}  // namespace
}  // namespace corvale
