#pragma once

#include <functional>

#include "MacMenuBaseline/WindowReader.h"

class QUndoStack;

namespace MacMenuBaseline {

// Finds the undo manager that a view works with in its window.
struct WindowUndoManagerReader {
    // Receives it, or null when there is none; not owned. Called on the main thread.
    std::function<void(QUndoStack*)> found;

    // The undo manager in the environment of `view`: that of the nearest widget, from the view up to its window, which
    // owns (as QObject child) a QUndoStack or a QUndoGroup. Of a group it is the active stack, which may be null. A
    // window does not look further into the window that it belongs to.
    static QUndoStack* undoManager(const QWidget& view);

    // Places a probe in `view`, which owns it: `found` is called for each window that the view is moved into.
    Probe& placeIn(QWidget& view) const;
};

}  // namespace MacMenuBaseline
