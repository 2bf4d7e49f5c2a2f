#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;

class AppModelOvertakingTest : public ModelTest {};

TEST_F(AppModelOvertakingTest, ANewerFileWinsWhicheverIsReadFirst) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        load("october.csv", Side::before);
        load("december.csv", Side::before);
        step(first);
        EXPECT_EQ(loading(), first == 0 ? "before" : "");
        step();
        m_platform.settle();
        EXPECT_EQ(files(), "december.csv > ");
        EXPECT_EQ(loading(), "");
        m_model.close(Side::before);
        m_platform.settle();
    }
}

TEST_F(AppModelOvertakingTest, AnOlderFileThatFailsLateSaysNothing) {
    load("gone.csv", Side::before);
    load("october.csv", Side::before);
    m_platform.work();
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > ");
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelOvertakingTest, ANewerFileThatFailsLeavesTheSideAsItWas) {
    load("october.csv", Side::before);
    load("gone.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelOvertakingTest, TheFilesOfAPairMayComeInEitherOrder) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step(1);
    EXPECT_EQ(files(), " > november.csv");
    EXPECT_EQ(loading(), "before");
    EXPECT_EQ(m_platform.waiting(), 1U);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
    EXPECT_EQ(m_model.compareGeneration(), 1U);
}

TEST_F(AppModelOvertakingTest, AComparisonOfFilesThatWereReplacedIsNeverShown) {
    openPair();
    recordResults();
    m_model.compare();
    load("december.csv", Side::after);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    m_platform.settle();
    EXPECT_EQ(m_results, (std::vector<std::string>{"october.csv > december.csv"}));
}

TEST_F(AppModelOvertakingTest, AComparisonThatFinishesBeforeItsDeliveryIsNotShownAfterANewFile) {
    openPair();
    recordResults();
    m_model.compare();
    m_platform.work();
    load("december.csv", Side::after);
    m_platform.deliver();
    EXPECT_TRUE(m_results.empty());
    m_platform.settle();
    EXPECT_EQ(m_results, (std::vector<std::string>{"october.csv > december.csv"}));
}

TEST_F(AppModelOvertakingTest, AComparisonThatFinishesAfterTheNewerOneIsNotShown) {
    openPair();
    m_model.compare();
    load("december.csv", Side::after);
    recordResults();
    // Reading, the suggestion and, behind the file to discard, the new comparison pass the old one, which stays first.
    step(1);
    step(1);
    step(2);
    EXPECT_EQ(m_results, (std::vector<std::string>{"october.csv > december.csv"}));
    m_platform.settle();
    EXPECT_EQ(m_results.size(), 1U);
    EXPECT_EQ(compared(), "october.csv > december.csv");
}

TEST_F(AppModelOvertakingTest, AComparisonIsTakenUpAgainWhenTheNewFileFails) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    load("gone.csv", Side::after);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
    EXPECT_EQ(problem(), "“gone.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelOvertakingTest, ASuggestionIsTakenUpAgainWhenTheNewFileFails) {
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step();
    step();
    ASSERT_EQ(m_model.suggestedKey(), std::nullopt);
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.suggestedKey(), "ID");
    EXPECT_EQ(compared(), "october.csv > november.csv");
    EXPECT_EQ(m_model.compareGeneration(), 1U);
}

TEST_F(AppModelOvertakingTest, ASuggestionForOlderFilesIsNotTaken) {
    m_platform.files["people.csv"] = "Email,Age\na@x,3\nb@x,4\nc@x,4\n";
    m_platform.files["people2.csv"] = "Email,Age\na@x,3\nb@x,5\nc@x,5\n";
    load("october.csv", Side::before);
    load("november.csv", Side::after);
    step();
    step();
    // The suggestion is computed and not delivered when both files are replaced.
    m_platform.work();
    load("people.csv", Side::before);
    load("people2.csv", Side::after);
    m_platform.deliver();
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    m_platform.settle();
    EXPECT_EQ(m_model.suggestedKey(), "Email");
    EXPECT_EQ(m_model.match(), MatchChoice::key("Email"));
}

}  // namespace
}  // namespace corvale
