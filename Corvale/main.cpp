#include <QApplication>
#include <QSettings>
#include <memory>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/platform/QtPlatform.h"
#include "Corvale/platform/Translation.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Theme.h"
#include "CorvaleKit/base/SystemFiles.h"

int main(int argc, char** argv) {
    corvale::SystemFiles::outliveSizeLimit();
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
