#include <gtest/gtest.h>

#include "CorvaleKit/engine/PollMeter.h"

namespace corvale {
namespace {

TEST(PollMeter, PollsWhenEnoughWorkCameTogether) {
    int asked = 0;
    const CancelCheck isCancelled = [&asked] {
        ++asked;
        return false;
    };
    PollMeter meter(isCancelled);
    meter.spend(PollMeter::workPerPoll - 1);
    EXPECT_EQ(asked, 0);
    meter.spend(1);
    EXPECT_EQ(asked, 1);
    meter.spend(PollMeter::workPerPoll - 1);
    meter.poll();
    EXPECT_EQ(asked, 2);
    meter.spend(PollMeter::workPerPoll - 1);
    EXPECT_EQ(asked, 2) << "a poll begins the count anew";
    meter.spend(10 * PollMeter::workPerPoll);
    EXPECT_EQ(asked, 3) << "much work at once is asked about once";
}

TEST(PollMeter, ThrowsWhenAskedToStop) {
    const CancelCheck always = [] { return true; };
    PollMeter meter(always);
    EXPECT_NO_THROW(meter.spend(1));
    EXPECT_THROW(meter.poll(), Cancelled);
    EXPECT_THROW(meter.spend(PollMeter::workPerPoll), Cancelled);
}

TEST(PollMeter, AsksNobodyWithoutACallback) {
    const CancelCheck nobody;
    PollMeter meter(nobody);
    EXPECT_NO_THROW(meter.poll());
    EXPECT_NO_THROW(meter.spend(PollMeter::workPerPoll));
}

}  // namespace
}  // namespace corvale
