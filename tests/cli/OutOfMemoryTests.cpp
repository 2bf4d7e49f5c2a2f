#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/cli/Program.h"
#include "tests/cli/TextWorkbooks.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

// The program with less and less address space: it fails while it reads, makes tables, compares and writes.
class OutOfMemory : public testing::Test {
protected:
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    void SetUp() override { GTEST_SKIP() << "a sanitizer reserves terabytes of addresses"; }
#endif

    static std::vector<std::vector<std::string>> rows(int step) {
        std::vector<std::vector<std::string>> rows{{"ID", "Name", "Price"}};
        for (int row = 0; row < 30'000; ++row) {
            const std::string number = std::to_string(row);
            rows.push_back({number, "item " + std::to_string(row % 1000), std::to_string(row % step) + ".50"});
        }
        return rows;
    }
    static std::string csv(int step) {
        std::string text;
        for (const auto& row : rows(step)) {
            text += row[0] + "," + row[1] + "," + row[2] + "\n";
        }
        return text;
    }

    ProcessResult run(int kilobytes, const std::string& arguments) const {
        ProcessSettings settings;
        settings.folder = m_folder.path();
        const std::string script = "ulimit -v " + std::to_string(kilobytes) + " && exec \"$0\" " + arguments;
        return TestSupport::runProcess("sh", {"-c", script, TestFiles::program("corvale-cli").string()}, settings);
    }

    // Each run does the whole work, or says in one sentence why not and leaves nothing behind.
    void expectAllOrNothing(const std::string& arguments, int goodStatus) const {
        const ProcessResult good = run(4'000'000, arguments);
        ASSERT_EQ(good.status, goodStatus) << good.error;
        std::set<std::string> told;
        int succeeded = 0;
        for (int kilobytes = 10'000; kilobytes < 120'000 && succeeded < 5; kilobytes += 1500) {
            const ProcessResult result = run(kilobytes, arguments);
            // So little that the system cannot even start it.
            if (result.error.find("shared") != std::string::npos || result.status == 127) {
                continue;
            }
            EXPECT_EQ(result.signal, 0) << kilobytes << ": " << result.error;
            if (result.status == goodStatus) {
                EXPECT_TRUE(result.output == good.output) << kilobytes;
                ++succeeded;
                continue;
            }
            EXPECT_EQ(result.status, 2) << kilobytes;
            EXPECT_FALSE(goodStatus != 0 && result.output == good.output);
            told.insert(result.error);
        }
        EXPECT_GT(succeeded, 0);
        EXPECT_FALSE(told.empty());
        for (const std::string& sentence : told) {
            EXPECT_TRUE(sentence == "corvale-cli: This computer doesn’t have enough memory for these files.\n" ||
                        sentence.ends_with("” is too large for this computer’s memory.\n"))
                << sentence;
        }
    }

    ScratchFolder m_folder;
};

TEST_F(OutOfMemory, ComparingTextFilesTellsIt) {
    m_folder.write("a.csv", csv(90));
    m_folder.write("b.csv", csv(91));
    expectAllOrNothing("compare a.csv b.csv", 1);
    expectAllOrNothing("compare --row-order a.csv b.csv", 1);
}

TEST_F(OutOfMemory, ComparingWorkbooksTellsIt) {
    m_folder.write("a.xlsx", textWorkbook({{"Sheet1", rows(90)}}));
    m_folder.write("b.xlsx", textWorkbook({{"Sheet1", rows(91)}}));
    expectAllOrNothing("compare a.xlsx b.xlsx", 1);
}

TEST_F(OutOfMemory, AReportIsWrittenWholeOrNotAtAll) {
    m_folder.write("a.csv", csv(90));
    m_folder.write("b.csv", csv(91));
    for (const std::string name : {"r.html", "r.xlsx"}) {
        expectAllOrNothing("report a.csv b.csv -o " + name, 0);
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            EXPECT_FALSE(entry.path().filename().string().starts_with(".corvale-"));
        }
    }
}

// A thread's stack of its own takes more addresses than this leaves.
TEST_F(OutOfMemory, ASmallPairNeedsNoSecondThread) {
    m_folder.write("a.csv", "ID,Name\n1,Ann\n");
    m_folder.write("b.csv", "ID,Name\n1,Eve\n");
    const ProcessResult good = run(4'000'000, "compare a.csv b.csv");
    int succeeded = 0;
    for (int kilobytes = 6'000; kilobytes < 40'000; kilobytes += 500) {
        const ProcessResult result = run(kilobytes, "compare a.csv b.csv");
        EXPECT_EQ(result.error.find("Resource temporarily unavailable"), std::string::npos) << kilobytes;
        succeeded += result.status == 1 && result.output == good.output ? 1 : 0;
    }
    EXPECT_GT(succeeded, 0);
}

}  // namespace
}  // namespace corvale::Cli
