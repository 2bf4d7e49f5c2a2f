#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;

class AppModelClosingTest : public ModelTest {};

TEST_F(AppModelClosingTest, ClosingASideClearsWhatThePairHad) {
    for (const Side side : {Side::before, Side::after}) {
        openPair();
        m_model.setFilter({DiffFilter::Show::changed, 2, "cup"});
        m_model.select(1);
        m_platform.settle();
        m_model.close(side);
        EXPECT_EQ(files(), side == Side::before ? " > november.csv" : "october.csv > ");
        EXPECT_EQ(m_model.result(), nullptr);
        EXPECT_TRUE(m_model.visible().empty());
        EXPECT_EQ(m_model.selectedRow(), std::nullopt);
        EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
        EXPECT_EQ(m_model.filter(), (DiffFilter{DiffFilter::Show::changed, std::nullopt, "cup"}));
        EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
        EXPECT_EQ(m_model.compareFlag(), nullptr);
    }
}

TEST_F(AppModelClosingTest, ASideThatIsClosedWhileItLoadsStaysEmpty) {
    load("october.csv", Side::before);
    m_model.close(Side::before);
    EXPECT_EQ(loading(), "");
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelClosingTest, AFileThatFailsAfterItsSideWasClosedSaysNothing) {
    load("gone.csv", Side::before);
    m_platform.work();
    m_model.close(Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelClosingTest, ClosingDropsTheFileAndTheOneBeingReadForIt) {
    openPair();
    load("december.csv", Side::after);
    m_model.close(Side::after);
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > ");
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelClosingTest, ClosingTheOtherSideLetsAFileBeRead) {
    openPair();
    load("december.csv", Side::after);
    m_model.close(Side::before);
    EXPECT_EQ(loading(), "after");
    m_platform.settle();
    EXPECT_EQ(files(), " > december.csv");
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelClosingTest, ClosingEndsAComparison) {
    openPair();
    m_model.compare();
    m_platform.work();
    m_model.close(Side::before);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelClosingTest, ClosingEndsASuggestion) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step();
    step();
    m_platform.work();
    m_model.close(Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    EXPECT_EQ(m_model.compareGeneration(), 0U);
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
}

TEST_F(AppModelClosingTest, CancellingAReadLeavesTheFileThatWasThere) {
    openPair();
    const auto result = m_model.result();
    load("december.csv", Side::after);
    m_model.cancel();
    EXPECT_EQ(loading(), "");
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > november.csv");
    EXPECT_EQ(m_model.result(), result);
}

TEST_F(AppModelClosingTest, AReadThatIsCancelledBeforeItsDeliveryIsNotTaken) {
    load("october.csv", Side::before);
    m_platform.work();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelClosingTest, CancellingAReadTakesTheInterruptedComparisonUpAgain) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    load("december.csv", Side::after);
    m_model.cancel();
    EXPECT_TRUE(m_model.compareFlag());
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

TEST_F(AppModelClosingTest, OfAPairTheFileThatHadComeStaysWhenTheRestIsCancelled) {
    openPair("december.csv", "november.csv");
    load("october.csv", Side::before);
    load("december.csv", Side::after);
    step();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

}  // namespace
}  // namespace corvale
