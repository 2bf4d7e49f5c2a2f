#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/DataLoader.h"
#include "CorvaleKit/loading/XLSX.h"
#include "CorvaleKit/loading/ZipReader.h"
#include "tests/support/Grids.h"
#include "tests/support/Workbooks.h"

namespace corvale {
namespace {

using namespace std::string_view_literals;
using DataLoader::Failure;
using Grids::Rows;
using Grids::texts;
using Names = std::vector<std::string>;

DataTable loaded(std::string_view bytes, std::string_view name, std::int64_t sheet = 0,
                 std::optional<std::int64_t> headerRow = std::nullopt) {
    return DataLoader::load(Bytes(bytes), name, sheet, headerRow);
}

std::string row(const Names& cells) {
    std::string xml = "<row>";
    for (const auto& cell : cells) {
        xml += "<c t=\"str\"><v>" + cell + "</v></c>";
    }
    return xml + "</row>";
}

// A workbook of sheets, each given by its rows.
std::string workbook(const std::vector<std::string>& sheets) {
    Workbooks::Parts parts = {{"xl/workbook.xml", "<workbook><sheets>"}};
    for (std::size_t i = 1; i <= sheets.size(); ++i) {
        parts["xl/workbook.xml"] += "<sheet/>";
        parts["xl/worksheets/sheet" + std::to_string(i) + ".xml"] = Workbooks::worksheet(sheets[i - 1]);
    }
    parts["xl/workbook.xml"] += "</sheets></workbook>";
    return Workbooks::package(parts);
}

// The message with which loading fails; empty when it does not.
std::string failure(std::string_view bytes, std::string_view name, std::int64_t sheet = 0) {
    try {
        loaded(bytes, name, sheet);
    } catch (const UserFailure& caught) {
        return caught.message();
    }
    return {};
}

const std::string twoSheets =
    workbook({row({"id", "name"}) + row({"1", "Ann"}), row({"note"}) + row({"code", "price"}) + row({"7", "2.5"})});

TEST(DataLoader, FailuresQuoteTheFileName) {
    struct Case {
        Failure::Kind kind;
        std::string_view message;
    };
    const std::vector<Case> cases = {
        {Failure::Kind::numbersFile,
         "“my file.x” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the "
         "exported "
         "file."},
        {Failure::Kind::oldExcel, "“my file.x” is an older Excel file (.xls). Save it as .xlsx or CSV first."},
        {Failure::Kind::notSpreadsheet, "“my file.x” doesn’t look like a CSV or Excel file."},
        {Failure::Kind::empty, "“my file.x” is empty."},
        {Failure::Kind::emptySheet, "That sheet is empty."},
    };
    for (const auto& [kind, message] : cases) {
        const Failure caught(kind, "my file.x");
        EXPECT_EQ(caught.message(), message);
        EXPECT_EQ(caught.kind(), kind);
        EXPECT_EQ(caught.fileName(), "my file.x");
    }
}

TEST(DataLoader, RefusesNumbersAndOldExcelFilesFromTheirNamesAlone) {
    for (const std::string_view bytes : {""sv, "a,b\n1,2\n"sv, "PK\x03\x04"sv, std::string_view(twoSheets)}) {
        EXPECT_EQ(
            failure(bytes, "Report.numbers"),
            "“Report.numbers” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open "
            "the exported file.");
        EXPECT_EQ(failure(bytes, "Old.xls"), "“Old.xls” is an older Excel file (.xls). Save it as .xlsx or CSV first.");
        EXPECT_EQ(failure(bytes, "OLD.XLS"), "“OLD.XLS” is an older Excel file (.xls). Save it as .xlsx or CSV first.");
    }
}

TEST(DataLoader, TheExtensionIsWhatFollowsTheLastDot) {
    struct Case {
        std::string_view name;
        bool isRefused;
    };
    const std::vector<Case> cases = {
        {"a.xls", true},
        {"a.b.xls", true},
        {"a.Numbers", true},
        {"..xls", true},
        {" .xls", true},
        {".xls", false},
        {"xls", false},
        {"a.xls.", false},
        {"a.xls ", false},
        {"a.xls.csv", false},
        {".numbers", false},
        {"", false},
        {".", false},
        {"a.xlsm", false},
        {"a.xls/b", false},
    };
    for (const auto& [name, isRefused] : cases) {
        if (isRefused) {
            EXPECT_THROW(DataLoader::refuseByName(name), Failure) << name;
        } else {
            EXPECT_NO_THROW(DataLoader::refuseByName(name)) << name;
        }
    }
}

TEST(DataLoader, AWorkbookIsOneByItsNameOrItsFirstBytes) {
    struct Case {
        std::string_view bytes;
        std::string_view name;
        bool isWorkbook;
    };
    const std::vector<Case> cases = {
        {"", "a.xlsx", true},
        {"a,b", "A.XlsX", true},
        {"PK\x03\x04", "a.csv", true},
        {"PK\x03\x04rest", "", true},
        {"PK\x03", "a.csv", false},
        {"PK\x05\x06", "a.csv", false},
        {" PK\x03\x04", "a.csv", false},
        {"", "a.csv", false},
        {"a,b", ".xlsx", false},
        {"a,b", "a.xlsx.csv", false},
    };
    for (const auto& [bytes, name, isWorkbook] : cases) {
        EXPECT_EQ(DataLoader::isWorkbook(bytes, name), isWorkbook) << name;
    }
}

TEST(DataLoader, LoadsATextFile) {
    const DataTable table = loaded("id,name\n1,Ann\n", "people.csv");
    EXPECT_EQ(table.headers(), (Names{"id", "name"}));
    EXPECT_EQ(texts(table.rows()), (Rows{{"1", "Ann"}}));
    EXPECT_EQ(table.sourceName(), "people.csv");
    EXPECT_EQ(table.headerRowNumber(), 1);
    EXPECT_EQ(texts(table.topRows()), (Rows{{"id", "name"}, {"1", "Ann"}}));
}

TEST(DataLoader, ATitleLineAboveTheNamesIsSkipped) {
    const DataTable table = loaded("Sales in May\nid,name\n1,Ann\n", "sales.csv");
    EXPECT_EQ(table.headerRowNumber(), 2);
    EXPECT_EQ(table.headers(), (Names{"id", "name"}));
    EXPECT_EQ(table.rowNumbers(), (std::vector<std::int64_t>{3}));
}

TEST(DataLoader, ABlankLineBetweenRowsIsDroppedAndCounted) {
    const DataTable table = loaded("title,\nid,name\n1,a\n2,b\n\n3,c\n", "a.csv", 0, 2);
    EXPECT_EQ(table.rowNumbers(), (std::vector<std::int64_t>{3, 4, 6}));
}

TEST(DataLoader, RowNumbersCountRecordsNotLines) {
    const DataTable table = loaded("id,text\r\n1,\"two\r\nlines\"\r\n2,b\r\n", "a.csv");
    EXPECT_EQ(table.rowNumbers(), (std::vector<std::int64_t>{2, 3}));
    EXPECT_EQ(table.rows()[0][1], "two\r\nlines");
}

TEST(DataLoader, TheHeaderRowCanBeChosen) {
    const std::string_view bytes = "a,b\n\nc,d\n1,2\n";
    EXPECT_EQ(loaded(bytes, "a.csv", 0, 2).headerRowNumber(), 3);
    EXPECT_EQ(loaded(bytes, "a.csv", 0, 99).headerRowNumber(), 4);
    EXPECT_EQ(loaded(twoSheets, "a.xlsx", 1, 1).headerRowNumber(), 1);
}

TEST(DataLoader, AByteOrderMarkIsNoPartOfTheFirstName) {
    const DataTable table = loaded("\xEF\xBB\xBFid,name\n1,2\n", "a.csv");
    EXPECT_EQ(table.headers().front(), "id");
}

TEST(DataLoader, TabsSeparateTheCellsOfATsvFileWhateverItsFirstLineHolds) {
    const DataTable tsv = loaded("a,b,c\td\n1\t2\n", "a.TSV");
    EXPECT_EQ(tsv.headers(), (Names{"a,b,c", "d"}));
    const DataTable csv = loaded("a,b,c\td\n1\t2\n", "a.csv");
    EXPECT_EQ(csv.headers(), (Names{"a", "b", "c\td"}));
    const DataTable text = loaded("a\tb\n1\t2\n", "a.txt");
    EXPECT_EQ(text.headers(), (Names{"a", "b"}));
}

TEST(DataLoader, AFileWithNothingInItIsEmpty) {
    for (const std::string_view bytes : {""sv,
                                         "\n\n"sv,
                                         " , \t\n"sv,
                                         "\"\"\n"sv,
                                         "\xEF\xBB\xBF"sv,
                                         "\xFF\xFE"sv,
                                         "\xFF\xFE"
                                         "a"sv}) {
        EXPECT_EQ(failure(bytes, "none.csv"), "“none.csv” is empty.");
    }
}

TEST(DataLoader, BytesThatAreNoTextAreNoSpreadsheet) {
    EXPECT_EQ(failure(std::string(1'000'000, '\0'), "image.png"), "“image.png” doesn’t look like a CSV or Excel file.");
    EXPECT_EQ(failure("\x89PNG\r\n\x1A\n\x01\x02\x03", "a.csv"), "“a.csv” doesn’t look like a CSV or Excel file.");
    EXPECT_EQ(failure("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0\0"sv, "a.csv"),
              "“a.csv” doesn’t look like a CSV or Excel file.");
}

TEST(DataLoader, LoadsTheChosenSheetOfAWorkbook) {
    const DataTable first = loaded(twoSheets, "book.xlsx");
    EXPECT_EQ(first.headers(), (Names{"id", "name"}));
    EXPECT_EQ(texts(first.rows()), (Rows{{"1", "Ann"}}));
    EXPECT_EQ(first.sourceName(), "book.xlsx");

    const DataTable second = loaded(twoSheets, "book.xlsx", 1);
    EXPECT_EQ(second.headers(), (Names{"code", "price"}));
    EXPECT_EQ(second.headerRowNumber(), 2);
    EXPECT_EQ(second.rowNumbers(), (std::vector<std::int64_t>{3}));
    EXPECT_EQ(texts(second.topRows()), (Rows{{"note"}, {"code", "price"}, {"7", "2.5"}}));
}

TEST(DataLoader, ContentWinsOverTheExtension) {
    for (const std::string_view name : {"book.csv", "book.tsv", "book", "book.xlsx.bak"}) {
        const DataTable table = loaded(twoSheets, name);
        EXPECT_EQ(table.headers(), (Names{"id", "name"})) << name;
        EXPECT_EQ(table.sourceName(), name);
    }
}

TEST(DataLoader, TheSheetIndexIsIgnoredForTextFiles) {
    const DataTable table = loaded("id,name\n1,Ann\n", "people.csv", 7);
    EXPECT_EQ(table.headers(), (Names{"id", "name"}));
}

TEST(DataLoader, ASheetWithoutCellsIsEmpty) {
    for (const std::string_view cells : {"", "<row/><row/>", "<row><c t=\"str\"><v> </v></c></row>"}) {
        EXPECT_EQ(failure(workbook({std::string(cells)}), "book.xlsx"), "That sheet is empty.");
    }
}

TEST(DataLoader, FailuresOfWorkbooksPassUnchanged) {
    EXPECT_THROW(loaded("a,b\n", "a.xlsx"), XLSX::Failure);
    EXPECT_EQ(failure("a,b\n", "a.xlsx"),
              "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first.");
    EXPECT_EQ(failure(Workbooks::package({{"other.xml", "<a/>"}}), "a.csv"), "It isn’t an Excel workbook (.xlsx).");
    EXPECT_EQ(failure(twoSheets, "book.xlsx", 2), "The workbook has no sheet 3.");
    EXPECT_EQ(failure(twoSheets, "book.xlsx", -1), "The workbook has no sheet 0.");

    ZipBuilder::Member lying = {"xl/workbook.xml", "<workbook/>"};
    lying.crc32 = 1;
    const std::string damaged = ZipBuilder::archive({lying});
    EXPECT_THROW(loaded(damaged, "book.xlsx"), ZipReader::Failure);
    EXPECT_EQ(failure(damaged, "book.xlsx"), "“xl/workbook.xml” didn’t check out (the file may be damaged).");
}

TEST(DataLoader, AFailureKnowsItsKindAndFile) {
    try {
        loaded("", "none.csv");
        FAIL() << "an empty file was loaded";
    } catch (const Failure& caught) {
        EXPECT_EQ(caught.kind(), Failure::Kind::empty);
        EXPECT_EQ(caught.fileName(), "none.csv");
    }
}

}  // namespace
}  // namespace corvale
