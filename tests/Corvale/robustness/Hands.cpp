#include "tests/Corvale/robustness/Hands.h"

#include <QAccessible>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QHelpEvent>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <array>
#include <utility>

namespace corvale::TestSupport {

namespace {

constexpr std::array<Qt::Key, 34> keys = {
    Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape,    Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space,  Qt::Key_Up,
    Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,     Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,
    Qt::Key_F1,   Qt::Key_F2,      Qt::Key_F3,        Qt::Key_F4,     Qt::Key_F5,    Qt::Key_F8,     Qt::Key_F10,
    Qt::Key_F12,  Qt::Key_Alt,     Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Menu,  Qt::Key_A,      Qt::Key_C,
    Qt::Key_V,    Qt::Key_X,       Qt::Key_Z,         Qt::Key_E,      Qt::Key_F,     Qt::Key_R};

struct Chord {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

// Those of the menus.
const std::array<Chord, 20> chords = {{{Qt::Key_O, Qt::ControlModifier},
                                       {Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier},
                                       {Qt::Key_E, Qt::ControlModifier},
                                       {Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier},
                                       {Qt::Key_W, Qt::ControlModifier},
                                       {Qt::Key_Q, Qt::ControlModifier},
                                       {Qt::Key_F, Qt::ControlModifier},
                                       {Qt::Key_Comma, Qt::ControlModifier},
                                       {Qt::Key_R, Qt::ControlModifier},
                                       {Qt::Key_S, Qt::ControlModifier | Qt::AltModifier},
                                       {Qt::Key_1, Qt::ControlModifier},
                                       {Qt::Key_2, Qt::ControlModifier},
                                       {Qt::Key_3, Qt::ControlModifier},
                                       {Qt::Key_4, Qt::ControlModifier},
                                       {Qt::Key_I, Qt::ControlModifier | Qt::AltModifier},
                                       {Qt::Key_F1, Qt::NoModifier},
                                       {Qt::Key_F8, Qt::NoModifier},
                                       {Qt::Key_F8, Qt::ShiftModifier},
                                       {Qt::Key_C, Qt::ControlModifier},
                                       {Qt::Key_F4, Qt::AltModifier}}};

std::string described(QPoint position) { return std::to_string(position.x()) + "," + std::to_string(position.y()); }

std::string nameOf(const QWidget& widget) {
    return std::string(widget.metaObject()->className()) + " “" + widget.accessibleName().toStdString() + "”";
}

QPoint within(QPoint position, QSize size) {
    return {qBound(0, position.x(), size.width() - 1), qBound(0, position.y(), size.height() - 1)};
}

// QTest's own functions turn the event loop after each event, and the next action would come within this one.
void sendMouse(const QPointer<QWindow>& window, QEvent::Type type, QPoint position,
               Qt::MouseButton button = Qt::NoButton, Qt::KeyboardModifiers modifiers = {}) {
    static int time = 0;
    static Qt::MouseButtons held;
    if (!window) {
        return;
    }
    held.setFlag(button, type == QEvent::MouseButtonPress);
    qt_handleMouseEvent(
        window, QPointF(position), window->mapToGlobal(QPointF(position)), held, button, type, modifiers, time);
    time += 1;
}

void sendClick(const QPointer<QWindow>& window, QPoint position, Qt::MouseButton button,
               Qt::KeyboardModifiers modifiers) {
    sendMouse(window, QEvent::MouseButtonPress, position, button, modifiers);
    sendMouse(window, QEvent::MouseButtonRelease, position, button, modifiers);
}

QString textOf(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) {
        return {};
    }
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return QStringLiteral("\r");
        case Qt::Key_Tab:
            return QStringLiteral("\t");
        default:
            return key < Qt::Key_Escape ? QString(QChar(static_cast<char16_t>(key))).toLower() : QString();
    }
}

void sendKey(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text, const QPointer<QWindow>& window) {
    // As the system counts time here.
    static unsigned long time = 0;
    if (window && !qt_sendShortcutOverrideEvent(window, ++time, key, modifiers, text) && window) {
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    }
    if (window) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
    }
}

