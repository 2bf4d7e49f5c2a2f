#include <gtest/gtest.h>

#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ModelTest;
using TestSupport::workbook;

const char* const january = "ID,Price\n1,10\n2,20\n";
const char* const february = "Stock of February\nID,Price\n1,10\n2,21\n3,30\n";
// A header row of another sheet than the first.
const char* const march = "Code,Price\n7,1\nID,Price\n1,5\n2,6\n";

class AppModelSheetsTest : public ModelTest {
protected:
    AppModelSheetsTest() {
        m_platform.files["book.xlsx"] = workbook({{"Jan", january}, {"Feb", february}, {"Mar", march}, {"Empty", ""}});
        m_platform.files["other.csv"] = january;
    }

    void openBook() { openPair("book.xlsx", "other.csv"); }

    std::string chosen(Side side = Side::before) const {
        const LoadedFile& file = *m_model.file(side);
        const std::string sheet = file.sheetNames.empty() ? "" : file.sheetNames[static_cast<std::size_t>(file.sheet)];
        return sheet + "/" + (file.headerRow ? std::to_string(*file.headerRow) : "automatic");
    }
    std::int64_t headerRow(Side side = Side::before) const { return m_model.file(side)->table.headerRowNumber(); }
    void rewrite(const std::vector<std::pair<std::string, std::string>>& sheets) {
        m_platform.files["book.xlsx"] = workbook(sheets);
    }
};

TEST_F(AppModelSheetsTest, AWorkbookOpensAtItsFirstSheet) {
    openBook();
    EXPECT_EQ(m_model.before()->sheetNames, (std::vector<std::string>{"Jan", "Feb", "Mar", "Empty"}));
    EXPECT_EQ(chosen(), "Jan/automatic");
    EXPECT_EQ(counts(), "+0 -0 ~0 =2");
}

TEST_F(AppModelSheetsTest, AnotherSheetIsReadFromTheBytesAtHandAndCompared) {
    openBook();
    const auto bytes = m_model.before()->data;
    m_model.setSheet(1, Side::before);
    EXPECT_EQ(loading(), "before");
    EXPECT_EQ(chosen(), "Jan/automatic");
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(headerRow(), 2);
    EXPECT_EQ(counts(), "+0 -1 ~1 =1");
    EXPECT_EQ(m_platform.reads, 2);
    EXPECT_EQ(m_model.before()->data, bytes);
    EXPECT_EQ(m_model.before()->name, "book.xlsx");
}

TEST_F(AppModelSheetsTest, AnotherHeaderRowIsReadFromTheBytesAtHandAndCompared) {
    openBook();
    m_model.setHeaderRow(2, Side::after);
    m_platform.settle();
    EXPECT_EQ(chosen(Side::after), "/2");
    EXPECT_EQ(m_model.after()->table.headers(), (std::vector<std::string>{"1", "10"}));
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(m_platform.reads, 2);
    m_model.setHeaderRow(std::nullopt, Side::after);
    m_platform.settle();
    EXPECT_EQ(chosen(Side::after), "/automatic");
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
}

TEST_F(AppModelSheetsTest, AnotherSheetForgetsTheHeaderRow) {
    openBook();
    m_model.setSheet(2, Side::before);
    m_platform.settle();
    m_model.setHeaderRow(3, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Mar/3");
    m_model.setSheet(1, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
}

TEST_F(AppModelSheetsTest, AnEmptySheetLeavesTheOneThatWasThere) {
    openBook();
    const auto result = m_model.result();
    m_model.setSheet(3, Side::before);
    m_platform.settle();
    EXPECT_EQ(problem(), "That sheet is empty. Pick another sheet from the menu under the file name.");
    EXPECT_EQ(chosen(), "Jan/automatic");
    EXPECT_EQ(m_model.result(), result);
}

TEST_F(AppModelSheetsTest, SwapKeepsTheChoicesOfEachFile) {
    openBook();
    m_model.setSheet(2, Side::before);
    m_platform.settle();
    m_model.setHeaderRow(3, Side::before);
    m_platform.settle();
    m_model.swap();
    m_platform.settle();
    EXPECT_EQ(files(), "other.csv > book.xlsx");
    EXPECT_EQ(chosen(Side::after), "Mar/3");
    EXPECT_EQ(chosen(Side::before), "/automatic");
    EXPECT_EQ(counts(), "+0 -0 ~2 =0");
}

TEST_F(AppModelSheetsTest, SwapTakesASheetThatIsBeingReadAlong) {
    openBook();
    m_model.setSheet(1, Side::before);
    m_model.swap();
    EXPECT_EQ(loading(), "after");
    m_model.setHeaderRow(2, Side::after);
    m_platform.settle();
    EXPECT_EQ(chosen(Side::after), "Feb/2");
    EXPECT_EQ(files(), "other.csv > book.xlsx");
}

TEST_F(AppModelSheetsTest, TheSheetChosenLastWinsWhicheverIsReadFirst) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        openBook();
        m_model.setSheet(2, Side::before);
        m_model.setSheet(1, Side::before);
        step(first);
        m_platform.settle();
        EXPECT_EQ(chosen(), "Feb/automatic");
    }
}

