#include "tests/Corvale/robustness/Monkey.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <array>
#include <iostream>

#include "Corvale/commands/UpdateAlerts.h"
#include "tests/Corvale/robustness/Looks.h"
#include "tests/support-qt/TestTheme.h"

namespace corvale::TestSupport {

namespace {

constexpr std::chrono::seconds patience(120);
constexpr int actionsBetweenLooks = 25;
constexpr int looksBetweenTidying = 8;
constexpr std::size_t rememberedActions = 60;

// Twice what the application has with everything open that stays.
constexpr qsizetype mostWidgets = 1200;
constexpr qsizetype mostWindows = 60;

QString pathIn(const Pantry& pantry, std::string_view name) { return QString::fromStdString(pantry.folder().at(name)); }

void setDesktop(bool isDark) {
    QPalette palette;
    palette.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
    palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
    QApplication::setPalette(palette);
}

std::string openWindows() {
    std::string names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() || window->isModal()) {
            names += std::string("\n  ") + window->metaObject()->className() + " “" +
                     window->windowTitle().toStdString() + "”" + (window->isVisible() ? "" : " hidden") +
                     (window->isModal() ? " modal" : "") + (window->isMinimized() ? " minimised" : "");
        }
    }
    return names;
}

void expectGone(const QWidget* window) {
    EXPECT_EQ(window, nullptr) << window->metaObject()->className() << " is still open, among:" << openWindows();
}

}  // namespace

Monkey::Monkey(unsigned seed)
    : m_random(seed),
      m_pantry(m_random),
      m_hands(m_random),
      // Now a program takes the address, now there is none.
      m_environment{.updateEndpoint = {}, .updateFeed = {}, .opener = AddressOpener([this](const QUrl&) {
                                                                return ++m_tally.addresses % 2 == 0;
                                                            })},
      m_store(pathIn(m_pantry, "store.ini"), QSettings::IniFormat),
      m_platform(std::make_unique<QSettings>(pathIn(m_pantry, "settings.ini"), QSettings::IniFormat)),
      m_watchdog(patience) {
    m_turn.setSingleShot(true);
    QObject::connect(&m_turn, &QTimer::timeout, &m_receiver, [this] { next(); });
    // Closing the last window is not to end the tests.
    QApplication::setQuitOnLastWindowClosed(false);
    startApplication();
}

Monkey::~Monkey() {
    m_app.reset();
    setDesktop(false);
    QApplication::setLayoutDirection(Qt::LeftToRight);
    QApplication::setQuitOnLastWindowClosed(true);
}

void Monkey::startApplication() {
    m_app.reset();
    m_app = std::make_unique<CorvaleApp>(m_platform, theme(), m_store, m_environment);
    QObject::connect(&m_app->model(), &AppModel::exportingChanged, &m_receiver, [this] { ++m_tally.reports; });
    QObject::connect(&m_app->model(), &AppModel::problemChanged, &m_receiver, [this] { ++m_tally.problems; });
    QStringList files;
    for (std::size_t left = below(4); left > 0; --left) {
        files.append(m_pantry.anyFile().toLocalFile());
    }
    ++m_tally.starts;
    m_app->start(files);
}

void Monkey::work(int actions) {
    m_left = actions;
    QEventLoop loop;
    m_loop = &loop;
    m_turn.start();
    loop.exec();
    m_loop = nullptr;
    if (!testing::Test::HasFailure()) {
        closeEverything();
        look();
    }
    if (testing::Test::HasFailure()) {
        std::cerr << "What led to it:\n";
        for (const std::string& action : m_log) {
            std::cerr << "  " << action << "\n";
        }
    }
}

// An action may run an event loop of its own, as a drag does; the next one then comes within it.
void Monkey::next() {
    const bool isOver = m_left <= 0 || testing::Test::HasFailure();
    if (isOver && m_depth == 0) {
        m_loop->quit();
        return;
    }
    m_turn.start();
    ++m_depth;
    isOver ? m_hands.letGo() : act();
    --m_depth;
    if (m_depth == 0 && !isOver && m_left % actionsBetweenLooks == 0) {
        // Looking turns the event loop, and what is looked at is to stay as it is meanwhile.
        m_turn.stop();
        look();
        m_turn.start();
    }
}

