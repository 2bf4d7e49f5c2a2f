#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Corvale/model/Edit.h"
#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;

class AppModelComparisonTest : public ModelTest {
protected:
    // Loads both files up to where the suggestion waits to be computed.
    void openUpToSuggestion() {
        load("october.csv", Side::before);
        load("november.csv", Side::after);
        step();
        step();
    }
};

TEST_F(AppModelComparisonTest, AKeyThatBothStillHaveIsKept) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.settle();
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("Name"));
    EXPECT_EQ(m_model.suggestedKey(), "ID");
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
}

TEST_F(AppModelComparisonTest, AKeyIsKeptOnlyAsBeforeWritesIt) {
    m_platform.files["upper.csv"] = "ID,NAME,Price\n1,Pen,2\n2,Cup,3\n";
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.settle();
    // After may write it otherwise.
    load("upper.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("Name"));
    load("upper.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
}

TEST_F(AppModelComparisonTest, AKeyThatIsGoneIsReplacedByTheProposal) {
    m_platform.files["a.csv"] = "SKU,Cost\na,2\nb,3\n";
    openPair();
    load("a.csv", Side::before);
    m_platform.settle();
    // Nothing is shared.
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    load("a.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("SKU"));
}

TEST_F(AppModelComparisonTest, RowOrderGivesWayToTheProposalForANewFile) {
    openPair();
    m_model.setMatch(MatchChoice::rowOrder());
    m_platform.settle();
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
}

TEST_F(AppModelComparisonTest, RowOrderChosenWhileAFileIsReadIsKept) {
    openPair();
    load("december.csv", Side::after);
    m_model.setMatch(MatchChoice::rowOrder());
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_FALSE(m_model.result()->match.isKey());
}

TEST_F(AppModelComparisonTest, AMatchChosenWhileAKeyIsLookedForIsKept) {
    for (const MatchChoice& choice : {MatchChoice::rowOrder(), MatchChoice::key("Name")}) {
        openUpToSuggestion();
        m_model.setMatch(choice);
        EXPECT_EQ(m_model.compareFlag(), nullptr);
        m_platform.settle();
        EXPECT_EQ(m_model.match(), choice);
        EXPECT_EQ(m_model.suggestedKey(), "ID");
        EXPECT_EQ(m_model.result()->match, choice.rowMatch());
        m_model.close(Side::before);
        m_model.close(Side::after);
        m_platform.settle();
    }
}

TEST_F(AppModelComparisonTest, RowOrderChosenWhileAKeyIsLookedForOutlivesAFileThatFails) {
    openUpToSuggestion();
    m_model.setMatch(MatchChoice::rowOrder());
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

TEST_F(AppModelComparisonTest, SettingTheMatchComparesAgainEvenWhenItIsTheSame) {
    openPair();
    const auto result = m_model.result();
    m_model.setMatch(m_model.match());
    m_platform.settle();
    EXPECT_EQ(m_model.compareGeneration(), 2U);
    EXPECT_NE(m_model.result(), result);
}

TEST_F(AppModelComparisonTest, AMatchIsStoredThoughASideIsMissing) {
    m_model.setMatch(MatchChoice::key("Name"));
    EXPECT_EQ(m_model.match(), MatchChoice::key("Name"));
    EXPECT_EQ(m_model.compareGeneration(), 0U);
    openPair();
    EXPECT_EQ(m_model.match(), MatchChoice::key("Name"));
}

TEST_F(AppModelComparisonTest, ARunHasAFlagANumberAndAProgress) {
    openPair();
    m_model.compare();
    ASSERT_TRUE(m_model.compareFlag());
    EXPECT_FALSE(m_model.compareFlag()->isCancelled());
    EXPECT_EQ(m_model.compareGeneration(), 2U);
    EXPECT_EQ(m_model.progress(), 0.0);
    m_platform.settle();
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_EQ(m_model.compareGeneration(), 2U);
}

TEST_F(AppModelComparisonTest, ProgressIsForwardedToItsEnd) {
    openPair();
    std::vector<std::optional<double>> seen;
    const QObject receiver;
    QObject::connect(
        &m_model, &AppModel::progressChanged, &receiver, [this, &seen] { seen.push_back(m_model.progress()); });
    m_model.compare();
    m_platform.settle();
    ASSERT_GE(seen.size(), 3U);
    EXPECT_EQ(seen.front(), 0.0);
    EXPECT_EQ(seen[seen.size() - 2], 1.0);
    EXPECT_EQ(seen.back(), std::nullopt);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end() - 1));
}

TEST_F(AppModelComparisonTest, TheTablesOptionsAndMatchAreThoseOfTheStart) {
    openPair();
    AppSettings settings = m_model.settings();
    settings.options.ignoredColumns = {"Price"};
    settings.options.numberStyle = NumberStyle::commaDecimal;
    m_model.setSettings(settings);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->options, settings.options);
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"ID"}));
    EXPECT_EQ(counts(), "+1 -1 ~0 =2");
}

