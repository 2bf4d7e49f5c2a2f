#include "MacMenuBaseline/CloseGuard.h"

#include <QAction>
#include <QEvent>
#include <QScopedValueRollback>

#include "MacMenuBaseline/MainThread.h"
#include "MacMenuBaseline/WindowReader.h"

namespace MacMenuBaseline {

namespace {

// A menu may never have been on the screen when the shortcut of one of its items is pressed.
QWidget* windowOf(const QWidget& widget) {
    const QWidget* top = widget.window();
    while (top->windowType() == Qt::Popup && top->parentWidget() != nullptr) {
        top = top->parentWidget()->window();
    }
    return top->windowType() == Qt::Popup ? nullptr : hostingWindow(*top);
}

QWidget* windowOf(const QObject* sender) {
    if (const auto* action = qobject_cast<const QAction*>(sender)) {
        for (const QObject* place : action->associatedObjects()) {
            if (QWidget* window = windowOf(place)) {
                return window;
            }
        }
    }
    for (; sender != nullptr; sender = sender->parent()) {
        if (const auto* widget = qobject_cast<const QWidget*>(sender)) {
            return windowOf(*widget);
        }
    }
    return nullptr;
}

}  // namespace

CloseGuard::CloseGuard(QObject* parent) : QObject(parent), shouldClose([](const QWidget&) { return true; }) {
    requireMainThread("CloseGuard");
}

QWidget* CloseGuard::main() const {
    requireMainThread("CloseGuard::main");
    return m_main;
}

void CloseGuard::setMain(QWidget* window) {
    requireMainThread("CloseGuard::setMain");
    if (m_main) {
        m_main->removeEventFilter(this);
    }
    m_main = window;
    if (m_main) {
        m_main->installEventFilter(this);
    }
}

void CloseGuard::close(const QObject* sender) {
    requireMainThread("CloseGuard::close");
    QPointer<QWidget> window = windowOf(sender);
    if (!window) {
        window = m_main;
    }
    // The question may have run an event loop in which the window went away.
    if (!window || !mayClose(*window) || !window) {
        return;
    }
    const QScopedValueRollback allowed(m_allowed, window);
    window->close();
}

bool CloseGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Close || watched != m_main || watched == m_allowed || mayClose(*m_main)) {
        return false;
    }
    event->ignore();
    return true;
}

bool CloseGuard::mayClose(const QWidget& window) {
    requireMainThread("CloseGuard");
    if (m_asking) {
        return false;
    }
    const QScopedValueRollback asking(m_asking, true);
    return !shouldClose || shouldClose(window);
}

}  // namespace MacMenuBaseline
