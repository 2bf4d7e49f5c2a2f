#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <functional>
#include <vector>

#include "Corvale/model/AppSettings.h"
#include "CorvaleKit/engine/DiffFilter.h"

class QAction;
class QMenu;

namespace corvale {

class AppModel;
class MainWindow;

// The menus of the main window, and with them the keyboard shortcuts. An item is enabled exactly when it can act.
class MainMenus : public QObject {
    Q_OBJECT

public:
    // What items do that is not the model's.
    struct Actions {
        std::function<void()> showSettings;
        std::function<void()> showHelp;
        std::function<void()> showAbout;
        std::function<void()> checkForUpdates;  // none: the item is hidden
        std::function<bool()> canCheckForUpdates;
    };

    // Both outlive the menus.
    MainMenus(AppModel& model, MainWindow& window, Actions actions);

    void refresh();
    // What can be done in every window: close it, quit, get help. For those besides the main one to add.
    const QList<QAction*>& actionsEverywhere() const { return m_everywhere; }

private:
    struct Item {
        QAction* action;
        std::function<bool()> isEnabled;
        std::function<bool()> isChecked;
    };

    struct Command {
        QString text = {};
        QString keys = {};  // portable; on macOS, Qt takes Ctrl for ⌘
        std::function<void()> run = {};
        std::function<bool()> isEnabled = {};  // none: always
        std::function<bool()> isChecked = {};  // none: has no check mark
    };

    QAction* add(QMenu* menu, Command command);
    void addFile();
    void addEdit();
    void addCompare();
    // What the item does, and when it is checked, is added to the command.
    void addView(QMenu* menu, Command command, ViewMode view);
    void addShow(QMenu* menu, Command command, DiffFilter::Show show);
    void addHelp();

    AppModel& m_model;
    MainWindow& m_window;
    Actions m_actions;
    std::vector<Item> m_items;
    QList<QAction*> m_everywhere;
    QAction* m_details = nullptr;
};

}  // namespace corvale
