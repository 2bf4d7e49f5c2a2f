#include "MacMenuBaseline/WindowUndoManagerReader.h"

#include <QUndoGroup>
#include <QUndoStack>

#include "MacMenuBaseline/MainThread.h"

namespace MacMenuBaseline {

QUndoStack* WindowUndoManagerReader::undoManager(const QWidget& view) {
    requireMainThread("WindowUndoManagerReader::undoManager");
    for (const QWidget* at = &view; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
        if (auto* stack = at->findChild<QUndoStack*>(QString(), Qt::FindDirectChildrenOnly)) {
            return stack;
        }
        if (const auto* group = at->findChild<QUndoGroup*>(QString(), Qt::FindDirectChildrenOnly)) {
            return group->activeStack();
        }
    }
    return nullptr;
}

Probe& WindowUndoManagerReader::placeIn(QWidget& view) const {
    requireMainThread("WindowUndoManagerReader::placeIn");
    const WindowReader reader{[&view, whenFound = found](QWidget&) {
        if (whenFound) {
            whenFound(undoManager(view));
        }
    }};
    return reader.placeIn(view);
}

}  // namespace MacMenuBaseline
