// Takes pictures of every state of the window, in light and in dark. Argument: the folder to write them to; then the
// names of scenes, for some of them alone.

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QPalette>
#include <QTemporaryFile>
#include <cstdio>

#include "tests/Corvale/screenshots/Scenes.h"
#include "tests/Corvale/screenshots/Stage.h"

namespace corvale::Screenshots {
namespace {

// As a desktop switches.
void setDesktop(Scheme scheme) {
    const bool isDark = scheme == Scheme::dark;
    QPalette desktop;
    desktop.setColor(QPalette::Window, isDark ? Qt::black : Qt::white);
    desktop.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
    QApplication::setPalette(desktop);
    QApplication::processEvents();
}

// A screen as large as windows and their menus need; the platform's own is 800 pixels wide.
void useScreenlessPlatform(QTemporaryFile& screen) {
    screen.open();
    screen.write(R"({"screens": [{"name": "pictures", "x": 0, "y": 0, "width": 1920, "height": 1200,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screen.fileName()));
}

bool take(const Scene& scene, Scheme scheme, Theme& theme, const QDir& folder) {
    setDesktop(scheme);
    Stage stage(theme, scene.size);
    scene.setUp(stage);
    const QString name = QString::fromStdString(scene.name) +
                         (scheme == Scheme::dark ? QStringLiteral("-dark.png") : QStringLiteral(".png"));
    return stage.picture().save(folder.filePath(name));
}

}  // namespace
}  // namespace corvale::Screenshots

int main(int argc, char** argv) {
    QTemporaryFile screen;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        corvale::Screenshots::useScreenlessPlatform(screen);
    }
    QApplication application(argc, argv);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("usage: corvale-screenshots FOLDER [SCENE...]\n", stderr);
        return 2;
    }
    const QDir folder(arguments[1]);
    if (!folder.mkpath(QStringLiteral("."))) {
        std::fputs("corvale-screenshots: the folder cannot be made\n", stderr);
        return 1;
    }
    corvale::Theme theme(application);
    for (const corvale::Screenshots::Scene& scene : corvale::Screenshots::scenes()) {
        if (arguments.size() > 2 && !arguments.mid(2).contains(QString::fromStdString(scene.name))) {
            continue;
        }
        for (const auto scheme : {corvale::Scheme::light, corvale::Scheme::dark}) {
            if (!corvale::Screenshots::take(scene, scheme, theme, folder)) {
                std::fprintf(stderr, "corvale-screenshots: %s was not written\n", scene.name.c_str());
                return 1;
            }
        }
    }
    return 0;
}
