#include <gtest/gtest.h>

#include <QApplication>

namespace {

QtMessageHandler qtsOwnHandler = nullptr;

// What the platform without a screen says of itself, when a window has a smallest size or a menu opens.
bool isOfThePlatform(const QString& message) { return message.startsWith(u"This plugin does not support "); }

// Any other warning of Qt is a mistake in how we use it.
void failOnWarning(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    const bool warns = type == QtWarningMsg || type == QtCriticalMsg;
    if (warns && !isOfThePlatform(message)) {
        ADD_FAILURE() << "Qt: " << message.toStdString();
    } else if (!warns) {
        qtsOwnHandler(type, context, message);
    }
}

}  // namespace

// Runs the tests under an application object, without a screen unless QT_QPA_PLATFORM names one.
int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The process of a death test starts anew, since a fork would share the connections of the application object.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    qtsOwnHandler = qInstallMessageHandler(failOnWarning);
    return RUN_ALL_TESTS();
}
