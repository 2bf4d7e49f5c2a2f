#include <gtest/gtest.h>

#include <vector>

#include "Corvale/model/CancelFlag.h"
#include "Corvale/model/LoadedFile.h"
#include "Corvale/model/MatchChoice.h"

namespace corvale {
namespace {

TEST(CancelFlag, IsSetOnceAndForAll) {
    CancelFlag flag;
    EXPECT_FALSE(flag.isCancelled());
    flag.cancel();
    flag.cancel();
    EXPECT_TRUE(flag.isCancelled());
}

TEST(MatchChoice, BecomesTheMatchOfAComparison) {
    EXPECT_EQ(MatchChoice::key("ID").rowMatch(), RowMatch::key({"ID"}));
    EXPECT_EQ(MatchChoice::rowOrder().rowMatch(), RowMatch::rowOrder());
    EXPECT_EQ(MatchChoice::key("ID").column(), "ID");
    EXPECT_EQ(MatchChoice::rowOrder().column(), std::nullopt);
}

TEST(MatchChoice, KnowsWhatItGives) {
    const std::vector<MatchChoice> choices = {MatchChoice::rowOrder(), MatchChoice::key("ID"), MatchChoice::key("")};
    std::vector<RowMatch> matches = {RowMatch::key({"id"}), RowMatch::key({"ID", "ID"}), RowMatch::key({"ID", "A"})};
    for (const MatchChoice& choice : choices) {
        matches.push_back(choice.rowMatch());
    }
    for (const MatchChoice& choice : choices) {
        for (const RowMatch& match : matches) {
            EXPECT_EQ(choice.gives(match), choice.rowMatch() == match) << choice.column().value_or("row order");
        }
    }
}

TEST(MatchChoice, IsEqualForTheSameColumnOnly) {
    EXPECT_EQ(MatchChoice::key("ID"), MatchChoice::key("ID"));
    EXPECT_NE(MatchChoice::key("ID"), MatchChoice::key("id"));
    EXPECT_NE(MatchChoice::key(""), MatchChoice::rowOrder());
    EXPECT_EQ(MatchChoice(), MatchChoice::rowOrder());
}

TEST(LoadedFile, SharesItsBytesAndItsTableWhenCopied) {
    LoadedFile file;
    file.data = std::make_shared<const Bytes>("ID\n1\n");
    file.table = DataTable({"ID"}, {{"1"}}, "a.csv");
    const LoadedFile copy = file;
    EXPECT_EQ(copy.data.get(), file.data.get());
    EXPECT_EQ(&copy.table.headers(), &file.table.headers());
}

}  // namespace
}  // namespace corvale
