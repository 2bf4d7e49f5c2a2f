#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;

class AppModelCompareAgainTest : public ModelTest {
protected:
    AppModelCompareAgainTest() { openPair(); }

    void rewriteBoth() {
        m_platform.files["october.csv"] = "ID,Name,Price\n1,Pen,2\n";
        m_platform.files["november.csv"] = "ID,Name,Price\n1,Pen,3\n5,Bag,7\n";
    }
};

TEST_F(AppModelCompareAgainTest, BothFilesAreReadFromDiskAndCompared) {
    rewriteBoth();
    m_model.compareAgain();
    EXPECT_EQ(loading(), "after before");
    m_platform.settle();
    EXPECT_EQ(m_platform.reads, 4);
    EXPECT_EQ(counts(), "+1 -0 ~1 =0");
    EXPECT_EQ(loading(), "");
}

TEST_F(AppModelCompareAgainTest, NeitherFileIsStoredBeforeBothAreRead) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        rewriteBoth();
        const auto before = m_model.before()->data;
        const auto after = m_model.after()->data;
        m_model.compareAgain();
        step(first);
        EXPECT_EQ(m_model.before()->data, before);
        EXPECT_EQ(m_model.after()->data, after);
        EXPECT_EQ(loading(), "after before");
        step();
        EXPECT_NE(m_model.before()->data, before);
        EXPECT_NE(m_model.after()->data, after);
        m_platform.settle();
    }
}

TEST_F(AppModelCompareAgainTest, OneFileGoneLeavesBothAndTheResultInEitherOrder) {
    const std::vector<std::string> names = {"october.csv", "november.csv"};
    for (const std::string& gone : names) {
        for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
            const auto files = m_platform.files;
            const auto before = m_model.before()->data;
            const auto after = m_model.after()->data;
            const auto result = m_model.result();
            rewriteBoth();
            m_platform.files.erase(gone);
            m_model.compareAgain();
            step(first);
            m_platform.settle();
            EXPECT_EQ(problem(), "“" + gone + "” couldn’t be opened: No such file or directory");
            EXPECT_EQ(m_model.before()->data, before);
            EXPECT_EQ(m_model.after()->data, after);
            EXPECT_EQ(m_model.result(), result);
            EXPECT_EQ(loading(), "");
            m_platform.files = files;
            m_model.dismissProblem();
        }
    }
}

TEST_F(AppModelCompareAgainTest, AFileThatWaitedInVainIsDestroyedInTheBackground) {
    m_platform.files.erase("november.csv");
    m_model.compareAgain();
    step();
    step();
    EXPECT_EQ(problem(), "“november.csv” couldn’t be opened: No such file or directory");
    EXPECT_EQ(m_platform.waiting(), 1U);
}

TEST_F(AppModelCompareAgainTest, BothFilesGoneIsOneMessage) {
    m_platform.files.clear();
    m_model.compareAgain();
    step();
    EXPECT_EQ(problem(), "“october.csv” couldn’t be opened: No such file or directory");
    m_model.dismissProblem();
    m_platform.settle();
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelCompareAgainTest, ANewFileOnOneSideLetsTheOtherBeReadAgain) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}, std::size_t{2}}) {
        openPair();
        m_model.compareAgain();
        load("december.csv", Side::after);
        step(first);
        m_platform.settle();
        EXPECT_EQ(compared(), "october.csv > december.csv");
        EXPECT_EQ(loading(), "");
    }
}

TEST_F(AppModelCompareAgainTest, AReadThatWasReplacedDoesNotFailTheOther) {
    rewriteBoth();
    m_platform.files.erase("november.csv");
    m_model.compareAgain();
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.problem(), std::nullopt);
    EXPECT_EQ(m_model.before()->table.rows().size(), 1U);
}

