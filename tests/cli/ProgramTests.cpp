#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include <csignal>

#include "tests/cli/Program.h"
#include "tests/cli/TextWorkbooks.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::Process;
using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

class Program : public testing::Test {
protected:
    // Runs in the scratch folder, so that names are short.
    ProcessResult run(std::vector<std::string> arguments) const { return runProgram(std::move(arguments), settings()); }
    ProcessResult shell(const std::string& script) const {
        return TestSupport::runProcess("sh", {"-c", script, TestFiles::program("corvale-cli").string()}, settings());
    }
    ProcessSettings settings() const {
        ProcessSettings settings;
        settings.folder = m_folder.path();
        return settings;
    }
    void expectTrouble(std::vector<std::string> arguments, const std::string& message) const {
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.status, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error, "corvale-cli: " + message + "\n");
    }

    ScratchFolder m_folder;
};

class ProgramWithTables : public Program {
protected:
    ProgramWithTables() {
        m_folder.write("a.csv", "ID,Name\n1,Ann\n2,Bo\n");
        m_folder.write("b.csv", "ID,Name\n1,Ann\n2,Bob\n");
        m_folder.write("wide.csv", "ID,Name,Age\n1,Ann,\n2,Bo,\n");
        m_folder.write("turned.csv", "Name,ID\nAnn,1\nBo,2\n");
        m_folder.write("renamed.csv", "ID,Who\n1,Ann\n2,Bo\n");
        m_folder.write(
            "book.xlsx",
            textWorkbook({{"Sheet1", {{"ID", "Name"}, {"1", "Ann"}}}, {"Sheet2", {{"ID", "Name"}, {"1", "Eve"}}}}));
    }
};

TEST_F(ProgramWithTables, EndsAsDiffDoes) {
    const struct {
        std::vector<std::string> arguments;
        int status;
    } cases[] = {
        {{"compare", "a.csv", "a.csv"}, 0},
        {{"compare", "a.csv", "b.csv"}, 1},
        {{"compare", "a.csv", "b.csv", "--format", "json"}, 1},
        {{"compare", "a.csv", "b.csv", "--format", "summary"}, 1},
        {{"compare", "a.csv", "b.csv", "--show", "added"}, 1},
        {{"compare", "a.csv", "b.csv", "--ignore-column", "Name"}, 0},
        {{"compare", "a.csv", "wide.csv"}, 1},
        {{"compare", "wide.csv", "a.csv"}, 1},
        {{"compare", "a.csv", "turned.csv"}, 0},
        {{"compare", "a.csv", "renamed.csv", "--by-position"}, 0},
        {{"key", "a.csv", "b.csv"}, 0},
        {{"table", "a.csv"}, 0},
        {{"sheets", "a.csv"}, 0},
        {{"--help"}, 0},
        {{"--version"}, 0},
    };
    for (const auto& one : cases) {
        const ProcessResult result = run(one.arguments);
        EXPECT_EQ(result.status, one.status) << testing::PrintToString(one.arguments);
        EXPECT_EQ(result.error, "");
        EXPECT_NE(result.output, "");
    }
}

TEST_F(ProgramWithTables, TextIsForPeople) {
    EXPECT_EQ(run({"compare", "a.csv", "b.csv"}).output,
              "Before   a.csv  2 rows, 2 columns\n"
              "After    b.csv  2 rows, 2 columns\n"
              "Matched  by ID (suggested)\n"
              "\n"
              "~ 2  row 3\n"
              "    Name: Bo → Bob\n"
              "\n"
              "Rows     0 added, 0 removed, 1 changed, 1 the same\n"
              "Cells    1 changed\n");
}

TEST_F(ProgramWithTables, SummaryIsForScripts) {
    EXPECT_EQ(run({"compare", "a.csv", "b.csv", "--format", "summary"}).output,
              "added: 0\nremoved: 0\nchanged: 1\nsame: 1\nchangedCells: 1\ntypeOnlyCells: 0\naddedColumns: 0\n"
              "removedColumns: 0\n");
}

TEST_F(ProgramWithTables, ListOptionsChooseWhatIsVisible) {
    const auto visible = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"compare", "a.csv", "b.csv", "--format", "json"});
        return nlohmann::json::parse(run(options).output)["visible"].dump();
    };
    EXPECT_EQ(visible({}), "[1]");
    EXPECT_EQ(visible({"--show", "all"}), "[0,1]");
    EXPECT_EQ(visible({"--show", "all", "--search", "ANN"}), "[0]");
    EXPECT_EQ(visible({"--column", "name"}), "[1]");
    EXPECT_EQ(visible({"--column", "ID"}), "[]");
}

