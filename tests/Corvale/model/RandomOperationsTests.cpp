#include <gtest/gtest.h>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/RandomUser.h"
#include "tests/Corvale/model/ThreadPlatform.h"

namespace corvale {
namespace {

using TestSupport::RandomUser;
using TestSupport::ThreadPlatform;

class RandomOperations : public testing::TestWithParam<unsigned> {};

TEST_P(RandomOperations, LeaveTheModelInOrder) {
    ThreadPlatform platform;
    AppModel model(platform);
    RandomUser user(model, {[&] { platform.deliver(); }, [&] { platform.settle(); }, platform.answers}, GetParam());
    user.work(2000);
    user.expectVariety();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomOperations, testing::Values(1, 2));

// What it had under way then goes nowhere: nothing here is used after its end.
TEST(AppModelInUse, MayGoAtAnyTime) {
    for (unsigned seed = 0; seed < 50; ++seed) {
        ThreadPlatform platform;
        {
            AppModel model(platform);
            RandomUser(model, {[&] { platform.deliver(); }, [&] { platform.settle(); }, platform.answers}, seed)
                .rush(20);
        }
        platform.settle();
    }
}

}  // namespace
}  // namespace corvale
