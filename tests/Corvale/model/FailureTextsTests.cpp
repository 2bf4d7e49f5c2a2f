#include <gtest/gtest.h>

#include <new>

#include "Corvale/model/FailureTexts.h"
#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataLoader.h"

namespace corvale {
namespace {

using Kind = DataLoader::Failure::Kind;

std::string loading(const std::exception_ptr& failure) { return FailureTexts::ofLoading(failure).toStdString(); }
std::string loading(Kind kind, const std::string& name) {
    return loading(std::make_exception_ptr(DataLoader::Failure(kind, name)));
}

TEST(FailureTexts, OfTheLoaderAreTheWindowsOwn) {
    EXPECT_EQ(loading(Kind::notSpreadsheet, "a.png"), "“a.png” doesn’t look like a CSV or Excel file.");
    EXPECT_EQ(loading(Kind::emptySheet, ""),
              "That sheet is empty. Pick another sheet from the menu under the file name.");
    EXPECT_EQ(loading(Kind::oldExcel, "a.xls"),
              "“a.xls” is an older Excel file (.xls). Open it in Excel or Numbers, save it as .xlsx or CSV, then open "
              "that here.");
    EXPECT_EQ(loading(Kind::numbersFile, "a.numbers"),
              "“a.numbers” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the "
              "exported file here.");
    EXPECT_EQ(loading(Kind::empty, "a.csv"), "“a.csv” is empty.");
}

TEST(FailureTexts, ShowANameAsItIs) {
    for (const std::string name : {"Größe %1.csv", "%2%L1.csv", "“a” & <b>.csv", "日本.csv"}) {
        EXPECT_EQ(loading(Kind::empty, name), "“" + name + "” is empty.");
    }
}

TEST(FailureTexts, OfOtherFailuresAreTheirOwn) {
    EXPECT_EQ(loading(std::make_exception_ptr(UserFailure("“a” couldn’t be opened: %1"))),
              "“a” couldn’t be opened: %1");
}

TEST(FailureTexts, SayWhatMemoryWasMissingFor) {
    const auto noMemory = std::make_exception_ptr(std::bad_alloc());
    EXPECT_EQ(loading(noMemory), "There isn’t enough memory to open this file.");
    EXPECT_EQ(FailureTexts::ofComparing(noMemory).toStdString(), "There isn’t enough memory to compare these files.");
    EXPECT_EQ(FailureTexts::ofExporting(noMemory).toStdString(),
              "The report couldn’t be saved: There isn’t enough memory.");
}

TEST(FailureTexts, OfAReportSayThatItCouldNotBeSavedAndWhy) {
    EXPECT_EQ(FailureTexts::ofExporting(std::make_exception_ptr(UserFailure("The disk is full: 100%1."))).toStdString(),
              "The report couldn’t be saved: The disk is full: 100%1.");
}

}  // namespace
}  // namespace corvale