TEST_F(AppModelSheetsTest, GoingBackToTheSheetThatIsStillThereCounts) {
    openBook();
    m_model.setSheet(1, Side::before);
    m_model.setSheet(0, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Jan/automatic");
    EXPECT_EQ(loading(), "");
}

TEST_F(AppModelSheetsTest, TheAutomaticHeaderRowIsTheOneThatTheLoaderTakes) {
    m_platform.files["low.csv"] = std::string(13, '\n') + "Stock list\nID,Price\n1,2\n3,4\n";
    load("low.csv", Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.before()->table.headerRowNumber(), 15);
    EXPECT_EQ(m_model.automaticHeaderRow(Side::before), 15);
    m_model.setHeaderRow(16, Side::before);
    m_platform.settle();
    EXPECT_EQ(m_model.before()->table.headerRowNumber(), 16);
    EXPECT_EQ(m_model.automaticHeaderRow(Side::before), 15);
    EXPECT_EQ(m_model.automaticHeaderRow(Side::after), std::nullopt);
}

TEST_F(AppModelSheetsTest, GoingBackToTheAutomaticHeaderRowCounts) {
    openBook();
    m_model.setHeaderRow(2, Side::before);
    m_model.setHeaderRow(std::nullopt, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Jan/automatic");
}

TEST_F(AppModelSheetsTest, AHeaderRowJoinsTheSheetThatIsBeingRead) {
    openBook();
    m_model.setSheet(2, Side::before);
    m_model.setHeaderRow(3, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Mar/3");
    EXPECT_EQ(headerRow(), 3);
}

TEST_F(AppModelSheetsTest, ChoosingWhatIsBeingReadStartsNothing) {
    openBook();
    m_model.setSheet(1, Side::before);
    const std::size_t waiting = m_platform.waiting();
    m_model.setSheet(1, Side::before);
    m_model.setHeaderRow(std::nullopt, Side::before);
    EXPECT_EQ(m_platform.waiting(), waiting);
}

TEST_F(AppModelSheetsTest, AFileThatReplacesTheBookIsNotGivenUpForAnotherSheet) {
    openBook();
    load("october.csv", Side::before);
    m_model.setSheet(1, Side::before);
    m_model.setHeaderRow(2, Side::before);
    m_platform.settle();
    EXPECT_EQ(files(), "october.csv > other.csv");
    EXPECT_EQ(chosen(), "/automatic");
}

TEST_F(AppModelSheetsTest, AFileReplacesTheBookWhoseSheetIsBeingRead) {
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        openBook();
        m_model.setSheet(1, Side::before);
        load("october.csv", Side::before);
        step(first);
        m_platform.settle();
        EXPECT_EQ(files(), "october.csv > other.csv");
    }
}

TEST_F(AppModelSheetsTest, ASheetChosenWhileComparingIsComparedInstead) {
    openBook();
    m_model.compare();
    m_platform.work();
    m_model.setSheet(1, Side::before);
    EXPECT_EQ(m_model.compareFlag(), nullptr);
    m_platform.settle();
    EXPECT_EQ(m_model.result()->before.rows().size(), 3U);
}

TEST_F(AppModelSheetsTest, CompareAgainKeepsSheetAndHeaderRow) {
    openBook();
    m_model.setSheet(2, Side::before);
    m_platform.settle();
    m_model.setHeaderRow(3, Side::before);
    m_platform.settle();
    rewrite({{"Jan", january}, {"Feb", february}, {"Mar", "Code,Price\n7,1\nID,Price\n1,5\n2,66\n"}});
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(chosen(), "Mar/3");
    EXPECT_EQ(m_model.result()->before.rows()[1][1], "66");
}

TEST_F(AppModelSheetsTest, CompareAgainFollowsASheetThatMoved) {
    openBook();
    m_model.setSheet(1, Side::before);
    m_platform.settle();
    m_model.setHeaderRow(2, Side::before);
    m_platform.settle();
    rewrite({{"Feb", february}, {"Jan", january}});
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/2");
    EXPECT_EQ(m_model.before()->sheet, 0);
}

TEST_F(AppModelSheetsTest, CompareAgainTakesTheFirstSheetWhenTheChosenOneIsGone) {
    openBook();
    m_model.setSheet(2, Side::before);
    m_platform.settle();
    m_model.setHeaderRow(3, Side::before);
    m_platform.settle();
    // Row 3 is there in the first sheet, but was never chosen as its header row.
    rewrite({{"Jan", january}, {"Feb", february}});
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(chosen(), "Jan/automatic");
    EXPECT_EQ(headerRow(), 1);
    EXPECT_EQ(m_model.problem(), std::nullopt);
}

TEST_F(AppModelSheetsTest, CompareAgainTakesTheAutomaticHeaderRowWhenTheChosenOneIsGoneOrBlank) {
    const std::vector<std::string> rewritten = {"ID,Price\n1,10\n", "ID,Price\n1,10\n\n2,20\n"};
    for (const std::string& csv : rewritten) {
        openPair("november.csv", "other.csv");
        m_model.setHeaderRow(3, Side::after);
        m_platform.settle();
        ASSERT_EQ(headerRow(Side::after), 3);
        m_platform.files["other.csv"] = csv;
        m_model.compareAgain();
        m_platform.settle();
        EXPECT_EQ(chosen(Side::after), "/automatic");
        EXPECT_EQ(headerRow(Side::after), 1);
        m_platform.files["other.csv"] = january;
    }
}

TEST_F(AppModelSheetsTest, ASheetChosenWhileComparingAgainIsReadFromDiskToo) {
    openBook();
    rewrite({{"Jan", january}, {"Feb", "ID,Price\n9,9\n"}});
    m_platform.files["other.csv"] = "ID,Price\n8,8\n";
    m_model.compareAgain();
    m_model.setSheet(1, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(m_model.before()->table.rows()[0][0], "9");
    EXPECT_EQ(m_model.after()->table.rows()[0][0], "8");
}

TEST_F(AppModelSheetsTest, CompareAgainReadsTheSheetThatWasJustChosen) {
    openBook();
    rewrite({{"Jan", january}, {"Feb", "ID,Price\n9,9\n"}});
    m_model.setSheet(1, Side::before);
    m_model.compareAgain();
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(m_model.before()->table.rows()[0][0], "9");
}

TEST_F(AppModelSheetsTest, ASheetChosenWhileComparingAgainWaitsForTheOtherFile) {
    openBook();
    m_model.compareAgain();
    m_model.setSheet(1, Side::before);
    m_platform.work();
    m_platform.work();
    m_platform.deliver();
    EXPECT_EQ(chosen(), "Jan/automatic");
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(problem(), "");
}

TEST_F(AppModelSheetsTest, ASheetChosenWhileComparingAgainOutlivesTheFailureOfTheOtherFile) {
    openBook();
    m_model.compareAgain();
    m_model.setSheet(1, Side::before);
    m_platform.files.erase("other.csv");
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(problem(), "“other.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelSheetsTest, AHeaderRowChosenWhileComparingAgainOutlivesTheFailureOfTheOtherFile) {
    openBook();
    m_model.compareAgain();
    m_model.setHeaderRow(2, Side::before);
    m_platform.files.erase("other.csv");
    m_platform.settle();
    EXPECT_EQ(chosen(), "Jan/2");
    EXPECT_EQ(problem(), "“other.csv” couldn’t be opened: No such file or directory");
}

TEST_F(AppModelSheetsTest, ASheetChosenWhileComparingAgainIsReadFromDiskThoughAnotherFileFails) {
    openBook();
    rewrite({{"Jan", january}, {"Feb", "ID,Price\n9,9\n"}});
    m_model.compareAgain();
    m_model.setSheet(1, Side::before);
    load("gone.csv", Side::after);
    // The last of the reads, before the one of the sheet.
    step(m_platform.waiting() - 1);
    ASSERT_EQ(problem(), "“gone.csv” couldn’t be opened: No such file or directory");
    ASSERT_EQ(loading(), "before");
    m_platform.settle();
    EXPECT_EQ(chosen(), "Feb/automatic");
    EXPECT_EQ(m_model.before()->table.rows()[0][0], "9");
}

TEST_F(AppModelSheetsTest, ThereIsNoHeaderRowAboveTheFirst) {
    openBook();
    m_model.setHeaderRow(2, Side::before);
    m_platform.settle();
    for (const std::int64_t row : {0, -5}) {
        m_model.setHeaderRow(row, Side::before);
        EXPECT_EQ(loading(), "") << row;
        m_platform.settle();
        EXPECT_EQ(chosen(), "Jan/2") << row;
    }
}

TEST_F(AppModelSheetsTest, AHeaderRowThatTheSheetLacksGivesWayToTheAutomaticOne) {
    openBook();
    m_model.setHeaderRow(2, Side::before);
    m_platform.settle();
    ASSERT_EQ(chosen(), "Jan/2");
    m_model.setHeaderRow(99, Side::before);
    m_platform.settle();
    EXPECT_EQ(chosen(), "Jan/automatic");
    EXPECT_EQ(headerRow(), 1);
}

}  // namespace
}  // namespace corvale
