#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace MacMenuBaseline {

// Asks the application before a window closes. It receives the close command, and once it knows the main window, every
// other way of closing that one too: its close button, the window manager, QWidget::close, the end of the session.
// Lives on the main thread.
class CloseGuard : public QObject {
public:
    explicit CloseGuard(QObject* parent = nullptr);

    // Whether this window, the main one or another, may close now; called on the main thread, once for each attempt. It
    // may show a dialog: attempts made meanwhile are refused without asking again. By default, and when empty, every
    // window may close.
    std::function<bool(const QWidget& window)> shouldClose;

    // The main window, null when none was set or it is gone. Not owned.
    QWidget* main() const;
    void setMain(QWidget* window);

    // The close command: closes the window of `sender`, or the main window when the sender is in none, after asking.
    // Does nothing when there is neither. A sender is a widget, an action of a widget, or an object owned by a widget;
    // for one in a menu it is the window that the menu belongs to.
    void close(const QObject* sender);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool mayClose(const QWidget& window);

    QPointer<QWidget> m_main;
    QPointer<QWidget> m_allowed;  // is being closed after a yes
    bool m_asking = false;
};

}  // namespace MacMenuBaseline
