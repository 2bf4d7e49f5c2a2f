#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>
#include <functional>

namespace MacMenuBaseline {

// The window that holds `view`: the top of its parents, from the moment that it has a window of the platform (when it
// is first shown). Null before, so that a widget still waiting for its parent is not taken for a window.
QWidget* hostingWindow(const QWidget& view);

// An invisible child of a view that tells in which window the view is: once for each window that it is moved into,
// whichever of its parents is moved, and whether or not the view itself is shown. Lives on the main thread.
class Probe : public QWidget {
public:
    explicit Probe(QWidget* parent = nullptr);

    // Receives the window; may be empty. Called on the main thread from within the event that moves or shows it.
    std::function<void(QWidget&)> found;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    void followParents();
    void report();

    QList<QPointer<QWidget>> m_parents;  // up to and with the top one
    QPointer<QWidget> m_reported;
};

// Finds the window of a view.
struct WindowReader {
    std::function<void(QWidget&)> found;  // see Probe

    // Places a probe in `view`, which owns it. A view that already is in a window is reported before this returns.
    Probe& placeIn(QWidget& view) const;
};

}  // namespace MacMenuBaseline
