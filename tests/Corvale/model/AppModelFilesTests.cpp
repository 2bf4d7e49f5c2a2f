#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelFilesTest : public ModelTest {
protected:
    // Of every result that is shown from now on, its files.
    void recordResults() {
        QObject::connect(&m_model, &AppModel::resultChanged, &m_receiver, [this] { m_results.push_back(compared()); });
    }

    std::vector<std::string> m_results;
    QObject m_receiver;
};

// --- The open panel

TEST_F(AppModelFilesTest, ThePanelForBeforeTakesSeveralFiles) {
    m_model.choose(Side::before);
    ASSERT_EQ(m_platform.openPanels.size(), 1U);
    EXPECT_EQ(m_platform.openPanels[0].message.toStdString(),
              "Choose the older file (Before), or select two files to fill both sides.");
    EXPECT_TRUE(m_platform.openPanels[0].allowsSeveral);
    EXPECT_EQ(
        m_platform.openPanels[0].extensions,
        (QStringList{QStringLiteral("xlsx"), QStringLiteral("csv"), QStringLiteral("tsv"), QStringLiteral("txt")}));
}

TEST_F(AppModelFilesTest, ThePanelForAfterTakesOneFile) {
    m_model.choose(Side::after);
    ASSERT_EQ(m_platform.openPanels.size(), 1U);
    EXPECT_EQ(m_platform.openPanels[0].message.toStdString(), "Choose the newer file (After).");
    EXPECT_FALSE(m_platform.openPanels[0].allowsSeveral);
}

TEST_F(AppModelFilesTest, OneFileOfThePanelFillsItsSide) {
    for (const Side side : {Side::before, Side::after}) {
        m_model.choose(side);
        m_platform.chooseFiles({side == Side::before ? "october.csv" : "december.csv"});
        m_platform.settle();
    }
    EXPECT_EQ(files(), "october.csv > december.csv");
}

TEST_F(AppModelFilesTest, TwoFilesOfThePanelFillBothSidesInTheirOrder) {
    m_model.choose(Side::before);
    m_platform.chooseFiles({"november.csv", "october.csv"});
    EXPECT_EQ(loading(), "after before");
    m_platform.settle();
    EXPECT_EQ(files(), "november.csv > october.csv");
    EXPECT_EQ(compared(), "november.csv > october.csv");
}

TEST_F(AppModelFilesTest, APanelThatIsDismissedDoesNothing) {
    m_model.choose(Side::before);
    m_platform.chooseFiles({});
    EXPECT_EQ(loading(), "");
    EXPECT_EQ(m_watch.take(), "");
}

// --- Opening

TEST_F(AppModelFilesTest, OneUrlFillsTheSideThatItIsFor) {
    m_model.open({ScriptedPlatform::url("october.csv")}, Side::after);
    m_platform.settle();
    EXPECT_EQ(files(), " > october.csv");
}

TEST_F(AppModelFilesTest, TwoUrlsFillBothSidesWhateverTheSide) {
    for (const Side side : {Side::before, Side::after}) {
        m_model.open({ScriptedPlatform::url("october.csv"), ScriptedPlatform::url("november.csv")}, side);
        m_platform.settle();
        EXPECT_EQ(files(), "october.csv > november.csv");
        m_model.close(Side::before);
        m_model.close(Side::after);
    }
}

TEST_F(AppModelFilesTest, OfMoreUrlsTheFirstTwoCount) {
    m_model.open({ScriptedPlatform::url("december.csv"),
                  ScriptedPlatform::url("november.csv"),
                  ScriptedPlatform::url("october.csv")},
                 Side::after);
    m_platform.settle();
    EXPECT_EQ(files(), "december.csv > november.csv");
    EXPECT_EQ(m_platform.reads, 2);
}

TEST_F(AppModelFilesTest, ALoadedFileHoldsWhatItWasReadFrom) {
    load("october.csv", Side::before);
    m_platform.settle();
    const LoadedFile& file = *m_model.before();
    EXPECT_EQ(file.url, ScriptedPlatform::url("october.csv"));
    EXPECT_EQ(file.name, "october.csv");
    EXPECT_EQ(file.data->view(), m_platform.files["october.csv"]);
    EXPECT_TRUE(file.sheetNames.empty());
    EXPECT_EQ(file.sheet, 0);
    EXPECT_EQ(file.headerRow, std::nullopt);
    EXPECT_EQ(file.table.headers(), (std::vector<std::string>{"ID", "Name", "Price"}));
}

