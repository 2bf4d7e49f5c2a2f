#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::ScriptedPlatform;

class AppModelFilesTest : public ModelTest {};

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
