#include <QApplication>
#include <QFileInfo>
#include <QSettings>
#include <csignal>
#include <memory>

#include "Corvale/model/AppModel.h"
#include "Corvale/platform/QtPlatform.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/MainWindow.h"

namespace {

// One file fills Before, two fill both sides.
QList<QUrl> filesAmong(const QStringList& arguments) {
    QList<QUrl> files;
    for (const QString& argument : arguments.sliced(1)) {
        files.append(QUrl::fromLocalFile(QFileInfo(argument).absoluteFilePath()));
    }
    return files;
}

// Where files may not grow beyond a limit, the write is to fail and be told of, not to end the process.
void outliveFileSizeLimit() {
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    outliveFileSizeLimit();
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Corvale"));
    QApplication::setApplicationName(QStringLiteral("Corvale"));
    corvale::Theme theme(application);
    corvale::QtPlatform platform(std::make_unique<QSettings>());
    corvale::AppModel model(platform);
    corvale::MainWindow window(model, platform, theme);
    window.show();
    if (const QList<QUrl> files = filesAmong(QApplication::arguments()); !files.isEmpty()) {
        model.open(files, corvale::Side::before);
    }
    return QApplication::exec();
}