TEST_F(AppModelComparisonTest, NumbersThatFitBothStylesAreReadAsTheLocaleWritesThem) {
    m_platform.files["a.csv"] = "ID,Price\n1,7\n2,8\n";
    m_platform.files["b.csv"] = "ID,Price\n1,7\n2,9\n";
    for (const NumberStyle style : {NumberStyle::commaDecimal, NumberStyle::dotDecimal}) {
        m_platform.decimalStyle = style;
        openPair("a.csv", "b.csv");
        EXPECT_EQ(m_model.result()->numberStyle, style);
    }
}

TEST_F(AppModelComparisonTest, ANewerRunCancelsTheOlderOne) {
    openPair();
    m_model.compare();
    const auto older = m_model.compareFlag();
    m_model.compare();
    EXPECT_TRUE(older->isCancelled());
    EXPECT_NE(m_model.compareFlag(), older);
    EXPECT_FALSE(m_model.compareFlag()->isCancelled());
}

TEST_F(AppModelComparisonTest, OnlyTheNewestRunIsShownWhicheverEndsFirst) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        openPair();
        std::vector<RowMatch> matches;
        const QObject receiver;
        QObject::connect(&m_model, &AppModel::resultChanged, &receiver, [this, &matches] {
            matches.push_back(m_model.result()->match);
        });
        m_model.setMatch(MatchChoice::key("Name"));
        m_model.setMatch(MatchChoice::key("Price"));
        step(first);
        m_platform.settle();
        EXPECT_EQ(matches, (std::vector<RowMatch>{RowMatch::key({"Price"})}));
        EXPECT_EQ(m_model.problem(), std::nullopt);
    }
}

TEST_F(AppModelComparisonTest, AResultThatCameLateIsThrownAway) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.work();
    m_model.setMatch(MatchChoice::key("Price"));
    m_platform.deliver();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"ID"}));
    EXPECT_EQ(m_model.progress(), 0.0);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Price"}));
}

TEST_F(AppModelComparisonTest, AResultIsNotHeldBackWhileTheUserKeepsTyping) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    DiffFilter filter;
    for (const char* const typed : {"c", "cu", "cup"}) {
        filter.search = typed;
        m_model.setFilter(filter);
        step();
    }
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_EQ(m_model.filter().search, "cup");
    m_platform.settle();
    EXPECT_EQ(m_model.visible(), m_model.filter().apply(*m_model.result()));
}

TEST_F(AppModelComparisonTest, CancellingEndsARunAndChangesNothingElse) {
    openPair();
    const auto result = m_model.result();
    m_model.setMatch(MatchChoice::key("Name"));
    const auto flag = m_model.compareFlag();
    m_watch.take();
    m_model.cancel();
    EXPECT_TRUE(flag->isCancelled());
    EXPECT_EQ(m_watch.take(), "compareFlag isResultOutdated progress");
    m_platform.settle();
    EXPECT_EQ(m_watch.take(), "");
    EXPECT_EQ(m_model.result(), result);
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelComparisonTest, AResultIsOutdatedOnceTheComparisonThatWouldReplaceItIsCancelled) {
    const std::vector<std::pair<std::string, std::function<void()>>> changes = {
        {"match", [&] { m_model.setMatch(MatchChoice::key("Name")); }},
        {"swap", [&] { m_model.swap(); }},
        {"options", [&] { Edit::settings(m_model, [](AppSettings& all) { all.options.ignoreCase = true; }); }},
        {"file",
         [&] {
             load("december.csv", Side::after);
             while (!m_model.progress()) {
                 step();
             }
         }},
    };
    for (const auto& [name, change] : changes) {
        openPair();
        change();
        EXPECT_FALSE(m_model.isResultOutdated()) << name << ": not while it is compared";
        m_model.cancel();
        EXPECT_TRUE(m_model.isResultOutdated()) << name;
        m_platform.settle();
        EXPECT_TRUE(m_model.isResultOutdated()) << name;
        m_model.compare();
        m_platform.settle();
        EXPECT_FALSE(m_model.isResultOutdated()) << name;
    }
}

TEST_F(AppModelComparisonTest, AResultIsNotOutdatedByACancelledComparisonOfTheSame) {
    openPair();
    m_model.compare();
    m_model.cancel();
    EXPECT_FALSE(m_model.isResultOutdated());
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_FALSE(m_model.isResultOutdated());
    m_model.swap();
    m_model.cancel();
    ASSERT_TRUE(m_model.isResultOutdated());
    m_model.swap();
    m_model.cancel();
    EXPECT_FALSE(m_model.isResultOutdated()) << "swapped back";
    m_model.swap();
    m_model.cancel();
    m_model.close(Side::before);
    EXPECT_FALSE(m_model.isResultOutdated()) << "there is none any more";
}

TEST_F(AppModelComparisonTest, AfterCancellingANewFileIsComparedAsEver) {
    openPair();
    m_model.compare();
    m_model.cancel();
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
}

TEST_F(AppModelComparisonTest, WhatWasTakenUpAgainOnceIsNotAtTheNextFailure) {
    openPair();
    m_model.compare();
    load("gone.csv", Side::after);
    m_platform.settle();
    const auto result = m_model.result();
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(m_model.result(), result);
}

