#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <memory>
#include <random>
#include <thread>

#include "cli/Interrupt.h"
#include "tests/cli/Program.h"
#include "tests/support/ScratchFolder.h"

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

// Two tables that have nothing in common, so that lining up their rows takes its time.
class InterruptedComparison : public testing::Test {
protected:
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
    std::unique_ptr<Process> start(ProcessSettings settings) const {
        settings.folder = m_folder.path();
        return std::make_unique<Process>(TestFiles::program("corvale-cli"),
                                         std::vector<std::string>{"compare", "a.csv", "b.csv", "--row-order"},
                                         settings);
    }

    ScratchFolder m_folder;
};

TEST_F(InterruptedComparison, EndsWithStatus130AndWithoutATrace) {
    ProcessSettings settings;
    settings.error = ProcessSettings::Stream::terminal;
    settings.environment = {{"TERM", "xterm"}};
    // The faster the machine, the more rows it takes until there is progress to show.
    for (int rows = 200000; rows <= 4000000; rows *= 2) {
        makeTables(rows);
        const auto process = start(settings);
        if (!process->waitForError("Comparing…")) {
            continue;
        }
        process->send(SIGINT);
        const auto sent = std::chrono::steady_clock::now();
        const ProcessResult result = process->finish();
        EXPECT_EQ(result.status, 130);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error.substr(result.error.rfind('\r')), "\r\x1b[K");
        // It takes a few milliseconds; the bound leaves room for sanitizers and busy machines.
        EXPECT_LT(std::chrono::steady_clock::now() - sent, std::chrono::seconds(5));
        return;
    }
    FAIL() << "no comparison took long enough";
}

TEST_F(InterruptedComparison, EndsWithStatus130InAnyPhase) {
    makeTables(200000);
    for (const int milliseconds : {20, 60, 100, 150}) {
        const auto process = start({});
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        process->send(SIGINT);
        const ProcessResult result = process->finish();
        // A fast machine may have been done before, a slow one may not have come to its own handling of signals.
        EXPECT_TRUE(result.status == 130 || result.status == 1 || result.signal == SIGINT) << milliseconds;
        EXPECT_EQ(result.output.empty(), result.status != 1);
        EXPECT_EQ(result.error, "");
    }
}

}  // namespace
}  // namespace corvale::Cli