TEST_F(AppModelFilesTest, ReadingHappensInTheBackground) {
    load("october.csv", Side::before);
    EXPECT_EQ(m_platform.reads, 0);
    EXPECT_EQ(loading(), "before");
    m_platform.work();
    EXPECT_EQ(m_platform.reads, 1);
    EXPECT_EQ(loading(), "before");
    EXPECT_FALSE(m_model.before());
    m_platform.deliver();
    EXPECT_EQ(loading(), "");
    EXPECT_TRUE(m_model.before());
}

TEST_F(AppModelFilesTest, OneFileAloneIsNotCompared) {
    load("october.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.compareGeneration(), 0U);
    EXPECT_EQ(m_model.suggestedKey(), std::nullopt);
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
}

// --- Failures

TEST_F(AppModelFilesTest, NamesThatCannotBeReadAreRefusedAtOnce) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"stock.xls",
         "“stock.xls” is an older Excel file (.xls). Open it in Excel or Numbers, save it as .xlsx or CSV, then open "
         "that here."},
        {"Stock.Numbers",
         "“Stock.Numbers” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the "
         "exported file here."},
    };
    for (const auto& [name, message] : cases) {
        load(name, Side::before);
        EXPECT_EQ(problem(), message);
        EXPECT_EQ(loading(), "");
        EXPECT_EQ(m_platform.waiting(), 0U);
        m_model.dismissProblem();
    }
}

TEST_F(AppModelFilesTest, OfTwoFilesThatFailBothAreTold) {
    m_model.open({ScriptedPlatform::url("gone.csv"), ScriptedPlatform::url("lost.csv")}, Side::before);
    m_platform.settle();
    EXPECT_EQ(problem(),
              "“gone.csv” couldn’t be opened: No such file or directory\n\n"
              "“lost.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelFilesTest, WhatWasToldAndIsStillThereIsNotToldTwice) {
    load("stock.xls", Side::before);
    const std::string once = problem();
    load("stock.xls", Side::after);
    EXPECT_EQ(problem(), once);
}

TEST_F(AppModelFilesTest, AReadThatNobodyWantsAnyMoreIsNotBegun) {
    load("october.csv", Side::before);
    load("november.csv", Side::before);
    m_model.cancel();
    load("december.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(m_platform.reads, 1);
    EXPECT_EQ(files(), "december.csv > ");
}

TEST_F(AppModelFilesTest, AWorkbookWhoseFirstSheetsAreEmptyOpensAtTheNext) {
    m_platform.files["book.xlsx"] = TestSupport::workbook({{"Cover", ""}, {"Notes", ""}, {"Data", "ID,Price\n1,2\n"}});
    load("book.xlsx", Side::before);
    m_platform.settle();
    EXPECT_EQ(problem(), "");
    ASSERT_TRUE(m_model.before());
    EXPECT_EQ(m_model.before()->sheet, 2);
    EXPECT_EQ(m_model.before()->sheetNames, (std::vector<std::string>{"Cover", "Notes", "Data"}));
}

TEST_F(AppModelFilesTest, AWorkbookOfEmptySheetsIsTold) {
    m_platform.files["book.xlsx"] = TestSupport::workbook({{"Cover", ""}, {"Notes", ""}});
    load("book.xlsx", Side::before);
    m_platform.settle();
    EXPECT_EQ(problem(), "That sheet is empty. Pick another sheet from the menu under the file name.");
    EXPECT_FALSE(m_model.before());
}

TEST_F(AppModelFilesTest, ARefusedNameDoesNotDisturbAFileThatIsBeingRead) {
    load("october.csv", Side::before);
    load("stock.xls", Side::before);
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > ");
}

TEST_F(AppModelFilesTest, OfTwoFilesOneMayBeRefused) {
    m_model.open({ScriptedPlatform::url("stock.xls"), ScriptedPlatform::url("november.csv")}, Side::before);
    m_platform.settle();
    EXPECT_EQ(files(), " > november.csv");
    EXPECT_NE(problem(), "");
}

TEST_F(AppModelFilesTest, AFailureKeepsTheFileAndItsResult) {
    m_platform.files["picture.csv"] = std::string("\x89PNG\0\0\0\r\n\0\x1a", 11);
    m_platform.files["nothing.csv"] = "";
    m_platform.files["broken.xlsx"] = "PK\x03\x04 and no more";
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"picture.csv", "“picture.csv” doesn’t look like a CSV or Excel file."},
        {"nothing.csv", "“nothing.csv” is empty."},
        {"gone.csv", "“gone.csv” couldn’t be opened: No such file or directory"},
        {"broken.xlsx", "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first."},
    };
    openPair();
    const auto result = m_model.result();
    for (const auto& [name, message] : cases) {
        load(name, Side::after);
        m_platform.settle();
        EXPECT_EQ(problem(), message);
        EXPECT_EQ(files(), "october.csv > november.csv");
        EXPECT_EQ(loading(), "");
        EXPECT_EQ(m_model.result(), result);
        EXPECT_EQ(m_model.compareGeneration(), 1U);
        m_model.dismissProblem();
        EXPECT_EQ(m_model.problem(), std::nullopt);
    }
}

