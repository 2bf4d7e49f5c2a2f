// window-memory BEFORE AFTER [ROUNDS]: has the whole application, its window included, open a pair of files, compare,
// list all rows, search, show row details, export both reports and close both files, ROUNDS times over. Prints after
// each step of the first and of the last round, and after closing in each, the bytes of the heap in use and the
// process's resident memory, first without the files that it maps, in MB; at the end the peak. What a round leaves
// behind shows as growth from one "closed" to the next.

#include <malloc.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <utility>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/style/Theme.h"
#include "tests/Corvale/platform/WatchedPlatform.h"

namespace corvale::benchmarks {

namespace {

// Saves where it is told, without asking.
class SavingPlatform : public TestSupport::WatchedPlatform {
public:
    SavingPlatform(std::unique_ptr<QSettings> settings, QString folder)
        : WatchedPlatform(std::move(settings)), m_folder(std::move(folder)) {}

    void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) override {
        whenChosen(QUrl::fromLocalFile(m_folder + u'/' + panel.defaultName));
    }

private:
    QString m_folder;
};

// A line of /proc/self/status such as VmRSS, in MB.
double statusMegabytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == name + ":") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1000;
        }
    }
    return 0;
}

double heapMegabytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

class WindowMemory {
public:
    WindowMemory(QUrl before, QUrl after) : m_before(std::move(before)), m_after(std::move(after)) {
        m_app.start({});
        m_app.window().resize(1400, 900);
        print("started");
    }

    void run(int rounds) {
        for (m_round = 1; m_round <= rounds; ++m_round) {
            m_isTold = m_round == 1 || m_round == rounds;
            runOnce();
        }
        std::cout << "peak " << statusMegabytes("VmHWM") << '\n';
    }

private:
    void runOnce() {
        AppModel& model = m_app.model();
        step("compared", [&] { model.open({m_before, m_after}, Side::before); });
        step("all rows", [&] { list(DiffFilter::Show::all, ""); });
        step("searched", [&] { list(DiffFilter::Show::all, "zürich"); });
        step("details", [&] {
            list(DiffFilter::Show::changes, "");
            model.select(0);
        });
        step("side by side", [&] { setView(ViewMode::sideBySide); });
        step("HTML report", [&] { model.exportReport(ReportKind::html); });
        step("Excel report", [&] { model.exportReport(ReportKind::excel); });
        step("unified", [&] { setView(ViewMode::unified); });
        m_isTold = true;
        step("closed", [&] {
            model.close(Side::after);
            model.close(Side::before);
        });
    }

    void list(DiffFilter::Show show, const char* search) {
        DiffFilter filter;
        filter.show = show;
        filter.search = search;
        m_app.model().setFilter(filter);
    }

    void setView(ViewMode view) {
        AppSettings settings = m_app.model().settings();
        settings.view = view;
        m_app.model().setSettings(settings);
    }

    void step(const char* name, const std::function<void()>& act) {
        act();
        m_platform.settle();
        m_app.window().grab();
        QApplication::processEvents();
        if (m_app.model().problem()) {
            std::cerr << m_app.model().problem()->toStdString() << '\n';
            std::exit(EXIT_FAILURE);
        }
        if (m_isTold) {
            print(name);
        }
    }

    void print(const char* name) const {
        std::cout << std::setw(4) << m_round << "  " << std::left << std::setw(14) << name << std::right << std::fixed
                  << std::setprecision(1) << "heap " << std::setw(8) << heapMegabytes() << "  anonymous "
                  << std::setw(8) << statusMegabytes("RssAnon") << "  resident " << std::setw(8)
                  << statusMegabytes("VmRSS") << std::endl;
    }

    static QString iniFile(const QTemporaryDir& folder) { return folder.filePath(QStringLiteral("settings.ini")); }

    QUrl m_before;
    QUrl m_after;
    QTemporaryDir m_folder;
    SavingPlatform m_platform{std::make_unique<QSettings>(iniFile(m_folder), QSettings::IniFormat), m_folder.path()};
    Theme m_theme{*qApp};
    QSettings m_store{iniFile(m_folder), QSettings::IniFormat};
    CorvaleApp m_app{m_platform, m_theme, m_store};
    int m_round = 0;
    bool m_isTold = true;
};

}  // namespace
}  // namespace corvale::benchmarks

int main(int argc, char** argv) {
    if (argc < 3 || argc > 4) {
        std::cerr << "usage: window-memory BEFORE AFTER [ROUNDS]\n";
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const auto url = [argv](int place) { return QUrl::fromLocalFile(QString::fromLocal8Bit(argv[place])); };
    corvale::benchmarks::WindowMemory(url(1), url(2)).run(argc == 4 ? std::atoi(argv[3]) : 1);
    return EXIT_SUCCESS;
}
