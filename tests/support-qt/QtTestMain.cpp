#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>
#include <iostream>

namespace {

QtMessageHandler qtsOwnHandler = nullptr;

// What the platform without a screen says of itself, when a window has a smallest size or a menu opens.
bool isOfThePlatform(const QString& message) { return message.startsWith(u"This plugin does not support "); }

// Any other warning of Qt is a mistake in how we use it. A failure may be added on any thread.
void failOnWarnings(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool warns = type == QtWarningMsg || type == QtCriticalMsg;
    if (!warns) {
        qtsOwnHandler(type, context, message);
    } else if (!isOfThePlatform(message)) {
        ADD_FAILURE() << "Qt warns: " << message.toStdString();
    }
}

// Neither the screen nor the desktop of whoever runs the tests.
void leaveTheDesktop() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qunsetenv("QT_QPA_PLATFORMTHEME");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

}  // namespace

// Runs the tests under an application object, without a screen unless QT_QPA_PLATFORM names one.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The process of a death test starts anew, since a fork would share the connections of the application object.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::cerr << "The locale that LC_ALL or LANG names is not installed; testing under \"C\".\n";
    }
    leaveTheDesktop();
    const QApplication application(argc, argv);
    // Only now: what Qt says of the machine while it starts is no mistake of ours.
    qtsOwnHandler = qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
