#include <gtest/gtest.h>
#include <malloc.h>

#include <QApplication>
#include <QSettings>
#include <QWidget>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Corvale/commands/CorvaleApp.h"
#include "tests/Corvale/platform/BusyQtPlatform.h"
#include "tests/support-qt/TestTheme.h"
#include "tests/support/MemoryLimit.h"
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

// So that what was used once counts as new when it is used again.
void giveMemoryBack() {
    constexpr int smallestMapped = 32 << 10;
    ::mallopt(M_ARENA_MAX, 1);
    ::mallopt(M_MMAP_THRESHOLD, smallestMapped);
    ::mallopt(M_TRIM_THRESHOLD, smallestMapped);
}

// Qt's painter goes on without the memory that it asked for, and nothing of ours can keep it from that.
void letWindowsPaint(bool may) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        window->setUpdatesEnabled(may);
    }
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
          m_app(m_platform, TestSupport::theme(), m_store) {
        m_app.start({});
        AppSettings settings = m_app.model().settings();
        settings.onboardingDone = true;
        m_app.model().setSettings(settings);
        settle();
    }

    // What the user was told, in the order of its coming, or what is wrong.
    std::vector<std::string> tryLargePair(std::uint64_t memory) {
        m_told.clear();
        open("large-a.csv", "large-b.csv", 1U << 30U);
        AppModel& model = m_app.model();
        within(memory, [&] { model.compareAgain(); });
        within(memory, [&] { model.setMatch(MatchChoice::rowOrder()); });
        within(memory, [&] { model.setMatch(MatchChoice::key("ID")); });
        within(memory, [&] { model.setFilter({DiffFilter::Show::all, std::nullopt, "item"}); });
        m_platform.answers.target = urlOf(m_folder.at("r.xlsx"));
        within(memory, [&] { model.exportReport(ReportKind::excel); });
        model.setFilter({});
        open("small-a.csv", "small-b.csv", 1U << 30U);
        const bool lives = model.result() && !model.problem() && model.result()->summary.changed == 1;
        if (!lives) {
            m_told.emplace_back("it no longer works");
        }
        return m_told;
    }

private:
    void settle() {
        QApplication::processEvents();
        m_platform.settle();
        QApplication::processEvents();
    }

    void within(std::uint64_t memory, const std::function<void()>& work) {
        letWindowsPaint(false);
        ::malloc_trim(0);
        MemoryLimit::allowFurther(memory);
        work();
        settle();
        MemoryLimit::lift();
        letWindowsPaint(true);
        settle();
        if (const auto problem = m_app.model().problem()) {
            m_told.push_back(problem->toStdString());
            m_app.model().dismissProblem();
        }
    }

    void open(const char* before, const char* after, std::uint64_t memory) {
        m_app.model().close(Side::before);
        m_app.model().close(Side::after);
        within(memory, [&] {
            m_app.model().open({urlOf(m_folder.at(before)), urlOf(m_folder.at(after))}, Side::before);
        });
    }

    const ScratchFolder& m_folder;
    std::vector<std::string> m_told;
    QSettings m_store;
    BusyQtPlatform m_platform;
    CorvaleApp m_app;
};

const std::set<std::string> sentences = {"There isn’t enough memory to open this file.",
                                         "There isn’t enough memory to compare these files.",
                                         "The report couldn’t be saved: There isn’t enough memory."};

// In steps, so that memory runs out while files are read, tables built, keys suggested, rows compared and filtered and
// reports written. Ends well when each was told at one limit or another, and nothing else.
[[noreturn]] void goThroughLimits(const ScratchFolder& folder) {
    giveMemoryBack();
    ShortOfMemory window(folder);
    std::set<std::string> told;
    for (std::uint64_t quarters = 4; quarters < 40; quarters += 2) {
        for (const std::string& sentence : window.tryLargePair(quarters << 18U)) {
            told.insert(sentence);
            std::cerr << static_cast<double>(quarters) / 4 << " MB: " << sentence << std::endl;
        }
    }
    std::_Exit(told == sentences ? 0 : 1);
}

TEST(OutOfMemoryWindowDeathTest, SaysSoAndLivesOn) {
    if (isSanitized) {
        GTEST_SKIP() << "a sanitizer takes more address space than any limit leaves";
    }
    const ScratchFolder folder;
    folder.write("large-a.csv", list(10'000, 90));
    folder.write("large-b.csv", list(10'000, 91));
    folder.write("small-a.csv", "ID,Name\n1,Pen\n2,Cup\n");
    folder.write("small-b.csv", "ID,Name\n1,Pen\n2,Cap\n");
    EXPECT_EXIT(goThroughLimits(folder), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace corvale
