#include <gtest/gtest.h>

#include <limits>

#include "CorvaleKit/loading/DataLoader.h"
#include "cli/FileReading.h"
#include "cli/TableLoading.h"
#include "tests/cli/TextWorkbooks.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ScratchFolder;

std::string workbookOf(const std::vector<std::string>& names) {
    std::vector<TextSheet> sheets;
    for (const std::string& name : names) {
        sheets.push_back({name, {}});
    }
    return textWorkbook(sheets);
}

TEST(TableLoading, ASheetOfDigitsIsANumber) {
    const std::string workbook = workbookOf({"2", "1"});
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "1"), 0);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "002"), 1);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "0"), -1);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "7"), 6);
    EXPECT_THROW(sheetIndex(workbook, "b.xlsx", "99999999999999999999"), SheetFailure);
}

TEST(TableLoading, AnyOtherSheetIsAName) {
    const std::string workbook = workbookOf({"stock", "Stock", "-1", "1.", ""});
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "Stock"), 1);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "STOCK"), 0);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "-1"), 2);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", "1."), 3);
    EXPECT_EQ(sheetIndex(workbook, "b.xlsx", ""), 4);
}

TEST(TableLoading, AMissingSheetIsNamedWithThoseThatAreThere) {
    try {
        sheetIndex(workbookOf({"A", "B"}), "dir/b.xlsx", "C");
        FAIL();
    } catch (const SheetFailure& failure) {
        EXPECT_STREQ(failure.what(), "“dir/b.xlsx” has no sheet “C”. It has “A” and “B”.");
    }
}

TEST(TableLoading, ATableIsKnownByItsFileName) {
    const ScratchFolder folder;
    const DataTable table = loadTable({folder.write("a.csv", "A\n1\n"), {}, {}});
    EXPECT_EQ(table.sourceName(), "a.csv");
    EXPECT_EQ(table.headers(), std::vector<std::string>{"A"});
}

TEST(TableLoading, BothSidesAreLoaded) {
    const ScratchFolder folder;
    const TablePair tables =
        loadPair({{folder.write("a.csv", "A\n1\n"), {}, {}}, {folder.write("b.csv", "B\n2\n"), {}, {}}});
    EXPECT_EQ(tables.before.headers().front(), "A");
    EXPECT_EQ(tables.after.headers().front(), "B");
}

TEST(TableLoading, BeforesFailureGoesFirst) {
    const ScratchFolder folder;
    const FileChoice good{folder.write("a.csv", "A\n1\n"), {}, {}};
    const FileChoice missing{folder.at("no.csv"), {}, {}};
    const FileChoice empty{folder.write("empty.csv", ""), {}, {}};
    EXPECT_THROW(loadPair({missing, empty}), FileFailure);
    EXPECT_THROW(loadPair({empty, missing}), DataLoader::Failure);
    EXPECT_THROW(loadPair({good, missing}), FileFailure);
}

}  // namespace
}  // namespace corvale::Cli
