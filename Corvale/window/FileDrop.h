#pragma once

#include <QList>
#include <QUrl>

class QDropEvent;
class QMimeData;

// What of a drag may be dropped on the window.
namespace corvale::FileDrop {

// One a side.
inline constexpr qsizetype mostFiles = 2;

// The one or two files on this machine that are dragged; empty when there are more, or a folder or anything else is
// among them.
QList<QUrl> files(const QMimeData& data);

// Takes the event as a copy when it brings such files; else lets it pass, so that the pointer says no. Returns the
// files.
QList<QUrl> take(QDropEvent& event);

}  // namespace corvale::FileDrop
