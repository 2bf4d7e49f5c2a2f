#include <gtest/gtest.h>

#include "cli/NameChoice.h"

namespace corvale::Cli {
namespace {

TEST(NameChoice, AnEqualNameGoesBeforeOneInOtherLetterCase) {
    const std::vector<std::string> names{"stock", "Stock", "Ärger"};
    EXPECT_EQ(indexOfName(names, "Stock"), 1U);
    EXPECT_EQ(indexOfName(names, "STOCK"), 0U);
    EXPECT_EQ(indexOfName(names, "ÄRGER"), 2U);
    EXPECT_EQ(indexOfName(names, "stock "), std::nullopt);
    EXPECT_EQ(indexOfName({}, ""), std::nullopt);
}

TEST(NameChoice, ListsReadAsASentence) {
    EXPECT_EQ(quotedList({"a"}), "“a”");
    EXPECT_EQ(quotedList({"a", "b"}), "“a” and “b”");
    EXPECT_EQ(quotedList({"a", "b", "c"}), "“a”, “b” and “c”");
}

TEST(NameChoice, LongListsAreCut) {
    const std::vector<std::string> names(12, "x");
    EXPECT_EQ(quotedList(names), "“x”, “x”, “x”, “x”, “x”, “x”, “x”, “x”, “x”, “x” and 2 more");
}

}  // namespace
}  // namespace corvale::Cli
