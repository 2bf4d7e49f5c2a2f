#pragma once

#include <QObject>
#include <QPointer>
#include <QSize>
#include <QWidget>
#include <functional>

namespace corvale {

// Tells a view of the window that it is in, and follows the size of that window. Lives on the main thread.
class WindowTracker : public QObject {
public:
    // Belongs to `view`. The callbacks may be empty. Tells of a window that the view already is in before this returns.
    WindowTracker(QWidget& view, std::function<void(QWidget&)> onWindow, std::function<void(const QSize&)> onResize);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void follow(QWidget& window);

    std::function<void(QWidget&)> m_onWindow;      // once for each window that the view is moved into
    std::function<void(const QSize&)> m_onResize;  // for each resize of that window, with the new size
    QPointer<QWidget> m_seen;                      // the window being followed
};

}  // namespace corvale
