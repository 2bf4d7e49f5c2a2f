#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QString>
#include <functional>
#include <string>

// What a user does at the screen, and sees of it. Each action is done when its function returns, but not what follows
// from it. Functions throw std::runtime_error when the screen does not take an action.
namespace corvale::TestSupport::User {

// Lets this process go on with its events until it holds; false when that takes too long.
bool waitUntil(const std::function<bool()>& holds);

// Keys by their X names, some of them at once: "Home ctrl+c".
void press(const QString& keys);
void type(const QString& text);
// With the left button. In pixels of the screen.
void click(QPoint position);
void moveMouse(QPoint position);
void pressMouse(QPoint position);
void releaseMouse();

// The window that shows under a title that begins so; empty when there is none.
QByteArray windowTitled(const QString& beginning);
// How many windows the program shows, open menus among them.
qsizetype windowsOf(const QString& program);
// The area on the screen inside a window's frame.
QRect areaOf(const QByteArray& window);
// Has a window take the keys; on a screen without a window manager, nobody else does.
void turnTo(const QByteArray& window);

// Presses keys, the last of which copy, and gives what is on the clipboard then; empty when nothing comes there soon.
// On a busy machine it may be the answer to an earlier call.
std::string copyWith(const QString& keys);

}  // namespace corvale::TestSupport::User
