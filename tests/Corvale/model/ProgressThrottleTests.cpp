#include <gtest/gtest.h>

#include "Corvale/model/ProgressThrottle.h"

namespace corvale {
namespace {

using std::chrono::microseconds;

ProgressThrottle::Time at(microseconds time) { return ProgressThrottle::Time(std::chrono::seconds(1000) + time); }

TEST(ProgressThrottle, LetsTheFirstReportThrough) { EXPECT_TRUE(ProgressThrottle().lets(0.0, at(microseconds(0)))); }

TEST(ProgressThrottle, LetsTheNextOneThroughAfterASixtiethOfASecond) {
    ProgressThrottle throttle;
    throttle.lets(0.0, at(microseconds(0)));
    EXPECT_FALSE(throttle.lets(0.1, at(microseconds(16'666))));
    EXPECT_TRUE(throttle.lets(0.2, at(microseconds(16'667))));
    EXPECT_FALSE(throttle.lets(0.3, at(microseconds(33'000))));
}

TEST(ProgressThrottle, LetsTheEndThroughAlways) {
    ProgressThrottle throttle;
    throttle.lets(0.0, at(microseconds(0)));
    EXPECT_TRUE(throttle.lets(1.0, at(microseconds(1))));
}

TEST(ProgressThrottle, LetsAtMostSixtyASecondThrough) {
    ProgressThrottle throttle;
    int let = 0;
    for (int i = 0; i < 100'000; ++i) {
        let += throttle.lets(0.5, at(microseconds(i * 10))) ? 1 : 0;
    }
    EXPECT_LE(let, 60);
    EXPECT_GE(let, 59);
}

}  // namespace
}  // namespace corvale