TEST_F(AppModelFilesTest, AnEmptySheetSaysWhereToPickAnother) {
    m_platform.files["empty.xlsx"] = TestSupport::workbook({{"Jan", ""}});
    load("empty.xlsx", Side::before);
    m_platform.settle();
    EXPECT_EQ(problem(), "That sheet is empty. Pick another sheet from the menu under the file name.");
}

// --- Files that overtake each other

TEST_F(AppModelFilesTest, ANewerFileWinsWhicheverIsReadFirst) {
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

TEST_F(AppModelFilesTest, AnOlderFileThatFailsLateSaysNothing) {
    load("gone.csv", Side::before);
    load("october.csv", Side::before);
    m_platform.work();
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > ");
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelFilesTest, ANewerFileThatFailsLeavesTheSideAsItWas) {
    load("october.csv", Side::before);
    load("gone.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelFilesTest, TheFilesOfAPairMayComeInEitherOrder) {
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

TEST_F(AppModelFilesTest, AComparisonOfFilesThatWereReplacedIsNeverShown) {
    openPair();
    recordResults();
    m_model.compare();
    load("december.csv", Side::after);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    m_platform.settle();
    EXPECT_EQ(m_results, (std::vector<std::string>{"october.csv > december.csv"}));
}

TEST_F(AppModelFilesTest, AComparisonThatFinishesBeforeItsDeliveryIsNotShownAfterANewFile) {
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

TEST_F(AppModelFilesTest, AComparisonThatFinishesAfterTheNewerOneIsNotShown) {
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

TEST_F(AppModelFilesTest, AComparisonIsTakenUpAgainWhenTheNewFileFails) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    load("gone.csv", Side::after);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
    EXPECT_EQ(problem(), "“gone.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelFilesTest, ASuggestionIsTakenUpAgainWhenTheNewFileFails) {
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

TEST_F(AppModelFilesTest, ASuggestionForOlderFilesIsNotTaken) {
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

// --- Closing

TEST_F(AppModelFilesTest, ClosingASideClearsWhatThePairHad) {
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

TEST_F(AppModelFilesTest, ASideThatIsClosedWhileItLoadsStaysEmpty) {
    load("october.csv", Side::before);
    m_model.close(Side::before);
    EXPECT_EQ(loading(), "");
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelFilesTest, AFileThatFailsAfterItsSideWasClosedSaysNothing) {
    load("gone.csv", Side::before);
    m_platform.work();
    m_model.close(Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelFilesTest, ClosingDropsTheFileAndTheOneBeingReadForIt) {
    openPair();
    load("december.csv", Side::after);
    m_model.close(Side::after);
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > ");
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelFilesTest, ClosingTheOtherSideLetsAFileBeRead) {
    openPair();
    load("december.csv", Side::after);
    m_model.close(Side::before);
    EXPECT_EQ(loading(), "after");
    m_platform.settle();
    EXPECT_EQ(files(), " > december.csv");
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelFilesTest, ClosingEndsAComparison) {
    openPair();
    m_model.compare();
    m_platform.work();
    m_model.close(Side::before);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result(), nullptr);
}

TEST_F(AppModelFilesTest, ClosingEndsASuggestion) {
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

// --- Cancelling what is read

TEST_F(AppModelFilesTest, CancellingAReadLeavesTheFileThatWasThere) {
    openPair();
    const auto result = m_model.result();
    load("december.csv", Side::after);
    m_model.cancel();
    EXPECT_EQ(loading(), "");
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > november.csv");
    EXPECT_EQ(m_model.result(), result);
}

TEST_F(AppModelFilesTest, AReadThatIsCancelledBeforeItsDeliveryIsNotTaken) {
    load("october.csv", Side::before);
    m_platform.work();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(files(), " > ");
}

TEST_F(AppModelFilesTest, CancellingAReadTakesTheInterruptedComparisonUpAgain) {
    openPair();
    m_model.setMatch(MatchChoice::key("Name"));
    load("december.csv", Side::after);
    m_model.cancel();
    EXPECT_TRUE(m_model.compareFlag());
    m_platform.settle();
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

TEST_F(AppModelFilesTest, OfAPairTheFileThatHadComeStaysWhenTheRestIsCancelled) {
    openPair("december.csv", "november.csv");
    load("october.csv", Side::before);
    load("december.csv", Side::after);
    step();
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(compared(), "october.csv > november.csv");
}

// --- Swapping

TEST_F(AppModelFilesTest, SwapExchangesTheFilesAndComparesAgain) {
    openPair();
    EXPECT_EQ(counts(), "+1 -1 ~1 =1");
    m_model.swap();
    EXPECT_EQ(files(), "november.csv > october.csv");
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
    EXPECT_EQ(m_platform.reads, 2);
}

TEST_F(AppModelFilesTest, SwapWithOneFileMovesIt) {
    load("october.csv", Side::before);
    m_platform.settle();
    m_watch.take();
    m_model.swap();
    EXPECT_EQ(files(), " > october.csv");
    EXPECT_EQ(m_watch.take(), "after before");
    EXPECT_EQ(m_platform.waiting(), 0U);
}

TEST_F(AppModelFilesTest, SwapTakesWhatIsBeingReadAlong) {
    load("october.csv", Side::before);
    m_platform.settle();
    load("november.csv", Side::after);
    m_model.swap();
    EXPECT_EQ(loading(), "before");
    EXPECT_EQ(files(), " > october.csv");
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
}

TEST_F(AppModelFilesTest, SwapWhileAFileIsReplacedComparesTheNewPairOnly) {
    openPair();
    recordResults();
    load("december.csv", Side::after);
    m_model.swap();
    EXPECT_EQ(loading(), "before");
    m_platform.settle();
    EXPECT_EQ(m_results, (std::vector<std::string>{"december.csv > october.csv"}));
}

TEST_F(AppModelFilesTest, SwapIsComparedWhenTheFileBeingReadFails) {
    openPair();
    load("gone.csv", Side::after);
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(compared(), "november.csv > october.csv");
}

TEST_F(AppModelFilesTest, SwapWhileComparingShowsOnlyTheSwappedPair) {
    for (const bool hasFinished : {false, true}) {
        openPair();
        m_results.clear();
        recordResults();
        m_model.compare();
        if (hasFinished) {
            m_platform.work();
        }
        m_model.swap();
        m_platform.settle();
        EXPECT_EQ(m_results.front(), "november.csv > october.csv");
        EXPECT_EQ(compared(), "november.csv > october.csv");
        QObject::disconnect(&m_model, &AppModel::resultChanged, &m_receiver, nullptr);
    }
}

TEST_F(AppModelFilesTest, SwapWhileAKeyIsLookedForAsksForTheSwappedPair) {
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

TEST_F(AppModelFilesTest, SwapNamesTheKeyAsTheNewBeforeDoes) {
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

TEST_F(AppModelFilesTest, SwapKeepsRowOrder) {
    openPair();
    m_model.setMatch(MatchChoice::rowOrder());
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_FALSE(m_model.result()->match.isKey());
}

// --- Samples

TEST_F(AppModelFilesTest, TheSamplesFillBothSidesWithoutADisk) {
    m_model.openSamples();
    EXPECT_EQ(files(), "Stock - October.xlsx > Stock - November.xlsx");
    m_platform.settle();
    EXPECT_EQ(m_platform.reads, 0);
    EXPECT_EQ(m_model.match(), MatchChoice::key("SKU"));
    EXPECT_EQ(compared(), "Stock - October.xlsx > Stock - November.xlsx");
    EXPECT_TRUE(m_model.before()->url.isEmpty());
    EXPECT_TRUE(m_model.before()->sheetNames.empty());
}

TEST_F(AppModelFilesTest, TheSamplesReplaceWhatIsLoadingAndCompared) {
    openPair();
    m_model.setMatch(MatchChoice::rowOrder());
    load("december.csv", Side::after);
    m_model.openSamples();
    EXPECT_EQ(loading(), "");
    m_platform.settle();
    EXPECT_EQ(compared(), "Stock - October.xlsx > Stock - November.xlsx");
    EXPECT_EQ(m_model.match(), MatchChoice::key("SKU"));
}

TEST_F(AppModelFilesTest, AFileReplacesASample) {
    m_model.openSamples();
    load("october.csv", Side::after);
    m_platform.settle();
    EXPECT_EQ(files(), "Stock - October.xlsx > october.csv");
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
}

TEST_F(AppModelFilesTest, SamplesHaveNoOtherSheetOrHeaderRow) {
    m_model.openSamples();
    m_platform.settle();
    m_model.setHeaderRow(2, Side::before);
    m_model.setSheet(0, Side::before);
    EXPECT_EQ(m_platform.waiting(), 0U);
}

}  // namespace
}  // namespace corvale
