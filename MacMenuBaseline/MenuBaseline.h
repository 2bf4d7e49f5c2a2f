#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <functional>
#include <optional>

class QAction;
class QMenu;

namespace MacMenuBaseline {

class CloseGuard;

// What "Close Window" does.
struct CloseWindowAction {
    // Closes the current window; called on the main thread.
    std::function<void()> run;

    // The action that gives `guard`, which must outlive it, the close command for the window that has the keyboard.
    static CloseWindowAction through(CloseGuard& guard);
};

// The help item of an application.
struct MenuHelp {
    QString appName;
    QKeySequence shortcut;         // F1 opens the help besides
    std::function<void()> action;  // opens the help; called on the main thread
};

// The items that an application of one main window has in its menus.
struct MenuBaseline {
    CloseWindowAction close;
    std::optional<MenuHelp> help;
    QList<QAction*> helpItems;  // follow the help item, separators among them; not owned

    // Appends "Close Window" (Ctrl+W, and what else the desktop closes windows with) to `menu`, which owns it. Add the
    // returned action to other windows with QWidget::addAction, and the shortcut closes them too.
    QAction* addCloseTo(QMenu& menu) const;

    // Appends the help item, if there is one, and `helpItems` to `menu`, which owns the former. Returns that one, or
    // null; add it to other windows as well.
    QAction* addHelpTo(QMenu& menu) const;
};

}  // namespace MacMenuBaseline
