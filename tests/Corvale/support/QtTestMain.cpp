#include <gtest/gtest.h>
#include <langinfo.h>

#include <QApplication>
#include <QString>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace {

// What Qt warns of is a mistake of ours. A failure may be added on any thread.
void failOnWarnings(QtMsgType type, const QMessageLogContext&, const QString& message) {
    const std::string text = message.toStdString();
    if (type == QtDebugMsg || type == QtInfoMsg) {
        std::cerr << text << '\n';
    } else {
        ADD_FAILURE() << "Qt warns: " << text;
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Neither the screen nor the desktop of whoever runs the tests.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::unsetenv("QT_QPA_PLATFORMTHEME");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    // Only now: what Qt says of the machine while it starts is no mistake of ours.
    qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
