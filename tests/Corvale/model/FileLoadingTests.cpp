#include <gtest/gtest.h>

#include "Corvale/model/FileLoading.h"
#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "tests/Corvale/model/ModelTest.h"

namespace corvale {
namespace {

using TestSupport::ScriptedPlatform;

class FileLoadingTest : public testing::Test {
protected:
    LoadedFile read(const std::string& name, const std::string& bytes) {
        m_platform.files[name] = bytes;
        return FileLoading::read(m_platform, ScriptedPlatform::url(name));
    }

    ScriptedPlatform m_platform;
};

TEST_F(FileLoadingTest, ANameIsTheLastPartOfItsUrl) {
    EXPECT_EQ(FileLoading::nameOf(QUrl::fromLocalFile(QStringLiteral("/a b/Größe 100%.csv"))), "Größe 100%.csv");
    EXPECT_EQ(FileLoading::nameOf(QUrl()), "");
}

TEST_F(FileLoadingTest, BytesAreKeptAsTheyWereRead) {
    // Quoted cells are unfolded in place while parsing.
    const std::string csv = "ID,Text\n1,\"a \"\"quoted\"\" text, with a comma\"\n";
    const LoadedFile file = read("a.csv", csv);
    EXPECT_EQ(file.data->view(), csv);
    EXPECT_EQ(file.table.rows()[0][1], "a \"quoted\" text, with a comma");
    EXPECT_EQ(FileLoading::reparsed(file).table, file.table);
}

TEST_F(FileLoadingTest, ReadingAnewLeavesTheOldFileAlone) {
    LoadedFile file = read("a.csv", "A,B\nC,D\n1,2\n");
    file.headerRow = 2;
    const LoadedFile anew = FileLoading::reparsed(file);
    EXPECT_EQ(anew.table.headers(), (std::vector<std::string>{"C", "D"}));
    EXPECT_EQ(file.table.headers(), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(anew.data, file.data);
    EXPECT_EQ(anew.url, file.url);
    EXPECT_EQ(anew.name, "a.csv");
    EXPECT_EQ(m_platform.reads, 1);
}

TEST_F(FileLoadingTest, OfSheetsWithTheSameNameTheOneAtItsPlaceIsReadAgainElseTheFirst) {
    const std::pair<std::string, std::string> sheet = {"A", "x,y\n1,2\n"};
    const std::pair<std::string, std::string> other = {"B", "x,y\n3,4\n"};
    LoadedFile file = read("a.xlsx", TestSupport::workbook({sheet, sheet}));
    file.sheet = 1;
    EXPECT_EQ(FileLoading::readAgain(m_platform, file).sheet, 1);
    m_platform.files["a.xlsx"] = TestSupport::workbook({sheet, other, sheet});
    EXPECT_EQ(FileLoading::readAgain(m_platform, file).sheet, 0);
}

TEST_F(FileLoadingTest, ASheetThatBecameEmptyFails) {
    LoadedFile file = read("a.xlsx", TestSupport::workbook({{"A", "x,y\n1,2\n"}, {"B", "x,y\n3,4\n"}}));
    file.sheet = 1;
    m_platform.files["a.xlsx"] = TestSupport::workbook({{"A", "x,y\n1,2\n"}, {"B", ""}});
    EXPECT_THROW(FileLoading::readAgain(m_platform, file), DataLoader::Failure);
}

TEST_F(FileLoadingTest, AWorkbookThatBecameTextIsReadAsText) {
    LoadedFile file = read("a.dat", TestSupport::workbook({{"A", "x,y\n1,2\n"}, {"B", "x,y\n3,4\n"}}));
    ASSERT_EQ(file.sheetNames.size(), 2U);
    file.sheet = 1;
    m_platform.files["a.dat"] = "x,y\n5,6\n";
    const LoadedFile anew = FileLoading::readAgain(m_platform, file);
    EXPECT_TRUE(anew.sheetNames.empty());
    EXPECT_EQ(anew.sheet, 0);
    EXPECT_EQ(anew.table.rows()[0][0], "5");
}

TEST_F(FileLoadingTest, WhatIsNoLongerWantedIsReadButNotParsed) {
    const auto isCancelled = [] { return true; };
    const LoadedFile file = read("a.csv", "A,B\n1,2\n");
    // Parsing it would fail in another way.
    m_platform.files["a.csv"] = "";
    EXPECT_THROW(FileLoading::read(m_platform, file.url, isCancelled), Cancelled);
    EXPECT_THROW(FileLoading::readAgain(m_platform, file, isCancelled), Cancelled);
    EXPECT_EQ(m_platform.reads, 3);
}

TEST_F(FileLoadingTest, AFileThatIsGoneFails) {
    EXPECT_THROW(FileLoading::read(m_platform, ScriptedPlatform::url("gone.csv")), UserFailure);
}

}  // namespace
}  // namespace corvale
