#include "Corvale/window/WindowTracker.h"

#include <QResizeEvent>
#include <utility>

#include "MacMenuBaseline/WindowReader.h"

namespace corvale {

WindowTracker::WindowTracker(QWidget& view, std::function<void(QWidget&)> onWindow,
                             std::function<void(const QSize&)> onResize)
    : QObject(&view), m_onWindow(std::move(onWindow)), m_onResize(std::move(onResize)) {
    // The view owns the probe, which may thus outlive the tracker.
    const MacMenuBaseline::WindowReader reader{[self = QPointer(this)](QWidget& window) {
        if (self) {
            self->follow(window);
        }
    }};
    reader.placeIn(view);
}

void WindowTracker::follow(QWidget& window) {
    if (m_seen) {
        m_seen->removeEventFilter(this);
    }
    m_seen = &window;
    window.installEventFilter(this);
    if (m_onWindow) {
        m_onWindow(window);
    }
}

bool WindowTracker::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize && m_onResize) {
        m_onResize(static_cast<const QResizeEvent*>(event)->size());
    }
    return false;
}

}  // namespace corvale