QPointF globally(const QWindow& window, QPoint position) { return window.mapToGlobal(QPointF(position)); }

// As a screen reader walks, down to what a widget paints by itself.
void walk(QAccessibleInterface* place, int depth) {
    if (place == nullptr || !place->isValid()) {
        return;
    }
    place->text(QAccessible::Name);
    place->text(QAccessible::Value);
    place->state();
    place->rect();
    const int children = place->childCount();
    for (int i = 0; depth > 0 && i < std::min(children, 6); ++i) {
        walk(place->child(i), depth - 1);
        walk(place->child(children - 1 - i), depth - 1);
    }
}

}  // namespace

QWindow* Hands::focusWindow() const {
    if (QWidget* const popup = QApplication::activePopupWidget();
        popup != nullptr && popup->windowHandle() != nullptr) {
        return popup->windowHandle();
    }
    return QGuiApplication::focusWindow();
}

Qt::KeyboardModifiers Hands::anyModifiers() {
    static const std::array<Qt::KeyboardModifiers, 5> all = {Qt::ShiftModifier,
                                                             Qt::ControlModifier,
                                                             Qt::AltModifier,
                                                             Qt::ControlModifier | Qt::ShiftModifier,
                                                             Qt::MetaModifier};
    return chance(4) ? all[below(all.size())] : Qt::KeyboardModifiers();
}

Hands::Spot Hands::anySpot() {
    QList<QWidget*> windows;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowHandle() != nullptr && !window->size().isEmpty()) {
            windows.append(window);
        }
    }
    if (windows.isEmpty()) {
        return {};
    }
    // Qt leaves nothing of a menu of its own, as that of a text, that would open below the screen.
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const window = popup != nullptr && windows.contains(popup) && !chance(4)
                                ? popup
                                : windows[static_cast<qsizetype>(below(static_cast<std::size_t>(windows.size())))];
    QList<QWidget*> parts{window};
    for (QWidget* const part : window->findChildren<QWidget*>()) {
        if (part->window() == window && part->isVisible() && !part->size().isEmpty()) {
            parts.append(part);
        }
    }
    QWidget* const part = parts[static_cast<qsizetype>(below(static_cast<std::size_t>(parts.size())))];
    const QPoint inPart(static_cast<int>(below(static_cast<std::size_t>(part->width()))),
                        static_cast<int>(below(static_cast<std::size_t>(part->height()))));
    const QPoint position = within(part->mapTo(window, inPart), window->size());
    return {window->windowHandle(), position, part, nameOf(*part) + " at " + described(position)};
}

std::string Hands::press() {
    QWindow* const window = focusWindow();
    if (window == nullptr) {
        return "no window for a key";
    }
    Chord chord{keys[below(keys.size())], anyModifiers()};
    if (chance(3)) {
        chord = chords[below(chords.size())];
    }
    const QKeySequence sequence(QKeyCombination(chord.modifiers, chord.key));
    const std::string name = "press " + sequence.toString(QKeySequence::PortableText).toStdString();
    sendKey(chord.key, chord.modifiers, textOf(chord.key, chord.modifiers), window);
    return name;
}

std::string Hands::type() {
    static constexpr std::array<char, 10> letters = {'a', 'p', 'e', '1', '2', ' ', ',', '.', '"', '*'};
    std::string typed;
    for (std::size_t left = 1 + below(4); left > 0; --left) {
        QWindow* const window = focusWindow();
        if (window == nullptr) {
            break;
        }
        typed += letters[below(letters.size())];
        const QString text(QChar::fromLatin1(typed.back()));
        sendKey(static_cast<Qt::Key>(text.toUpper().front().unicode()), {}, text, window);
    }
    return "type " + typed;
}

