#include <QApplication>
#include <QSettings>
#include <csignal>
#include <memory>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/platform/QtPlatform.h"
#include "Corvale/platform/Translation.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Theme.h"

namespace {

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
    QApplication::setApplicationVersion(QStringLiteral(CORVALE_VERSION));
    // Wayland takes a window's icon from the desktop file of this name, X11 the one below.
    QApplication::setDesktopFileName(QStringLiteral("corvale"));
    QApplication::setWindowIcon(corvale::Icons::application());
    corvale::QtPlatform platform(std::make_unique<QSettings>());
    const corvale::Translation translation(platform.language());
    corvale::Theme theme(application);
    QSettings store;
    corvale::CorvaleApp app(platform, theme, store);
    app.start(QApplication::arguments().sliced(1));
    return QApplication::exec();
}
