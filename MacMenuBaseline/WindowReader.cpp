#include "MacMenuBaseline/WindowReader.h"

#include <QEvent>
#include <utility>

#include "MacMenuBaseline/MainThread.h"

namespace MacMenuBaseline {

QWidget* hostingWindow(const QWidget& view) {
    requireMainThread("hostingWindow");
    QWidget* top = view.window();
    return top->windowHandle() == nullptr ? nullptr : top;
}

Probe::Probe(QWidget* parent) : QWidget(parent) {
    requireMainThread("Probe");
    hide();
    followParents();
}

bool Probe::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::ParentChange) {
        followParents();
        report();
    }
    return handled;
}

bool Probe::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ParentChange) {
        followParents();
        report();
    } else if (event->type() == QEvent::Show) {
        report();
    }
    return false;
}

void Probe::followParents() {
    for (const QPointer<QWidget>& parent : std::as_const(m_parents)) {
        if (parent) {
            parent->removeEventFilter(this);
        }
    }
    m_parents.clear();
    for (QWidget* at = this; !at->isWindow();) {
        at = at->parentWidget();
        at->installEventFilter(this);
        m_parents.append(at);
    }
}

void Probe::report() {
    requireMainThread("Probe");
    QWidget* window = hostingWindow(*this);
    // Without a parent the probe is at the top itself, on its way from one view to another.
    if (window == nullptr || window == this || window == m_reported) {
        return;
    }
    m_reported = window;
    if (found) {
        found(*window);
    }
}

Probe& WindowReader::placeIn(QWidget& view) const {
    requireMainThread("WindowReader::placeIn");
    auto* probe = new Probe;
    probe->found = found;
    probe->setParent(&view);
    return *probe;
}

}  // namespace MacMenuBaseline
