#include "tests/end-to-end/User.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <chrono>
#include <optional>
#include <stdexcept>

namespace corvale::TestSupport::User {

namespace {

using namespace std::chrono_literals;

// Long, for a machine that has other things to do; none of it passes when all is well.
constexpr std::chrono::milliseconds patience = 30s;
// For an answer that need not come, or comes to the next who asks.
constexpr std::chrono::milliseconds shortPatience = 500ms;

// What the tool prints; nothing when it fails.
std::optional<QByteArray> ask(const QStringList& arguments) {
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    const bool ended = tool.waitForFinished(static_cast<int>(patience.count()));
    return ended && tool.exitCode() == 0 ? std::optional(tool.readAllStandardOutput()) : std::nullopt;
}

void act(const QStringList& arguments) {
    if (!ask(arguments)) {
        throw std::runtime_error("xdotool fails: " + arguments.join(u' ').toStdString());
    }
}

}  // namespace

bool waitUntil(const std::function<bool()>& holds) {
    return QTest::qWaitFor(holds, static_cast<int>(patience.count()));
}

void press(const QString& keys) { act(QStringList{QStringLiteral("key")} + keys.split(u' ', Qt::SkipEmptyParts)); }

void type(const QString& text) { act({QStringLiteral("type"), text}); }

void moveMouse(QPoint position) {
    act({QStringLiteral("mousemove"), QString::number(position.x()), QString::number(position.y())});
}

void pressMouse(QPoint position) {
    moveMouse(position);
    act({QStringLiteral("mousedown"), QStringLiteral("1")});
}

void releaseMouse() { act({QStringLiteral("mouseup"), QStringLiteral("1")}); }

void click(QPoint position) {
    moveMouse(position);
    act({QStringLiteral("click"), QStringLiteral("1")});
}

QByteArray windowTitled(const QString& beginning) {
    const QString pattern = u'^' + QRegularExpression::escape(beginning);
    const auto found =
        ask({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), pattern});
    return found.value_or(QByteArray()).split('\n').front();
}

qsizetype windowsOf(const QString& program) {
    const auto found =
        ask({QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--class"), program});
    return found.value_or(QByteArray()).count('\n');
}

QRect areaOf(const QByteArray& window) {
    QMap<QByteArray, int> values;
    const auto answer =
        ask({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), QString::fromLatin1(window)});
    for (const QByteArray& line : answer.value_or(QByteArray()).split('\n')) {
        const QByteArrayList parts = line.split('=');
        values[parts.front()] = parts.back().toInt();
    }
    return {values["X"], values["Y"], values["WIDTH"], values["HEIGHT"]};
}

void turnTo(const QByteArray& window) {
    act({QStringLiteral("windowfocus"), QStringLiteral("--sync"), QString::fromLatin1(window)});
}

std::string copyWith(const QString& keys) {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    // What was there before is no answer.
    clipboard.setText(QStringLiteral("nothing copied yet"));
    press(keys);
    const auto isAnswered = [&clipboard] { return !clipboard.ownsClipboard(); };
    const bool answered = QTest::qWaitFor(isAnswered, static_cast<int>(shortPatience.count()));
    return answered ? clipboard.text().toStdString() : std::string();
}

}  // namespace corvale::TestSupport::User
