#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QApplication>
#include <QSettings>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <set>
#include <string>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/style/Theme.h"
#include "tests/Corvale/platform/BusyQtPlatform.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::BusyQtPlatform;
using TestSupport::ScratchFolder;

constexpr bool isSanitized =
#if defined(__SANITIZE_ADDRESS__)
    true;
#else
    false;
#endif

// This process may take that much more address space than it has.
void limitMemory(std::uint64_t further) {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const std::uint64_t used = pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    const rlimit limit{used + further, RLIM_INFINITY};
    ::setrlimit(RLIMIT_AS, &limit);
}

void liftLimit() {
    const rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_AS, &limit);
}

QUrl urlOf(const std::string& path) { return QUrl::fromLocalFile(QString::fromStdString(path)); }

std::string list(int rows, int step) {
    std::string csv = "ID,Name,Price,Note\n";
    for (int row = 0; row < rows; ++row) {
        csv += std::to_string(row) + ",item " + std::to_string(row % 1000) + "," + std::to_string(row % step) +
               ".50,a note of some length\n";
    }
    return csv;
}

// The window in its own process, with a pair too large for what memory it may take.
class ShortOfMemory {
public:
    explicit ShortOfMemory(const ScratchFolder& folder)
        : m_folder(folder),
          m_store(QString::fromStdString(folder.at("store.ini")), QSettings::IniFormat),
          m_platform(
              std::make_unique<QSettings>(QString::fromStdString(folder.at("settings.ini")), QSettings::IniFormat)),
          m_theme(*qApp),
          m_app(m_platform, m_theme, m_store) {
        m_app.start({});
        AppSettings settings = m_app.model().settings();
        settings.onboardingDone = true;
        m_app.model().setSettings(settings);
        settle();
    }

    // "compared", or what the user was told, or what is wrong. A report is written too.
    std::string tryLargePair(std::uint64_t memory) {
        open("large-a.csv", "large-b.csv", memory);
        if (m_app.model().result()) {
            m_platform.answers.target = urlOf(m_folder.at("r.xlsx"));
            limitMemory(memory / 8);
            m_app.model().exportReport(ReportKind::excel);
            settle();
            liftLimit();
        }
        const std::string told = m_app.model().problem().value_or(QString()).toStdString();
        m_app.model().dismissProblem();
        open("small-a.csv", "small-b.csv", 1U << 30U);
        const bool lives = m_app.model().result() && !m_app.model().problem() &&
                           m_app.model().result()->summary.changed == 1 && m_app.model().loading().empty();
        if (!lives) {
            return "dead after: " + told;
        }
        return told.empty() ? "compared" : told;
    }

private:
    void settle() {
        QApplication::processEvents();
        m_platform.settle();
        QApplication::processEvents();
    }

    void open(const char* before, const char* after, std::uint64_t memory) {
        m_app.model().close(Side::before);
        m_app.model().close(Side::after);
        settle();
        limitMemory(memory);
        m_app.model().open({urlOf(m_folder.at(before)), urlOf(m_folder.at(after))}, Side::before);
        settle();
        liftLimit();
    }

    const ScratchFolder& m_folder;
    QSettings m_store;
    BusyQtPlatform m_platform;
    Theme m_theme;
    CorvaleApp m_app;
};

const std::set<std::string> sentences = {"compared",
                                         "There isn’t enough memory to open this file.",
                                         "There isn’t enough memory to compare these files.",
                                         "The report couldn’t be saved: There isn’t enough memory."};

// In steps, so that memory runs out while files are read, tables built, keys suggested, rows compared and reports
// written.
[[noreturn]] void goThroughLimits(const ScratchFolder& folder) {
    ShortOfMemory window(folder);
    std::set<std::string> told;
    for (std::uint64_t megabytes = 1; megabytes <= 160; megabytes += megabytes < 40 ? 1 : 10) {
        const std::string outcome = window.tryLargePair(megabytes << 20U);
        if (!sentences.contains(outcome)) {
            std::cerr << megabytes << " MB: " << outcome << std::endl;
            std::_Exit(1);
        }
        told.insert(outcome);
    }
    for (const std::string& outcome : told) {
        std::cerr << outcome << "\n";
    }
    std::_Exit(told.size() < 3 ? 2 : 0);
}

TEST(OutOfMemoryWindowDeathTest, SaysSoAndLivesOn) {
    if (isSanitized) {
        GTEST_SKIP() << "a sanitizer takes more address space than any limit leaves";
    }
    const ScratchFolder folder;
    folder.write("large-a.csv", list(100'000, 90));
    folder.write("large-b.csv", list(100'000, 91));
    folder.write("small-a.csv", "ID,Name\n1,Pen\n2,Cup\n");
    folder.write("small-b.csv", "ID,Name\n1,Pen\n2,Cap\n");
    EXPECT_EXIT(goThroughLimits(folder), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace corvale
