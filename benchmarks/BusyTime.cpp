// busy-time BEFORE AFTER: works the application's model on a pair of files, and prints for each thing that a user does
// the longest time that the main thread was busy in one go, in milliseconds, and how long it took until nothing was
// left to do, in seconds, then the number of rows listed. Wall clock, for that is what the user feels.

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/platform/WatchedPlatform.h"

namespace corvale::benchmarks {

namespace {

using Clock = std::chrono::steady_clock;

double seconds(Clock::duration time) { return std::chrono::duration<double>(time).count(); }

// The longest stretch between two waits of the event loop, whatever was done in it.
class Stretches {
public:
    explicit Stretches(QAbstractEventDispatcher& dispatcher) {
        QObject::connect(&dispatcher, &QAbstractEventDispatcher::awake, &dispatcher, [this] { begin(); });
        QObject::connect(&dispatcher, &QAbstractEventDispatcher::aboutToBlock, &dispatcher, [this] { end(); });
    }

    void reset() { m_longest = {}; }
    Clock::duration longest() const { return m_longest; }

private:
    // The loop says it once a round, and waits only when nothing more has come.
    void begin() {
        if (!m_begun) {
            m_begun = Clock::now();
        }
    }
    void end() {
        if (m_begun) {
            m_longest = std::max(m_longest, Clock::now() - *m_begun);
            m_begun.reset();
        }
    }

    std::optional<Clock::time_point> m_begun;
    Clock::duration m_longest{};
};

class BusyTime {
public:
    BusyTime(QUrl before, QUrl after) : m_before(std::move(before)), m_after(std::move(after)) {}

    void run() {
        const auto open = [this] { m_model.open({m_before, m_after}, Side::before); };
        measure("open two files", open);
        measure("open them again", open);
        measure("compare again", [this] { m_model.compareAgain(); });
        measure("swap", [this] { m_model.swap(); });
        measure("match by row order", [this] { m_model.setMatch(MatchChoice::rowOrder()); });
        measure("list all rows", [this] { list(DiffFilter::Show::all, ""); });
        measure("search", [this] { list(DiffFilter::Show::all, "zürich"); });
        measure("select a row", [this] { m_model.selectPrevious(); });
        measure("close one file", [this] { m_model.close(Side::after); });
        measure("close the other", [this] { m_model.close(Side::before); });
    }

private:
    void list(DiffFilter::Show show, const char* search) {
        DiffFilter filter;
        filter.show = show;
        filter.search = search;
        m_model.setFilter(filter);
    }

    void measure(const char* what, std::function<void()> act) {
        m_stretches.reset();
        const Clock::time_point start = Clock::now();
        // From within the event loop, as a click does it.
        m_platform.runOnMain(std::move(act));
        m_platform.settle();
        const double took = seconds(Clock::now() - start);
        if (m_model.problem()) {
            std::cerr << m_model.problem()->toStdString() << '\n';
            std::exit(EXIT_FAILURE);
        }
        std::cout << what << ": " << seconds(m_stretches.longest()) * 1000 << ' ' << took << ' '
                  << m_model.visible().size() << '\n';
    }

    QUrl m_before;
    QUrl m_after;
    QTemporaryDir m_folder;
    Stretches m_stretches{*QAbstractEventDispatcher::instance()};
    TestSupport::WatchedPlatform m_platform{
        std::make_unique<QSettings>(m_folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat)};
    AppModel m_model{m_platform};
};

}  // namespace
}  // namespace corvale::benchmarks

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: busy-time BEFORE AFTER\n";
        return EXIT_FAILURE;
    }
    // The other event loop does not tell when it waits.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    const auto url = [argv](int place) { return QUrl::fromLocalFile(QString::fromLocal8Bit(argv[place])); };
    corvale::benchmarks::BusyTime(url(1), url(2)).run();
    return EXIT_SUCCESS;
}