TEST_F(ProgramWithTables, RowsAreMatchedAsAsked) {
    const auto match = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"compare", "a.csv", "b.csv", "--format", "json"});
        return nlohmann::json::parse(run(options).output)["match"].dump();
    };
    EXPECT_EQ(match({}), R"({"key":{"_0":["ID"]}})");
    EXPECT_EQ(match({"--key", "name"}), R"({"key":{"_0":["name"]}})");
    EXPECT_EQ(match({"--key", "ID", "--key", "Name"}), R"({"key":{"_0":["ID","Name"]}})");
    EXPECT_EQ(match({"--row-order"}), R"({"rowOrder":{}})");
}

TEST_F(ProgramWithTables, SheetsAreListedInOrder) {
    EXPECT_EQ(run({"sheets", "book.xlsx"}).output, "[\"Sheet1\",\"Sheet2\"]\n");
    EXPECT_EQ(run({"sheets", "a.csv"}).output, "[]\n");
}

TEST_F(Program, WhatIsNoWorkbookHasNoSheets) {
    m_folder.write("noise.bin", std::string("\0\1\2\3", 4));
    m_folder.write("empty", "");
    EXPECT_EQ(run({"sheets", "noise.bin"}).output, "[]\n");
    EXPECT_EQ(run({"sheets", "empty"}).output, "[]\n");
}

TEST_F(ProgramWithTables, ASheetIsChosenByNumberOrName) {
    const auto name = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"table", "book.xlsx"});
        return nlohmann::json::parse(run(options).output)["rows"][0][1];
    };
    EXPECT_EQ(name({}), "Ann");
    EXPECT_EQ(name({"--sheet", "2"}), "Eve");
    EXPECT_EQ(name({"--sheet", "Sheet2"}), "Eve");
    EXPECT_EQ(name({"--sheet", "sHEET1"}), "Ann");
    EXPECT_EQ(name({"--header-row", "2", "--sheet", "1"}), nlohmann::json());
}

TEST_F(ProgramWithTables, EachFileMayHaveItsOwnSheet) {
    const auto result = run({"compare", "book.xlsx", "book.xlsx", "--sheet", "1", "--after-sheet", "Sheet2"});
    EXPECT_NE(result.output.find("Name: Ann → Eve"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("Before   book.xlsx  sheet Sheet1, 1 row, 2 columns\n"
                                 "After    book.xlsx  sheet Sheet2, 1 row, 2 columns\n"),
              std::string::npos)
        << result.output;
}

TEST_F(ProgramWithTables, ASheetThatNobodyChoseIsNamedToo) {
    const std::string output = run({"compare", "a.csv", "book.xlsx"}).output;
    EXPECT_EQ(output.substr(0, output.find("Matched")),
              "Before   a.csv      2 rows, 2 columns\n"
              "After    book.xlsx  sheet Sheet1, 1 row, 2 columns\n");
}

TEST_F(ProgramWithTables, ATextFileHasNoUseForASheet) {
    const auto result = run({"compare", "a.csv", "a.csv", "--sheet", "Nowhere"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output.substr(0, result.output.find("Matched")),
              "Before   a.csv  2 rows, 2 columns\n"
              "After    a.csv  2 rows, 2 columns\n");
    EXPECT_EQ(run({"table", "a.csv", "--sheet", "99"}).status, 0);
}

TEST_F(ProgramWithTables, HeaderRowsCountFromOne) {
    const auto document = nlohmann::json::parse(run({"table", "a.csv", "--header-row", "2"}).output);
    EXPECT_EQ(document["headers"].dump(), R"(["1","Ann"])");
    EXPECT_EQ(document["headerRowNumber"], 2);
    EXPECT_EQ(document["rowNumbers"].dump(), "[3]");
    EXPECT_EQ(document["topRows"].size(), 3U);
}

TEST_F(ProgramWithTables, TroubleIsOneLineAndNoOutput) {
    m_folder.write("empty.csv", "");
    m_folder.write("noise.csv", std::string(1000, '\1'));
    m_folder.write("old.xls", "x");
    m_folder.write("table.numbers", "x");
    m_folder.write("broken.xlsx", "PK\x03\x04");
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"table", "no.csv"}, "“no.csv” doesn’t exist."},
        {{"table", "."}, "“.” is a folder, not a file."},
        {{"table", "/dev/zero"}, "“/dev/zero” is a device, not a file."},
        {{"table", "empty.csv"}, "“empty.csv” is empty."},
        {{"table", "noise.csv"}, "“noise.csv” doesn’t look like a CSV or Excel file."},
        {{"table", "old.xls"}, "“old.xls” is an older Excel file (.xls). Save it as .xlsx or CSV first."},
        {{"sheets", "old.xls"}, "“old.xls” is an older Excel file (.xls). Save it as .xlsx or CSV first."},
        {{"sheets", "table.numbers"},
         "“table.numbers” is a Numbers file. In Numbers, choose File › Export To › Excel… (or CSV…), then open the "
         "exported file."},
        {{"table", "broken.xlsx"},
         "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first."},
        {{"sheets", "broken.xlsx"},
         "It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first."},
        {{"table", "book.xlsx", "--sheet", "3"}, "The workbook has no sheet 3."},
        {{"table", "book.xlsx", "--sheet", "0"}, "The workbook has no sheet 0."},
        {{"table", "book.xlsx", "--sheet", "Stock"}, "“book.xlsx” has no sheet “Stock”. It has “Sheet1” and “Sheet2”."},
        {{"table", "book.xlsx", "--sheet", ""}, "“book.xlsx” has no sheet “”. It has “Sheet1” and “Sheet2”."},
        {{"table", "a.csv", "--header-row", "0"}, "--header-row takes a row number, counted from 1, not “0”."},
        {{"compare", "a.csv", "renamed.csv", "--key", "Name"}, "“renamed.csv” has no column “Name” to match rows by."},
        {{"compare", "./renamed.csv", "a.csv", "--key", "ID", "--key", "Name"},
         "“./renamed.csv” has no column “Name” to match rows by."},
        {{"compare", "a.csv", "b.csv", "--key", "ID", "--row-order"}, "--key and --row-order exclude each other."},
        {{"compare", "a.csv", "b.csv", "--column", "Age"}, "The comparison has no column “Age”."},
        {{"compare", "a.csv", "b.csv", "--column", "Age", "--format", "summary"},
         "The comparison has no column “Age”."},
        {{"compare", "a.csv", "no.csv"}, "“no.csv” doesn’t exist."},
        {{"compare", "no.csv", "."}, "“no.csv” doesn’t exist."},
        {{"compare", "empty.csv", "no.csv"}, "“empty.csv” is empty."},
        {{"compare", "a.csv"}, "AFTER is required; see corvale-cli compare --help"},
        {{}, "A command is missing: it is one of sheets, table, key, compare and report."},
    };
    for (const auto& [arguments, message] : cases) {
        expectTrouble(arguments, message);
    }
}

