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

// `first` is the one that the menu shows.
QList<QKeySequence> startingWith(const QKeySequence& first, QList<QKeySequence> others) {
    others.removeAll(first);
    others.prepend(first);
    return others;
}

// Not every desktop's own list begins with Ctrl+W.
QList<QKeySequence> closeShortcuts() {
    return startingWith(QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence::keyBindings(QKeySequence::Close));
}

// F1 helps wherever it is a key, also where the desktop shows another one.
QList<QKeySequence> helpShortcuts(const QKeySequence& shown) { return startingWith(shown, {QKeySequence(Qt::Key_F1)}); }

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

QAction* MenuBaseline::addHelpTo(QMenu& menu) const {
    requireMainThread("MenuBaseline::addHelpTo");
    QAction* action = nullptr;
    if (help) {
        const QString text = translated(QT_TRANSLATE_NOOP("MacMenuBaseline", "%1 Help"));
        action = addItem(menu, text.arg(withoutMnemonic(help->appName)), help->action);
        action->setShortcuts(helpShortcuts(help->shortcut));
    }
    menu.addActions(helpItems);
    return action;
}

}  // namespace MacMenuBaseline