void Monkey::act() {
    --m_left;
    m_tally.nested += m_depth > 1 ? 1 : 0;
    m_watchdog.goesOn(m_log.empty() ? "the start" : m_log.back());
    prepareAnswers();
    giveFocus();
    if (m_depth > 1 && chance(4)) {
        m_hands.letGo();
        note("let go");
    } else if (!m_hands.goOn()) {
        note(anyAction());
    }
    m_tally.popups += QApplication::activePopupWidget() != nullptr ? 1 : 0;
}

// As a desktop does when the window that had the keys is gone.
void Monkey::giveFocus() {
    MainWindow& window = m_app->window();
    if (QGuiApplication::focusWindow() == nullptr && window.isVisible()) {
        QWidget* const modal = QApplication::activeModalWidget();
        (modal != nullptr ? modal : &window)->activateWindow();
    } else if (!window.isVisible() && chance(4)) {
        note("show the window again");
        window.show();
    }
}

void Monkey::note(const std::string& action) {
    if (qEnvironmentVariableIsSet("CORVALE_MONKEY_TRACE")) {
        std::cerr << m_left << " " << action << std::endl;
    }
    m_log.push_back(action);
    if (m_log.size() > rememberedActions) {
        m_log.pop_front();
    }
}

void Monkey::prepareAnswers() {
    m_platform.answers.files.clear();
    for (std::size_t left = below(4); left > 0; --left) {
        m_platform.answers.files.append(m_pantry.anyFile());
    }
    m_platform.answers.target = m_pantry.anyTarget();
}

std::string Monkey::anyAction() {
    const std::size_t choice = below(100);
    if (choice < 18) {
        return m_hands.press();
    }
    if (choice < 22) {
        return m_hands.type();
    }
    if (choice < 48) {
        return m_hands.click();
    }
    if (choice < 54) {
        return m_hands.turnWheel();
    }
    if (choice < 58) {
        return m_hands.hover();
    }
    if (choice < 61) {
        return m_hands.drag();
    }
    if (choice < 65) {
        return m_hands.lookClosely();
    }
    if (choice < 71) {
        QList<QUrl> files;
        for (std::size_t left = 1 + below(3); left > 0; --left) {
            files.append(m_pantry.anyFile());
        }
        return m_hands.drop(files);
    }
    if (choice < 79) {
        return pickItem();
    }
    if (choice < 85) {
        return callModel();
    }
    if (choice < 88) {
        return resize();
    }
    if (choice < 89) {
        return switchDesktop();
    }
    if (choice < 92) {
        return alterWindows();
    }
    if (choice < 95) {
        return closePopup();
    }
    return choice < 96 ? showUpdateAlert() : m_pantry.change();
}

std::string Monkey::pickItem() {
    QList<QAction*> items;
    for (const QAction* menu : m_app->window().menuBar()->actions()) {
        for (QAction* item : menu->menu()->actions()) {
            if (item->isEnabled() && !item->isSeparator()) {
                items.append(item);
            }
        }
    }
    QAction* const item = items[static_cast<qsizetype>(below(static_cast<std::size_t>(items.size())))];
    const std::string name = item->text().toStdString();
    item->trigger();
    return "pick " + name;
}

// What a user does by hand too, here in the very turn of the event loop in which something else is under way.
std::string Monkey::callModel() {
    AppModel& model = m_app->model();
    const Side side = chance(2) ? Side::before : Side::after;
    switch (below(9)) {
        case 0:
            model.swap();
            return "swap";
        case 1:
            model.compareAgain();
            return "compare again";
        case 2:
            model.cancel();
            return "cancel";
        case 3:
            model.close(side);
            return "close a file";
        case 4:
            model.load(m_pantry.anyFile(), side);
            return "load";
        case 5:
            model.exportReport(chance(2) ? ReportKind::excel : ReportKind::html);
            return "export";
        case 6:
            model.setSheet(static_cast<std::int64_t>(below(3)), side);
            return "sheet";
        case 7:
            model.openSamples();
            return "samples";
        default:
            model.setHeaderRow(static_cast<std::int64_t>(below(6)), side);
            return "header row";
    }
}

std::string Monkey::resize() {
    static constexpr std::array<QSize, 7> sizes = {QSize(1, 1),
                                                   QSize(760, 480),
                                                   QSize(900, 500),
                                                   QSize(1280, 800),
                                                   QSize(1920, 1080),
                                                   QSize(3000, 481),
                                                   QSize(761, 2400)};
    const QSize size = sizes[below(sizes.size())];
    const QWidgetList windows = QApplication::topLevelWidgets();
    QWidget* const window =
        chance(2) ? &m_app->window() : windows[static_cast<qsizetype>(below(static_cast<std::size_t>(windows.size())))];
    window->resize(size);
    return "resize " + std::string(window->metaObject()->className()) + " to " + std::to_string(size.width()) + " x " +
           std::to_string(size.height());
}