TEST_F(ProgramWithTables, OfTwoFilesTheOneInTroubleIsNamed) {
    m_folder.write("empty.csv", "");
    m_folder.write("blank.xlsx", textWorkbook({{"Stock", {}}}));
    m_folder.write("broken.xlsx", "PK\x03\x04");
    m_folder.write("none.xlsx", Workbooks::package({{"xl/workbook.xml", "<workbook><sheets/></workbook>"}}));
    ZipBuilder::Member damaged = {"xl/workbook.xml", "<workbook/>"};
    damaged.crc32 = 1;
    m_folder.write("damaged.xlsx", ZipBuilder::archive({damaged}));
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"book.xlsx", "./book.xlsx", "--after-sheet", "3"}, "“./book.xlsx”: The workbook has no sheet 3."},
        {{"book.xlsx", "./book.xlsx", "--before-sheet", "0"}, "“book.xlsx”: The workbook has no sheet 0."},
        {{"book.xlsx", "a.csv", "--sheet", "99999999999999999999"},
         "“book.xlsx”: The workbook has no sheet 99999999999999999999."},
        {{"book.xlsx", "blank.xlsx"}, "“blank.xlsx”: That sheet is empty."},
        {{"none.xlsx", "book.xlsx"}, "“none.xlsx”: The workbook has no sheets."},
        {{"a.csv", "broken.xlsx"},
         "“broken.xlsx”: It isn’t an Excel workbook (.xlsx). Older .xls files need saving as .xlsx or CSV first."},
        {{"damaged.xlsx", "book.xlsx"},
         "“damaged.xlsx”: “xl/workbook.xml” didn’t check out (the file may be damaged)."},
        {{"book.xlsx", "a.csv", "--sheet", "Stock"}, "“book.xlsx” has no sheet “Stock”. It has “Sheet1” and “Sheet2”."},
        {{"a.csv", "empty.csv"}, "“empty.csv” is empty."},
    };
    for (const auto& [arguments, message] : cases) {
        for (const char* command : {"compare", "key"}) {
            std::vector<std::string> all = arguments;
            all.insert(all.begin(), command);
            expectTrouble(all, message);
        }
    }
    expectTrouble({"report", "book.xlsx", "blank.xlsx", "-o", "out.html"}, "“blank.xlsx”: That sheet is empty.");
}

TEST_F(ProgramWithTables, OfOneFileTheUserKnowsTheName) {
    m_folder.write("blank.xlsx", textWorkbook({{"Stock", {}}}));
    expectTrouble({"table", "blank.xlsx"}, "That sheet is empty.");
    expectTrouble({"table", "book.xlsx", "--sheet", "99999999999999999999"},
                  "The workbook has no sheet 99999999999999999999.");
}