std::string Hands::click() {
    static constexpr std::array<Qt::MouseButton, 6> buttons = {
        Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
    const Spot spot = anySpot();
    if (!spot.window) {
        return "nowhere to click";
    }
    const Qt::MouseButton button = buttons[below(buttons.size())];
    const Qt::KeyboardModifiers modifiers = anyModifiers();
    if (chance(5)) {
        sendClick(spot.window, spot.position, button, modifiers);
        sendClick(spot.window, spot.position, button, modifiers);
        return "double click " + spot.name;
    }
    sendClick(spot.window, spot.position, button, modifiers);
    return (button == Qt::LeftButton ? "click " : "click of another button ") + spot.name;
}

std::string Hands::hover() {
    const Spot spot = anySpot();
    sendMouse(spot.window, QEvent::MouseMove, spot.position);
    return "hover " + spot.name;
}

std::string Hands::turnWheel() {
    const Spot spot = anySpot();
    if (!spot.window) {
        return "nowhere to turn the wheel";
    }
    const int amount = 40 * (static_cast<int>(below(61)) - 30);
    const QPoint angle = chance(4) ? QPoint(amount, 0) : QPoint(0, amount);
    QWheelEvent event(QPointF(spot.position),
                      globally(*spot.window, spot.position),
                      chance(2) ? angle / 8 : QPoint(),
                      angle,
                      Qt::NoButton,
                      anyModifiers(),
                      Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(spot.window, &event);
    return "wheel " + std::to_string(amount) + " " + spot.name;
}

std::string Hands::drag() {
    const Spot from = anySpot();
    const Spot to = anySpot();
    if (!from.window || !m_steps.empty()) {
        return "no drag";
    }
    const QPointer<QWindow> window = from.window;
    const auto add = [this, window](QEvent::Type type, QPoint at, Qt::MouseButton button) {
        m_steps.emplace_back([=] { sendMouse(window, type, window ? within(at, window->size()) : at, button); });
    };
    add(QEvent::MouseButtonPress, from.position, Qt::LeftButton);
    constexpr int steps = 5;
    for (int step = 1; step <= steps; ++step) {
        add(QEvent::MouseMove, from.position + (to.position - from.position) * step / steps, Qt::NoButton);
    }
    add(QEvent::MouseButtonRelease, to.position, Qt::LeftButton);
    return "drag from " + from.name + " to " + described(to.position);
}

bool Hands::goOn() {
    if (m_steps.empty()) {
        return false;
    }
    const auto step = std::move(m_steps.front());
    m_steps.pop_front();
    step();
    return true;
}

void Hands::letGo() {
    m_steps.clear();
    const QPointer<QWindow> window = QGuiApplication::focusWindow();
    sendMouse(window, QEvent::MouseButtonRelease, QPoint(1, 1), Qt::LeftButton);
    sendKey(Qt::Key_Escape, {}, {}, window);
}

std::string Hands::drop(const QList<QUrl>& files) {
    const Spot spot = anySpot();
    if (!spot.window) {
        return "nowhere to drop";
    }
    QMimeData data;
    data.setUrls(files);
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(spot.position, actions, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(spot.window, &enter);
    bool isTaken = false;
    if (spot.window) {
        QDragMoveEvent move(spot.position, actions, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(spot.window, &move);
        isTaken = move.isAccepted();
    }
    // No system drops what is not wanted.
    if (spot.window && (!isTaken || chance(4))) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(spot.window, &leave);
        return "drag over " + spot.name;
    }
    if (spot.window) {
        QDropEvent drop(spot.position, actions, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(spot.window, &drop);
    }
    std::string names;
    for (const QUrl& file : files) {
        names += file.fileName().toStdString() + " ";
    }
    return "drop " + names + "on " + spot.name;
}

std::string Hands::lookClosely() {
    const Spot spot = anySpot();
    if (!spot.widget) {
        return "nothing to look at";
    }
    const QPoint inWidget = spot.widget->mapFrom(spot.widget->window(), spot.position);
    QHelpEvent help(QEvent::ToolTip, inWidget, spot.widget->mapToGlobal(inWidget));
    QCoreApplication::sendEvent(spot.widget, &help);
    if (spot.widget) {
        walk(QAccessible::queryAccessibleInterface(spot.widget), 3);
    }
    return "look at " + spot.name;
}

}  // namespace corvale::TestSupport