std::string Monkey::switchDesktop() {
    if (chance(4)) {
        const bool isLeftToRight = QApplication::layoutDirection() == Qt::LeftToRight;
        QApplication::setLayoutDirection(isLeftToRight ? Qt::RightToLeft : Qt::LeftToRight);
        return "turn the direction of writing";
    }
    const bool isDark = chance(2);
    setDesktop(isDark);
    return isDark ? "dark" : "light";
}

std::string Monkey::alterWindows() {
    MainWindow& window = m_app->window();
    switch (below(5)) {
        case 0:
            window.close();
            return "close the window";
        case 1:
            window.showMinimized();
            return "minimise";
        case 2:
            window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
            return "maximise or not";
        case 3:
            if (m_depth == 1) {
                startApplication();
                return "quit and start";
            }
            return "no start within a drag";
        default:
            window.showNormal();
            // The platform without a screen remembers no size.
            window.resize(window.size().expandedTo(window.minimumSize()));
            window.activateWindow();
            return "activate";
    }
}

std::string Monkey::closePopup() {
    QWidget* window = QApplication::activePopupWidget();
    window = window != nullptr ? window : QApplication::activeModalWidget();
    window = window != nullptr ? window : QApplication::activeWindow();
    if (window == nullptr || window == &m_app->window()) {
        return "nothing to close";
    }
    const std::string name = window->metaObject()->className();
    window->close();
    return "close " + name;
}

std::string Monkey::showUpdateAlert() {
    UpdateAlerts alerts(m_app->window(), m_environment.opener);
    alerts.tell(QStringLiteral("You’re up to date"), QStringLiteral("<b>Corvale</b> 1.0 is the newest version."));
    return "an alert about updates";
}

void Monkey::look() {
    m_watchdog.goesOn("looking after " + (m_log.empty() ? std::string("the start") : m_log.back()));
    QApplication::processEvents();
    m_platform.settle();
    QApplication::processEvents();
    m_platform.settle();
    ++m_tally.looks;
    m_tally.results += m_app->model().result() ? 1 : 0;
    m_tally.selections += m_app->model().selectedRow() ? 1 : 0;
    Looks::expectSoundModel(*m_app);
    Looks::expectWindowAsModel(*m_app);
    if (m_tally.looks % looksBetweenTidying == 0) {
        closeEverything();
        m_app->window().grab();
        expectFewWidgets();
    }
}

void Monkey::closeEverything() {
    // From the top: a window under a modal one is not to be closed.
    constexpr int mostOpen = 1000;
    for (int left = mostOpen; left > 0; --left) {
        QWidget* const popup = QApplication::activePopupWidget();
        if (popup != nullptr) {
            popup->hide();
        } else if (QWidget* const modal = QApplication::activeModalWidget()) {
            modal->close();
        } else {
            break;
        }
    }
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window != &m_app->window() && window->isVisible()) {
            window->close();
        }
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
    expectGone(QApplication::activePopupWidget());
    expectGone(QApplication::activeModalWidget());
}

void Monkey::expectFewWidgets() const {
    EXPECT_LT(QApplication::allWidgets().size(), mostWidgets);
    EXPECT_LT(QApplication::topLevelWidgets().size(), mostWindows);
}

void Monkey::expectVariety() const {
    EXPECT_GT(m_tally.looks, 20);
    EXPECT_GT(m_tally.results, 5);
    EXPECT_GT(m_tally.selections, 0);
    EXPECT_GT(m_tally.reports, 0);
    EXPECT_GT(m_tally.problems, 10);
    EXPECT_GT(m_tally.starts, 1);
    EXPECT_GT(m_tally.popups, 5);
    std::cout << "looks " << m_tally.looks << ", with a result " << m_tally.results << ", with a selection "
              << m_tally.selections << "; reports " << m_tally.reports / 2 << ", problems " << m_tally.problems
              << ", starts " << m_tally.starts << ", actions with a popup open " << m_tally.popups
              << ", within another event loop " << m_tally.nested << ", addresses opened " << m_tally.addresses << "\n";
}

}  // namespace corvale::TestSupport
