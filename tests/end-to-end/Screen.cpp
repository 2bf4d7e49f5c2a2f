#include "tests/end-to-end/Screen.h"

#include <QStandardPaths>
#include <stdexcept>

namespace corvale::TestSupport {

namespace {

constexpr int patience = 30'000;  // milliseconds

// Nothing of the desktop of whoever runs the tests: not its style, its scale, its language or its message bus.
void leaveTheDesktop(const QByteArray& display) {
    for (const char* name : {"QT_QPA_PLATFORMTHEME",
                             "QT_STYLE_OVERRIDE",
                             "QT_SCALE_FACTOR",
                             "QT_FONT_DPI",
                             "WAYLAND_DISPLAY",
                             "XDG_CURRENT_DESKTOP",
                             "XMODIFIERS",
                             "QT_IM_MODULE",
                             "LANGUAGE"}) {
        qunsetenv(name);
    }
    qputenv("DISPLAY", display);
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    qputenv("LC_ALL", "C.UTF-8");
}

}  // namespace

std::string Screen::whatIsMissing() {
    std::string missing;
    for (const QString& program : {QStringLiteral("Xvfb"), QStringLiteral("xdotool")}) {
        if (QStandardPaths::findExecutable(program).isEmpty()) {
            missing += program.toStdString() + " is not installed. ";
        }
    }
    return missing;
}

Screen::Screen() {
    // The server picks a number that is free and tells it once it takes connections.
    m_server.setStandardErrorFile(QProcess::nullDevice());
    m_server.start(QStringLiteral("Xvfb"),
                   QStringLiteral("-displayfd 1 -screen 0 1400x900x24 -dpi 96 -nolisten tcp").split(u' '));
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (!m_server.waitForReadyRead(patience)) {
            throw std::runtime_error("Xvfb does not start");
        }
        number += m_server.readAllStandardOutput();
    }
    leaveTheDesktop(':' + number.trimmed());
}

Screen::~Screen() {
    m_server.terminate();
    m_server.waitForFinished(patience);
}

}  // namespace corvale::TestSupport
