#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "Corvale/model/ProgressThrottle.h"
#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

// Work that nobody wants any more stops by itself: then it leaves nothing that would have to be destroyed, which is
// background work too.
class AppModelCancellationTest : public ModelTest {
protected:
    AppModelCancellationTest() { openPair(); }

    void searchFor(const std::string& text) { m_model.setFilter({DiffFilter::Show::all, std::nullopt, text}); }
};

TEST_F(AppModelCancellationTest, WhatCameTooLateIsDestroyedInTheBackground) {
    m_model.compare();
    m_platform.work();
    m_model.cancel();
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelCancellationTest, AComparisonStopsAtItsFirstPoll) {
    m_model.compare();
    m_model.cancel();
    m_platform.work();
    // What it came to; there was no progress before.
    EXPECT_EQ(m_platform.posted(), 1U);
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelCancellationTest, AComparisonThatANewerOneReplacesStops) {
    m_model.compare();
    m_model.compare();
    m_platform.work();
    EXPECT_EQ(m_platform.posted(), 1U);
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelCancellationTest, AResultIsNotFilteredOnceItsComparisonIsCancelled) {
    m_model.compare();
    m_platform.whenPosted = [this] {
        // The last report comes when all rows are compared.
        if (m_platform.posted() == 2) {
            m_model.cancel();
        }
    };
    m_platform.work();
    ASSERT_TRUE(m_model.compareFlag() == nullptr);
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelCancellationTest, AResultIsNotMadeReadyAgainOnceItsComparisonIsCancelled) {
    m_model.compare();
    m_platform.work();
    m_model.select(1);
    m_platform.deliver();
    ASSERT_TRUE(m_model.compareFlag());
    // It is made ready for the other row, and as it was made ready first it is destroyed.
    ASSERT_EQ(m_platform.waiting(), 2U);
    m_model.cancel();
    step();
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelCancellationTest, AFilteringThatANewerOneReplacesStops) {
    searchFor("c");
    searchFor("cu");
    step();
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelCancellationTest, AFilteringThatANewerOneReplacesWhenItIsDoneIsDestroyed) {
    searchFor("c");
    m_platform.work();
    searchFor("cu");
    m_platform.deliver();
    EXPECT_EQ(m_platform.waiting(), 2U);
}

TEST_F(AppModelCancellationTest, WithTheModelItsWorkEnds) {
    for (const bool compares : {true, false}) {
        std::optional<AppModel> model(m_platform);
        model->load(ScriptedPlatform::url("october.csv"), Side::before);
        model->load(ScriptedPlatform::url("november.csv"), Side::after);
        m_platform.settle();
        if (compares) {
            model->compare();
        } else {
            model->setFilter({DiffFilter::Show::all, std::nullopt, "cup"});
        }
        model.reset();
        ASSERT_EQ(m_platform.waiting(), 1U);
        step();
        EXPECT_EQ(m_platform.waiting(), 0U) << compares;
    }
}

TEST_F(AppModelCancellationTest, NoMoreProgressComesThanAScreenShows) {
    m_model.compare();
    const auto start = std::chrono::steady_clock::now();
    m_platform.work();
    const auto intervals = (std::chrono::steady_clock::now() - start) / ProgressThrottle::interval;
    // The first report, the last one, and what the comparison came to.
    EXPECT_LE(m_platform.posted(), 3U + static_cast<std::size_t>(intervals));
}

}  // namespace
}  // namespace corvale
