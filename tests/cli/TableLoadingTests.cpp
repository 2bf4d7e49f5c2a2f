#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/loading/DataLoader.h"
#include "cli/Paths.h"
#include "cli/TableLoading.h"
#include "tests/cli/TextWorkbooks.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ScratchFolder;

std::vector<XLSX::Sheet> sheetsNamed(const std::vector<std::string>& names) {
    std::vector<XLSX::Sheet> sheets;
    for (const std::string& name : names) {
        sheets.push_back({name, {}});
    }
    return sheets;
}

TEST(TableLoading, ASheetOfDigitsIsANumber) {
    const auto sheets = sheetsNamed({"2", "1"});
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "1"), 0);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "002"), 1);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "0"), -1);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "7"), 6);
    EXPECT_THROW(sheetIndex(sheets, "b.xlsx", "99999999999999999999"), XLSX::Failure);
}

TEST(TableLoading, AnyOtherSheetIsAName) {
    const auto sheets = sheetsNamed({"stock", "Stock", "-1", "1.", ""});
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "Stock"), 1);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "STOCK"), 0);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "-1"), 2);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", "1."), 3);
    EXPECT_EQ(sheetIndex(sheets, "b.xlsx", ""), 4);
}

TEST(TableLoading, AMissingSheetIsNamedWithThoseThatAreThere) {
    try {
        sheetIndex(sheetsNamed({"A", "B"}), "dir/b.xlsx", "C");
        FAIL();
    } catch (const SheetFailure& failure) {
        EXPECT_STREQ(failure.what(), "“dir/b.xlsx” has no sheet “C”. It has “A” and “B”.");
    }
}

TEST(TableLoading, ATableIsKnownByItsFileName) {
    const ScratchFolder folder;
    const DataTable table = loadTable({folder.write("a.csv", "A\n1\n"), {}, {}}).table;
    EXPECT_EQ(table.sourceName(), "a.csv");
    EXPECT_EQ(table.headers(), std::vector<std::string>{"A"});
}

TEST(TableLoading, TheSheetIsChosenAmongThoseOfAWorkbook) {
    const ScratchFolder folder;
    const std::string workbook = folder.write(
        "book.xlsx", textWorkbook({{"One", {{"A"}, {"1"}}}, {"Two", {{"B"}, {"2"}}}, {"1", {{"C"}, {"3"}}}}));
    const auto header = [&](std::optional<std::string> sheet) {
        const LoadedTable loaded = loadTable({workbook, std::move(sheet), {}});
        return loaded.table.headers().front() + " in " + loaded.sheet.value_or("no sheet");
    };
    EXPECT_EQ(header({}), "A in One");
    EXPECT_EQ(header("two"), "B in Two");
    EXPECT_EQ(header("3"), "C in 1");
    EXPECT_EQ(header("1"), "A in One");
    EXPECT_THROW(header("4"), XLSX::Failure);
    EXPECT_THROW(header("Three"), SheetFailure);
}

TEST(TableLoading, TextFilesHaveNoSheetsToChooseFrom) {
    const ScratchFolder folder;
    const LoadedTable loaded = loadTable({folder.write("a.csv", "A\n1\n"), "No such sheet", {}});
    EXPECT_EQ(loaded.table.headers().front(), "A");
    EXPECT_EQ(loaded.sheet, std::nullopt);
}

TEST(TableLoading, BothSidesAreLoaded) {
    const ScratchFolder folder;
    const TablePair tables =
        loadPair({{folder.write("a.csv", "A\n1\n"), {}, {}}, {folder.write("b.csv", "B\n2\n"), {}, {}}});
    EXPECT_EQ(tables.before.table.headers().front(), "A");
    EXPECT_EQ(tables.after.table.headers().front(), "B");
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
