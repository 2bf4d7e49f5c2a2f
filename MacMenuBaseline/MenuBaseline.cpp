#include "MacMenuBaseline/MenuBaseline.h"

#include <QApplication>
#include <QMenu>

#include "MacMenuBaseline/CloseGuard.h"
#include "MacMenuBaseline/MainThread.h"

namespace MacMenuBaseline {

namespace {

QString translated(const char* text) { return QCoreApplication::translate("MacMenuBaseline", text); }

QAction* addItem(QMenu& menu, const QString& text, const std::function<void()>& run) {
    QAction* action = menu.addAction(text);
    QObject::connect(action, &QAction::triggered, &menu, [run] {
        if (run) {
            run();
        }
    });
    return action;
}

// An ampersand in a menu's text marks its mnemonic unless it is doubled.
QString withoutMnemonic(QString name) { return name.replace(u'&', QStringLiteral("&&")); }

// Not every desktop's own list begins with Ctrl+W, and the first is the one that the menu shows.
QList<QKeySequence> closeShortcuts() {
    const QKeySequence usual(Qt::CTRL | Qt::Key_W);
    QList<QKeySequence> shortcuts = QKeySequence::keyBindings(QKeySequence::Close);
    shortcuts.removeAll(usual);
    shortcuts.prepend(usual);
    return shortcuts;
}

}  // namespace

CloseWindowAction CloseWindowAction::through(CloseGuard& guard) {
    return {[&guard] { guard.close(QApplication::activeWindow()); }};
}

QAction* MenuBaseline::addCloseTo(QMenu& menu) const {
    requireMainThread("MenuBaseline::addCloseTo");
    QAction* action = addItem(menu, translated(QT_TRANSLATE_NOOP("MacMenuBaseline", "Close Window")), close.run);
    action->setShortcuts(closeShortcuts());
    return action;
}

void MenuBaseline::addHelpTo(QMenu& menu) const {
    requireMainThread("MenuBaseline::addHelpTo");
    if (help) {
        const QString text = translated(QT_TRANSLATE_NOOP("MacMenuBaseline", "%1 Help"));
        addItem(menu, text.arg(withoutMnemonic(help->appName)), help->action)->setShortcut(help->shortcut);
    }
    menu.addActions(helpItems);
}

}  // namespace MacMenuBaseline