TEST_F(Program, APipeIsRefusedWithoutWaiting) {
    ASSERT_EQ(::mkfifo(m_folder.at("pipe.csv").c_str(), 0600), 0);
    expectTrouble({"table", "pipe.csv"}, "“pipe.csv” is a pipe. Save what comes out of it to a file first.");
}

TEST_F(Program, ALineBreakInANameIsASpaceInTheMessage) {
    m_folder.write("a\nb\x1b[2J.csv", "");
    expectTrouble({"table", "a\nb\x1b[2J.csv"}, "“a b␛[2J.csv” is empty.");
}

TEST_F(ProgramWithTables, AFullDiskIsTold) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "this system has no /dev/full";
    }
    for (const char* command : {"table a.csv", "compare a.csv b.csv", "compare a.csv b.csv --format json", "--help"}) {
        const ProcessResult result = shell("exec \"$0\" " + std::string(command) + " > /dev/full");
        EXPECT_EQ(result.status, 2) << command;
        EXPECT_EQ(result.error, "corvale-cli: The output can’t be written: No space left on device.\n");
    }
}

TEST_F(ProgramWithTables, AClosedOutputIsTold) {
    const ProcessResult result = shell("exec \"$0\" table a.csv >&-");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.error, "corvale-cli: The output can’t be written: Bad file descriptor.\n");
}

class ProgramWithALongTable : public Program {
protected:
    ProgramWithALongTable() {
        std::string text = "ID,Name\n";
        for (int i = 0; i < 20000; ++i) {
            text += std::to_string(i) + ",name\n";
        }
        m_folder.write("long.csv", text);
    }
};

TEST_F(ProgramWithALongTable, EndsQuietlyWhenNobodyReadsOn) {
    Process process(TestFiles::program("corvale-cli"), {"table", "long.csv"}, settings());
    process.closeOutput();
    const ProcessResult result = process.finish();
    EXPECT_EQ(result.signal, SIGPIPE);
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(shell("\"$0\" table long.csv | head -n 1").output, "{\"headers\":[\"ID\",\"Name\"],\n");
}

TEST_F(ProgramWithALongTable, WhereBrokenPipesAreNoSignalTheyAreTold) {
    const ProcessResult result = shell("trap '' PIPE; { \"$0\" table long.csv; echo $? >&2; } | :");
    EXPECT_EQ(result.error, "corvale-cli: The output can’t be written: Broken pipe.\n2\n");
}

TEST_F(ProgramWithALongTable, ALimitOnFileSizesIsTold) {
    const ProcessResult result = shell("ulimit -f 1; exec \"$0\" table long.csv > out.json");
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.error, "corvale-cli: The output can’t be written: File too large.\n");
}

TEST_F(ProgramWithALongTable, PrintsEveryRow) {
    EXPECT_EQ(nlohmann::json::parse(run({"table", "long.csv"}).output)["rows"].size(), 20000U);
}

// A cell at the far end of each of a million rows: a few megabytes that claim a thousand million cells.
class ProgramWithAHostileWorkbook : public Program {
protected:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    void SetUp() override { GTEST_SKIP() << "a sanitizer reserves terabytes of addresses"; }
#else
    void SetUp() override {
        std::string rows;
        for (int row = 1; row <= 1'048'576; ++row) {
            const std::string number = std::to_string(row);
            rows.append("<row r=\"").append(number).append("\"><c r=\"ALL").append(number);
            rows.append("\"><v>1</v></c></row>");
        }
        m_folder.write("hostile.xlsx", Workbooks::package(Workbooks::oneSheet(rows)));
    }
#endif
    // What it prints is 3 GB, and goes nowhere.
    ProcessResult table(int kilobytes) const {
        const std::string script =
            "ulimit -v " + std::to_string(kilobytes) + " && exec \"$0\" table hostile.xlsx > /dev/null";
        return TestSupport::runProcess("sh", {"-c", script, TestFiles::program("corvale-cli").string()}, settings());
    }
};

TEST_F(ProgramWithAHostileWorkbook, TwoGigabytesAreEnough) {
    const ProcessResult result = table(2 * 1024 * 1024);
    EXPECT_FALSE(result.wasKilled);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
}

TEST_F(ProgramWithAHostileWorkbook, TooLittleMemoryIsTold) {
    // It ends in one part of the program or another.
    for (const int megabytes : {40, 60, 90}) {
        const ProcessResult result = table(megabytes * 1024);
        EXPECT_FALSE(result.wasKilled);
        EXPECT_EQ(result.status, 2) << megabytes;
        EXPECT_EQ(result.error, "corvale-cli: This computer doesn’t have enough memory for these files.\n");
    }
}

}  // namespace
}  // namespace corvale::Cli
