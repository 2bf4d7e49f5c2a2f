#pragma once

#include <QList>
#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QKeySequence;
class QMenu;
class QString;

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

    QAction* add(QMenu* menu, const QString& text, const QKeySequence& shortcut, std::function<void()> run,
                 std::function<bool()> isEnabled = {}, std::function<bool()> isChecked = {});
    void addFile();
    void addEdit();
    void addCompare();
    void addViews(QMenu* menu);
    void addHelp();

    AppModel& m_model;
    MainWindow& m_window;
    Actions m_actions;
    std::vector<Item> m_items;
    QList<QAction*> m_everywhere;
    QAction* m_details = nullptr;
};

}  // namespace corvale
