#include "Corvale/window/FileDrop.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <algorithm>

namespace corvale::FileDrop {

namespace {

bool isFile(const QUrl& url) { return url.isLocalFile() && !QFileInfo(url.toLocalFile()).isDir(); }

}  // namespace

QList<QUrl> files(const QMimeData& data) {
    QList<QUrl> urls = data.urls();
    const bool fit = urls.size() <= mostFiles && std::all_of(urls.begin(), urls.end(), isFile);
    return fit ? urls : QList<QUrl>();
}

QList<QUrl> take(QDropEvent& event) {
    QList<QUrl> urls = files(*event.mimeData());
    if (urls.isEmpty()) {
        event.ignore();
        return urls;
    }
    // Whatever the source proposes: a file that is looked at must not be moved away.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return urls;
}

}  // namespace corvale::FileDrop
