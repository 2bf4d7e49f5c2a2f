#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;

class AppModelSwapTest : public ModelTest {};

TEST_F(AppModelSwapTest, SwapExchangesTheFilesAndComparesAgain) {
    openPair();
    EXPECT_EQ(counts(), "+1 -1 ~1 =1");
    m_model.swap();
    EXPECT_EQ(files(), "november.csv > october.csv");
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
    EXPECT_EQ(m_platform.reads, 2);
}

TEST_F(AppModelSwapTest, SwapWithOneFileMovesIt) {
    load("october.csv", Side::before);
    m_platform.settle();
    m_watch.take();
    m_model.swap();
    EXPECT_EQ(files(), " > october.csv");
    EXPECT_EQ(m_watch.take(), "after before");
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelSwapTest, SwapTakesWhatIsBeingReadAlong) {
    load("october.csv", Side::before);
    m_platform.settle();
    load("november.csv", Side::after);
    m_model.swap();
    EXPECT_EQ(loading(), "before");
    EXPECT_EQ(files(), " > october.csv");
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
}

TEST_F(AppModelSwapTest, SwapWhileAFileIsReplacedComparesTheNewPairOnly) {
    openPair();
    recordResults();
    load("december.csv", Side::after);
    m_model.swap();
    EXPECT_EQ(loading(), "before");
    m_platform.settle();
    EXPECT_EQ(m_results, (std::vector<std::string>{"december.csv > october.csv"}));
}

TEST_F(AppModelSwapTest, SwapIsComparedWhenTheFileBeingReadFails) {
    openPair();
    load("gone.csv", Side::after);
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
}

TEST_F(AppModelSwapTest, SwapWhileComparingShowsOnlyTheSwappedPair) {
    recordResults();
    for (const bool hasFinished : {false, true}) {
        openPair();
        m_results.clear();
        m_model.compare();
        if (hasFinished) {
            m_platform.work();
        }
        m_model.swap();
        m_platform.settle();
        ASSERT_FALSE(m_results.empty());
        EXPECT_EQ(m_results.front(), "november.csv > october.csv");
        EXPECT_EQ(compared(), "november.csv > october.csv");
    }
}

TEST_F(AppModelSwapTest, SwapWhileAKeyIsLookedForAsksForTheSwappedPair) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step();
    step();
    m_platform.work();
    m_model.swap();
    m_platform.deliver();
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    m_platform.settle();
    EXPECT_EQ(m_model.suggestedKey(), "ID");
    EXPECT_EQ(compared(), "november.csv > october.csv");
    EXPECT_EQ(m_model.compareGeneration(), 1U);
}

TEST_F(AppModelSwapTest, SwapNamesTheKeyAsTheNewBeforeDoes) {
    m_platform.files["upper.csv"] = "SKU,Price\n1,2\n2,3\n3,4\n";
    m_platform.files["lower.csv"] = "sku,Price\n1,2\n2,3\n3,5\n";
    openPair("upper.csv", "lower.csv");
    ASSERT_EQ(m_model.match(), MatchChoice::key("SKU"));
    m_model.swap();
    EXPECT_EQ(m_model.match(), MatchChoice::key("sku"));
    EXPECT_EQ(m_model.suggestedKey(), "sku");
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"sku"}));
    EXPECT_EQ(counts(), "+0 -0 ~1 =2");
    m_model.swap();
    EXPECT_EQ(m_model.match(), MatchChoice::key("SKU"));
}

TEST_F(AppModelSwapTest, SwapKeepsRowOrder) {
    openPair();
    m_model.setMatch(MatchChoice::rowOrder());
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_FALSE(m_model.result()->match.isKey());
}

}  // namespace
}  // namespace corvale
