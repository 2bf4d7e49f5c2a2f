#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "CorvaleKit/base/RunningNumber.h"

namespace corvale {
namespace {

std::string written(const std::vector<std::int64_t>& numbers) {
    RunningNumber number;
    std::string text;
    for (const std::int64_t value : numbers) {
        number.append(text, value);
        text += ' ';
    }
    return text;
}

TEST(RunningNumber, WritesNumbersThatFollowEachOther) {
    EXPECT_EQ(written({1, 2, 3}), "1 2 3 ");
    EXPECT_EQ(written({8, 9, 10, 11}), "8 9 10 11 ");
    EXPECT_EQ(written({1098, 1099, 1100, 1101}), "1098 1099 1100 1101 ");
    EXPECT_EQ(written({99998, 99999, 100000}), "99998 99999 100000 ");
}

TEST(RunningNumber, WritesNumbersThatJump) {
    EXPECT_EQ(written({7, 7, 9, 3, 4}), "7 7 9 3 4 ");
    EXPECT_EQ(written({0, 1, -3, -2, -1, 0, 1}), "0 1 -3 -2 -1 0 1 ");
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(written({most - 1, most, -most}), "9223372036854775806 9223372036854775807 -9223372036854775807 ");
}

TEST(RunningNumber, WritesEveryNumberAsTheStandardDoes) {
    RunningNumber number;
    for (std::int64_t value = 2; value < 12'000; ++value) {
        std::string text;
        number.append(text, value);
        ASSERT_EQ(text, std::to_string(value));
    }
}

}  // namespace
}  // namespace corvale