TEST_F(AppModelComparisonTest, CancellingBetweenTheEndAndItsDeliveryCounts) {
    openPair();
    const auto result = m_model.result();
    m_model.setMatch(MatchChoice::key("Name"));
    m_platform.work();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(m_model.result(), result);
    EXPECT_EQ(m_model.progress(), std::nullopt);
}

TEST_F(AppModelComparisonTest, CancellingWhileAKeyIsLookedForLeavesThePairUncompared) {
    openUpToSuggestion();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(m_model.suggestedKey(), "ID");
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
    EXPECT_EQ(m_model.result(), nullptr);
    m_model.compare();
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

TEST_F(AppModelComparisonTest, WhatWasCancelledIsNotTakenUpAgainByAFileThatFails) {
    openPair();
    m_model.compare();
    load("december.csv", Side::after);
    step(1);
    // The suggestion for the new pair is under way.
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
    load("gone.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
    EXPECT_EQ(m_model.compareGeneration(), 2U);
}

TEST_F(AppModelComparisonTest, ComparingWaitsForWhatIsBeingRead) {
    openPair();
    load("december.csv", Side::after);
    m_model.compare();
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_EQ(m_model.compareGeneration(), 2U);
}

TEST_F(AppModelComparisonTest, ComparingAskedForWhileReadingHappensThoughReadingFails) {
    openPair();
    load("gone.csv", Side::after);
    m_model.compare();
    m_platform.settle();
    EXPECT_EQ(m_model.compareGeneration(), 2U);
}

TEST_F(AppModelComparisonTest, ComparingWaitsForTheSuggestion) {
    openUpToSuggestion();
    m_model.compare();
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.compareGeneration(), 1U);
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"ID"}));
}

TEST_F(AppModelComparisonTest, AFilterSetWhileComparingHoldsForTheNewResult) {
    for (const bool hasFinished : {false, true}) {
        openPair();
        m_model.setFilter({});
        m_platform.settle();
        load("december.csv", Side::after);
        step();
        step();
        ASSERT_TRUE(m_model.compareFlag());
        // Behind the file to discard.
        if (hasFinished) {
            m_platform.work(1);
        }
        m_model.setFilter({DiffFilter::Show::added, std::nullopt, ""});
        m_platform.settle();
        EXPECT_EQ(compared(), "october.csv > december.csv");
        EXPECT_EQ(listed(), "4");
        m_model.setFilter({});
        m_platform.settle();
        EXPECT_EQ(listed(), "1 2 3 4");
    }
}

TEST_F(AppModelComparisonTest, ASelectionMadeWhileComparingHoldsForTheNewResult) {
    openPair();
    m_model.select(1);
    ASSERT_EQ(selectedKey(), "2");
    load("december.csv", Side::after);
    step();
    step();
    m_platform.work(1);
    m_model.select(2);
    const std::string selected = selectedKey();
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > december.csv");
    EXPECT_EQ(selectedKey(), selected);
}

TEST_F(AppModelComparisonTest, TheNewestSelectionHoldsHoweverOftenItWasMadeWhileComparing) {
    openPair();
    for (const std::optional<std::int64_t> newest : {std::optional<std::int64_t>(0), std::optional<std::int64_t>()}) {
        m_model.select(1);
        const auto result = m_model.result();
        m_model.compare();
        m_platform.work();
        m_model.select(2);
        m_platform.deliver();
        ASSERT_EQ(m_model.result(), result);
        m_model.select(newest);
        m_platform.settle();
        EXPECT_NE(m_model.result(), result);
        EXPECT_EQ(m_model.selectedRow(), newest);
    }
}

TEST_F(AppModelComparisonTest, WhenTheViewChangesUntilTheEndTheRunCanStillBeCancelled) {
    openPair();
    const auto result = m_model.result();
    m_model.compare();
    m_platform.work();
    m_model.setFilter({DiffFilter::Show::all, std::nullopt, ""});
    m_platform.deliver();
    ASSERT_TRUE(m_model.compareFlag());
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(m_model.result(), result);
    EXPECT_EQ(listed(), "1 2 3 4");
}

TEST_F(AppModelComparisonTest, TheFirstResultTakesAFilterSetBeforeIt) {
    openUpToSuggestion();
    m_model.setFilter({DiffFilter::Show::all, std::nullopt, "cup"});
    m_platform.settle();
    EXPECT_EQ(listed(), "2");
}

TEST_F(AppModelComparisonTest, SelectionAndListComeTogetherWithTheResult) {
    openPair();
    m_model.select(1);
    const QObject receiver;
    std::vector<std::string> seen;
    QObject::connect(&m_model, &AppModel::resultChanged, &receiver, [this, &seen] {
        seen.push_back(compared() + ": " + listed() + ", " + selectedKey());
    });
    load("december.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(seen, (std::vector<std::string>{"october.csv > december.csv: 1 2 3 4, 2"}));
}

}  // namespace
}  // namespace corvale