TEST_F(AppModelCompareAgainTest, AFailureDoesNotTakeTheNewFileOfTheOtherSideAlong) {
    m_platform.files.erase("october.csv");
    m_model.compareAgain();
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_EQ(problem(), "“october.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelCompareAgainTest, WhileAFileIsReplacedOnlyTheOtherIsReadAgain) {
    load("december.csv", Side::after);
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(m_platform.reads, 4);
    EXPECT_EQ(compared(), "october.csv > december.csv");
}

TEST_F(AppModelCompareAgainTest, AskedTwiceTheSecondCounts) {
    m_model.compareAgain();
    m_platform.work();
    rewriteBoth();
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(counts(), "+1 -0 ~1 =0");
}

TEST_F(AppModelCompareAgainTest, AClosedSideLetsTheOtherBeReadAgain) {
    for (const bool hasArrived : {false, true}) {
        openPair();
        rewriteBoth();
        m_model.compareAgain();
        if (hasArrived) {
            step(1);
        }
        m_model.close(Side::before);
        m_platform.settle();
        EXPECT_EQ(files(), " > november.csv");
        EXPECT_EQ(m_model.after()->table.rows().size(), 2U);
        EXPECT_EQ(loading(), "");
    }
}

TEST_F(AppModelCompareAgainTest, CancellingLeavesBothFilesAndTheResult) {
    for (const bool hasArrived : {false, true}) {
        const auto before = m_model.before()->data;
        const auto result = m_model.result();
        m_model.compareAgain();
        if (hasArrived) {
            step();
        }
        m_model.cancel();
        EXPECT_EQ(loading(), "");
        m_platform.settle();
        EXPECT_EQ(m_model.before()->data, before);
        EXPECT_EQ(m_model.result(), result);
    }
}

TEST_F(AppModelCompareAgainTest, SwapMeanwhileSwapsWhatIsRead) {
    rewriteBoth();
    m_model.compareAgain();
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
    EXPECT_EQ(m_model.before()->table.rows().size(), 2U);
    EXPECT_EQ(m_model.after()->table.rows().size(), 1U);
}

TEST_F(AppModelCompareAgainTest, ItInterruptsAComparisonAndTakesItUpAgainWhenReadingFails) {
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.files.erase("october.csv");
    m_model.compareAgain();
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
}

TEST_F(AppModelCompareAgainTest, RowOrderIsKept) {
    m_model.setMatch(MatchChoice::rowOrder());
    m_platform.settle();
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
}

TEST_F(AppModelCompareAgainTest, RowOrderThatNobodyChoseGivesWayToAKeyThatTheFilesHaveNow) {
    m_platform.files["a.csv"] = "A\nx\nx\n";
    m_platform.files["b.csv"] = "A\ny\ny\n";
    openPair("a.csv", "b.csv");
    ASSERT_EQ(m_model.match(), MatchChoice::rowOrder());
    m_platform.files["a.csv"] = "ID,A\n1,x\n2,x\n";
    m_platform.files["b.csv"] = "ID,A\n1,y\n2,y\n";
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
}

TEST_F(AppModelCompareAgainTest, RowOrderIsKeptThoughAnotherFileFails) {
    m_model.setMatch(MatchChoice::rowOrder());
    m_platform.settle();
    m_model.compareAgain();
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
}

TEST_F(AppModelCompareAgainTest, AKeyThatIsGoneIsReplacedByTheProposal) {
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.settle();
    m_platform.files["october.csv"] = "ID,Article\n1,Pen\n2,Cup\n";
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
}

TEST_F(AppModelCompareAgainTest, OneFileAloneIsReadAgain) {
    m_model.close(Side::after);
    rewriteBoth();
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(m_model.before()->table.rows().size(), 1U);
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelCompareAgainTest, SamplesAreComparedWithoutADisk) {
    m_model.openSamples();
    m_platform.settle();
    const auto result = m_model.result();
    const int reads = m_platform.reads;
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_NE(m_model.result(), result);
    EXPECT_EQ(m_platform.reads, reads);
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelCompareAgainTest, OfASampleAndAFileTheFileIsReadAgain) {
    m_model.openSamples();
    load("october.csv", Side::after);
    m_platform.settle();
    m_platform.files["october.csv"] = "ID,Name,Price\n1,Pen,2\n";
    m_model.compareAgain();
    EXPECT_EQ(loading(), "after");
    m_platform.settle();
    EXPECT_EQ(m_model.result()->after.rows().size(), 1U);
}

}  // namespace
}  // namespace corvale
