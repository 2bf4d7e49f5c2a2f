#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowSimilarity.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

std::optional<std::size_t> equalCells(const std::vector<std::string>& before, const std::vector<std::string>& after) {
    const auto beforeTexts = Tables::texts({before}, before.size());
    const auto afterTexts = Tables::texts({after}, after.size());
    RowSimilarity similarity(beforeTexts, afterTexts);
    EXPECT_EQ(similarity.areSimilar(0, 0), similarity.equalCells(0, 0).has_value());
    return similarity.equalCells(0, 0);
}

TEST(RowSimilarity, TakesHalfOfTheCells) {
    EXPECT_EQ(equalCells({"a", "b", "c", "d"}, {"a", "b", "c", "d"}), 4U);
    EXPECT_EQ(equalCells({"a", "b", "c", "d"}, {"x", "b", "c", "d"}), 3U);
    EXPECT_EQ(equalCells({"a", "b", "c", "d"}, {"x", "y", "c", "d"}), 2U);
    EXPECT_EQ(equalCells({"a", "b", "c", "d"}, {"x", "y", "z", "d"}), std::nullopt);
    EXPECT_EQ(equalCells({"a", "b", "c"}, {"x", "b", "c"}), 2U);
    EXPECT_EQ(equalCells({"a", "b", "c"}, {"x", "y", "c"}), std::nullopt);
    EXPECT_EQ(equalCells({"a", "b"}, {"x", "b"}), 1U);
    EXPECT_EQ(equalCells({"a", "b"}, {"x", "y"}), std::nullopt);
}

TEST(RowSimilarity, OfFewerThanTwoColumnsIsGiven) {
    EXPECT_EQ(equalCells({"a"}, {"b"}), 0U);
    EXPECT_EQ(equalCells({"a"}, {"a"}), 1U);
    EXPECT_EQ(equalCells({}, {}), 0U);
}

TEST(RowSimilarity, CountsEmptyCellsAsEqual) { EXPECT_EQ(equalCells({"", "", "a"}, {"", "", "b"}), 2U); }

}  // namespace
}  // namespace corvale
