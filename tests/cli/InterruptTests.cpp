#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <random>

#include "cli/Interrupt.h"
#include "tests/cli/Program.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/Workbooks.h"

namespace corvale::Cli {
namespace {

using TestSupport::Process;
using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

TEST(InterruptDeathTest, EndsTheProgramAtOnce) {
    EXPECT_EXIT(
        {
            Interrupt::install();
            std::raise(SIGINT);
            std::_Exit(0);
        },
        testing::ExitedWithCode(130),
        "");
}

TEST(InterruptDeathTest, IsOnlyNotedWhileDeferred) {
    EXPECT_EXIT(
        {
            Interrupt::install();
            const Interrupt::Deferral deferral;
            const bool wasRequested = Interrupt::isRequested();
            std::raise(SIGINT);
            std::_Exit(!wasRequested && Interrupt::isRequested() ? 7 : 8);
        },
        testing::ExitedWithCode(7),
        "");
}

TEST(InterruptDeathTest, TheSecondOneIsNotDeferred) {
    EXPECT_EXIT(
        {
            Interrupt::install();
            const Interrupt::Deferral deferral;
            std::raise(SIGINT);
            std::raise(SIGINT);
            std::_Exit(0);
        },
        testing::ExitedWithCode(130),
        "");
}

// As over tables so wide that the next poll is far away.
TEST(InterruptDeathTest, EndsTheProgramWhenTheComparisonDoesNotStop) {
    EXPECT_EXIT(
        {
            Interrupt::install();
            const Interrupt::Deferral deferral;
            std::raise(SIGINT);
            for (;;) {
                ::pause();
            }
        },
        testing::ExitedWithCode(130),
        "");
}

TEST(InterruptDeathTest, StaysIgnoredWhereItWasIgnored) {
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_IGN);
            Interrupt::install();
            std::raise(SIGINT);
            std::_Exit(9);
        },
        testing::ExitedWithCode(9),
        "");
}

// The program as it is started by hand in a terminal, unless its error stream is told to be a pipe.
class InterruptedProgram : public testing::Test {
protected:
    std::unique_ptr<Process> start(std::vector<std::string> arguments,
                                   ProcessSettings::Stream error = ProcessSettings::Stream::terminal) const {
        ProcessSettings settings;
        settings.error = error;
        settings.environment = {{"TERM", "xterm"}};
        settings.folder = m_folder.path();
        return std::make_unique<Process>(TestFiles::program("corvale-cli"), std::move(arguments), settings);
    }

    // Interrupts the program, and expects it to end soon with nothing written and its progress erased.
    static void expectNoTrace(Process& process) {
        process.send(SIGINT);
        const auto sent = std::chrono::steady_clock::now();
        const ProcessResult result = process.finish();
        EXPECT_EQ(result.status, 130);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error.substr(result.error.rfind('\r')), "\r\x1b[K");
        // It takes a few milliseconds; the bound leaves room for sanitizers and busy machines.
        EXPECT_LT(std::chrono::steady_clock::now() - sent, std::chrono::seconds(5));
    }

    // A workbook of as many short rows as are read.
    void makeWorkbook(int cells) {
        std::string row = "<row>";
        for (int i = 0; i < cells; ++i) {
            row += "<c><v>1</v></c>";
        }
        row += "</row>";
        std::string rows;
        rows.reserve(row.size() << 20U);
        for (int i = 0; i < 1 << 20; ++i) {
            rows += row;
        }
        m_folder.write("long.xlsx", Workbooks::package(Workbooks::oneSheet(rows)));
    }

    // Two tables that have nothing in common, so that lining up their rows takes its time.
    void makeTables(int rows) {
        std::mt19937 random(7);
        for (const char* name : {"a.csv", "b.csv"}) {
            std::string text = "A,B,C,D\n";
            for (int i = 0; i < rows; ++i) {
                for (int cell = 0; cell < 4; ++cell) {
                    text += std::to_string(random() % 100000) + (cell < 3 ? "," : "\n");
                }
            }
            m_folder.write(name, text);
        }
    }

    ScratchFolder m_folder;
};

// The faster the machine, the longer the tables until there is progress to show.
TEST_F(InterruptedProgram, EndsWithoutATraceWhileItReads) {
    for (int cells = 4; cells <= 32; cells *= 2) {
        makeWorkbook(cells);
        const auto process = start({"table", "long.xlsx"});
        if (process->waitForError("Reading…")) {
            expectNoTrace(*process);
            return;
        }
    }
    FAIL() << "no reading took long enough";
}

TEST_F(InterruptedProgram, EndsWithoutATraceWhileItCompares) {
    for (int rows = 200000; rows <= 4000000; rows *= 2) {
        makeTables(rows);
        const auto process = start({"compare", "a.csv", "b.csv", "--row-order"});
        if (process->waitForError("Comparing…")) {
            expectNoTrace(*process);
            return;
        }
    }
    FAIL() << "no comparison took long enough";
}

TEST_F(InterruptedProgram, WritesNoFurtherOnceItIsInterrupted) {
    makeTables(100000);
    const std::vector<std::string> arguments{"table", "a.csv"};
    const std::string whole = start(arguments, ProcessSettings::Stream::pipe)->finish().output;
    // The program waits for the full pipe to be read, which happens only after the interrupt.
    const auto process = start(arguments, ProcessSettings::Stream::pipe);
    ASSERT_TRUE(process->waitForOutput("{\"headers\":"));
    process->send(SIGINT);
    const ProcessResult result = process->finish();
    EXPECT_EQ(result.status, 130);
    EXPECT_EQ(result.error, "");
    EXPECT_LT(result.output.size(), whole.size());
    EXPECT_EQ(result.output, whole.substr(0, result.output.size()));
}

}  // namespace
}  // namespace corvale::Cli
