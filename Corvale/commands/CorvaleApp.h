#pragma once

#include <QStringList>
#include <QUrl>

#include "Corvale/commands/AboutPanel.h"
#include "Corvale/commands/AddressOpener.h"
#include "Corvale/commands/AppDelegate.h"
#include "Corvale/commands/HelpView.h"
#include "Corvale/commands/MainMenus.h"
#include "Corvale/commands/SettingsView.h"
#include "Corvale/commands/UpdateAlerts.h"
#include "Corvale/commands/WelcomeView.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/updates/FeedUpdaterController.h"
#include "Corvale/updates/Updater.h"
#include "Corvale/window/MainWindow.h"

class QSettings;

namespace corvale {

class Platform;
class Theme;

// The application put together: its window, menus and further windows over one model. On the main thread.
class CorvaleApp {
public:
    // What is outside of the program.
    struct Environment {
        QUrl updateEndpoint;  // it or the feed empty: no update checks
        QUrl updateFeed;
        AddressOpener opener;

        // As whoever ships this build has set it.
        static Environment ofVendor();
    };

    // All outlive the application. The store keeps what the update checks have to remember.
    CorvaleApp(Platform& platform, Theme& theme, QSettings& store,
               const Environment& environment = Environment::ofVendor());
    CorvaleApp(const CorvaleApp&) = delete;
    CorvaleApp& operator=(const CorvaleApp&) = delete;

    // Shows the window, opens the files that the arguments name, and begins to look for updates where there is
    // somewhere to look, but not while a newcomer is being welcomed.
    void start(const QStringList& files);

    MainWindow& window() { return m_window; }
    AppModel& model() { return m_model; }

private:
    MainMenus::Actions actions();
    void startUpdater();
    void writeToSupport();

    AddressOpener m_opener;
    bool m_canUpdate;
    AppModel m_model;
    MainWindow m_window;
    HelpView* m_help;
    SettingsView* m_settings;
    AboutPanel* m_about;
    WelcomeView* m_welcome;
    UpdateAlerts m_alerts;
    FeedUpdaterController m_controller;
    Updater m_updater;
    AppDelegate m_delegate;
    MainMenus* m_menus;
};

}  // namespace corvale
