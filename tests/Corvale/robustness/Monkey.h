#pragma once

#include <QEventLoop>
#include <QObject>
#include <QSettings>
#include <QTimer>
#include <cstddef>
#include <deque>
#include <memory>
#include <random>
#include <string>

#include "Corvale/commands/CorvaleApp.h"
#include "tests/Corvale/platform/BusyQtPlatform.h"
#include "tests/Corvale/robustness/Hands.h"
#include "tests/Corvale/robustness/Pantry.h"
#include "tests/Corvale/robustness/Watchdog.h"

namespace corvale::TestSupport {

// Somebody who presses everything, everywhere and too quickly, while files change under the application's hands; and
// who looks now and then whether all is still as it should be. The same seed does the same, but for what background
// work and the clock make of it.
class Monkey {
public:
    explicit Monkey(unsigned seed);
    ~Monkey();
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    // That many actions, one a turn of the event loop; stops at the first failure and says what led to it.
    void work(int actions);
    // Sees to it that there was something to look at. After a thousand actions at least.
    void expectVariety() const;

private:
    // What came of it.
    struct Tally {
        int looks = 0;
        int results = 0;
        int selections = 0;
        int reports = 0;
        int problems = 0;
        int starts = 0;
        int popups = 0;
        int addresses = 0;  // asked to be opened, by a browser or a mail program
        int nested = 0;     // actions within an event loop of a drag
    };

    std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    bool chance(std::size_t one) { return below(one) == 0; }

    void startApplication();
    void next();
    void act();
    std::string anyAction();
    void note(const std::string& action);
    void prepareAnswers();
    void giveFocus();

    std::string pickItem();
    std::string callModel();
    std::string resize();
    std::string switchDesktop();
    std::string alterWindows();
    std::string closePopup();
    std::string showUpdateAlert();

    void look();
    void closeEverything();
    void expectFewWidgets() const;

    std::mt19937 m_random;
    Pantry m_pantry;
    Hands m_hands;
    CorvaleApp::Environment m_environment;
    QSettings m_store;
    BusyQtPlatform m_platform;
    std::unique_ptr<CorvaleApp> m_app;
    QObject m_receiver;
    QTimer m_turn;  // for the next action
    QEventLoop* m_loop = nullptr;
    int m_left = 0;
    int m_depth = 0;  // of event loops within actions
    std::deque<std::string> m_log;
    Tally m_tally;
    Watchdog m_watchdog;
};

}  // namespace corvale::TestSupport
