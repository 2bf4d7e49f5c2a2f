#include <gtest/gtest.h>

#include <string>

#include "CorvaleKit/base/Require.h"

namespace corvale {
namespace {

TEST(Require, AHoldingConditionIsEvaluatedOnceAndLetsTheProgramGoOn) {
    int evaluated = 0;
    CORVALE_REQUIRE(++evaluated == 1, "evaluated twice");
    EXPECT_EQ(evaluated, 1);
}

TEST(Require, IsOneStatementUnderAnIf) {
    bool reached = false;
    // Braces would hide what this is about.
    // NOLINTNEXTLINE(readability-braces-around-statements)
    if (reached)
        CORVALE_REQUIRE(false, "the branch that is not taken");
    else  // NOLINT(readability-braces-around-statements)
        reached = true;
    EXPECT_TRUE(reached);
}

TEST(RequireDeathTest, ABrokenRuleStopsTheProcessWithTheRuleAndThePlace) {
    const int rows = 3;
    EXPECT_DEATH(CORVALE_REQUIRE(rows == 4, "a row went missing"),
                 R"(corvale: a row went missing \(.*RequireTests\.cpp:[0-9]+\))");
}

TEST(RequireDeathTest, APercentSignInTheRuleIsPrintedAsItIs) {
    EXPECT_DEATH(requirementFailed("100 %s", "file.cpp", 7), R"(corvale: 100 %s \(file\.cpp:7\))");
}

}  // namespace
}  // namespace corvale
