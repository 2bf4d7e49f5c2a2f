#include <gtest/gtest.h>

#include <QApplication>
#include <QString>
#include <clocale>
#include <cstdlib>
#include <iostream>

namespace {

// What Qt warns of is a mistake of ours. A failure may be added on any thread.
void failOnWarnings(QtMsgType type, const QMessageLogContext& /*where*/, const QString& message) {
    // What the offscreen platform has to say of every dialog.
    if (message == QStringLiteral("This plugin does not support propagateSizeHints()")) {
        return;
    }
    if (type == QtDebugMsg || type == QtInfoMsg) {
        std::cerr << message.toStdString() << '\n';
    } else {
        ADD_FAILURE() << "Qt warns: " << message.toStdString();
    }
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (std::setlocale(LC_ALL, "") == nullptr) {
        std::cerr << "The locale that LC_ALL or LANG names is not installed; testing under \"C\".\n";
    }
    // Neither the screen nor the desktop of whoever runs the tests.
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::unsetenv("QT_QPA_PLATFORMTHEME");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    // Only now: what Qt says of the machine while it starts is no mistake of ours.
    qInstallMessageHandler(failOnWarnings);
    return RUN_ALL_TESTS();
}
