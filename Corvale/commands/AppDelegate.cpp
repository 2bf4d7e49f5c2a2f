#include "Corvale/commands/AppDelegate.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileOpenEvent>
#include <cstdio>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/window/FileDrop.h"

namespace corvale {

namespace {

// Who names files by hand sits at a terminal.
void tell(const QString& sentence) { std::fputs(("corvale: " + sentence.toLocal8Bit() + '\n').constData(), stderr); }

}  // namespace

AppDelegate::AppDelegate(AppModel& model) : m_model(model) { QCoreApplication::instance()->installEventFilter(this); }

void AppDelegate::open(const QStringList& arguments) {
    QList<QUrl> files;
    for (const QString& argument : arguments) {
        if (argument.isEmpty()) {
            tell(tr("A file name is empty and was passed over."));
            continue;
        }
        if (files.size() == FileDrop::mostFiles) {
            tell(tr("Two files can be compared at a time; “%1” was not opened.").arg(argument));
            continue;
        }
        files.append(QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile));
    }
    if (!files.isEmpty()) {
        m_model.open(files, Side::before);
    }
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FileOpen) {
        return QObject::eventFilter(watched, event);
    }
    // One event a file: those of one opening come in a row.
    if (m_came.isEmpty()) {
        QMetaObject::invokeMethod(this, &AppDelegate::openWhatCame, Qt::QueuedConnection);
    }
    m_came.append(static_cast<QFileOpenEvent*>(event)->url());
    return true;
}

void AppDelegate::openWhatCame() { m_model.open(std::exchange(m_came, {}), Side::before); }

}  // namespace corvale
