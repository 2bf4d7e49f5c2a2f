#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "Corvale/model/BackgroundJobs.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale {
namespace {

using TestSupport::ScriptedPlatform;
using Value = std::shared_ptr<int>;

class BackgroundJobsTest : public testing::Test {
protected:
    // Runs work that gives a value, and gives what watches that value.
    std::weak_ptr<int> run(std::function<void(Outcome<Value>&)> done) {
        const auto value = std::make_shared<std::weak_ptr<int>>();
        m_jobs->run(
            [value] {
                auto made = std::make_shared<int>(7);
                *value = made;
                return made;
            },
            std::move(done));
        m_platform.work();
        return *value;
    }

    ScriptedPlatform m_platform;
    std::optional<BackgroundJobs> m_jobs{m_platform};
};

TEST_F(BackgroundJobsTest, WorkRunsInTheBackgroundAndIsDeliveredOnTheMainThread) {
    std::string seen;
    m_jobs->run(
        [&seen] {
            seen += "worked ";
            return 7;
        },
        [&seen](Outcome<int>& outcome) { seen += "delivered " + std::to_string(outcome.value.value_or(0)); });
    EXPECT_EQ(seen, "");
    m_platform.work();
    EXPECT_EQ(seen, "worked ");
    m_platform.deliver();
    EXPECT_EQ(seen, "worked delivered 7");
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(BackgroundJobsTest, AnExceptionIsDelivered) {
    std::string seen;
    m_jobs->run([]() -> int { throw std::runtime_error("no"); },
                [&seen](Outcome<int>& outcome) {
                    EXPECT_FALSE(outcome.value);
                    try {
                        std::rethrow_exception(outcome.failure);
                    } catch (const std::runtime_error& error) {
                        seen = error.what();
                    }
                });
    m_platform.settle();
    EXPECT_EQ(seen, "no");
}

TEST_F(BackgroundJobsTest, AValueThatNobodyTookIsDestroyedInTheBackground) {
    const auto value = run([](Outcome<Value>&) {});
    m_platform.deliver();
    EXPECT_FALSE(value.expired());
    m_platform.work();
    EXPECT_TRUE(value.expired());
}

TEST_F(BackgroundJobsTest, AValueThatWasTakenNeedsNoMoreWork) {
    Value taken;
    const auto value = run([&taken](Outcome<Value>& outcome) { taken = outcome.take(); });
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 0U);
    EXPECT_EQ(*taken, 7);
    EXPECT_EQ(value.use_count(), 1);
}

TEST_F(BackgroundJobsTest, NothingIsDeliveredOnceTheOwnerIsGone) {
    bool isDelivered = false;
    const auto value = run([&isDelivered](Outcome<Value>&) { isDelivered = true; });
    m_jobs.reset();
    m_platform.deliver();
    EXPECT_FALSE(isDelivered);
    EXPECT_FALSE(value.expired());
    m_platform.work();
    EXPECT_TRUE(value.expired());
}

TEST_F(BackgroundJobsTest, WorkIsDestroyedWhereItRan) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    m_jobs->run([held = std::move(held)] { return *held; }, [](Outcome<int>&) {});
    EXPECT_FALSE(watched.expired());
    m_platform.work();
    EXPECT_TRUE(watched.expired());
}

TEST_F(BackgroundJobsTest, ARelayDeliversOnTheMainThreadInOrderWhileItsOwnerLives) {
    std::string seen;
    const auto relay = m_jobs->relay(std::function([&seen](int number) { seen += std::to_string(number); }));
    relay(1);
    relay(2);
    EXPECT_EQ(seen, "");
    m_platform.deliver();
    EXPECT_EQ(seen, "12");
    relay(3);
    m_jobs.reset();
    m_platform.deliver();
    relay(4);
    m_platform.deliver();
    EXPECT_EQ(seen, "12");
}

TEST_F(BackgroundJobsTest, AFunctionDoesNothingOnceTheOwnerIsGone) {
    int calls = 0;
    const auto function = m_jobs->whileAlive(std::function([&calls](int) { ++calls; }));
    function(1);
    m_jobs.reset();
    function(2);
    EXPECT_EQ(calls, 1);
}

TEST_F(BackgroundJobsTest, ADiscardedValueIsDestroyedInTheBackground) {
    auto value = std::make_shared<int>(7);
    const std::weak_ptr<int> watched = value;
    m_jobs->discard(std::move(value));
    EXPECT_FALSE(watched.expired());
    m_platform.work();
    EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace corvale
