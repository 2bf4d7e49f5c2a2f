#pragma once

#include <QList>
#include <QPointer>
#include <QUrl>
#include <QWindow>
#include <cstddef>
#include <deque>
#include <functional>
#include <random>
#include <string>

class QWidget;

namespace corvale::TestSupport {

// Keys, mouse and drags at random, given to a window as the system gives them, which decides what they are for: menus,
// modal windows and shortcuts come before the widget that happens to lie there. Each says what it did.
class Hands {
public:
    // The source of chance outlives the hands.
    explicit Hands(std::mt19937& random) : m_random(random) {}

    std::string press();
    std::string type();
    std::string click();
    std::string turnWheel();
    std::string hover();
    // Begins to drag; goOn() does the rest, a step at a time, since what is dragged may keep an event loop of its own.
    std::string drag();
    std::string drop(const QList<QUrl>& files);
    // What assistive technologies and the pointer's rest ask of widgets.
    std::string lookClosely();

    // False when no drag is under way.
    bool goOn();
    // Ends whatever a nested event loop waits for.
    void letGo();

private:
    // A place in a visible window.
    struct Spot {
        QPointer<QWindow> window;
        QPoint position;
        QPointer<QWidget> widget;
        std::string name;
    };

    std::size_t below(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(m_random); }
    bool chance(std::size_t one) { return below(one) == 0; }
    QWindow* focusWindow() const;
    Spot anySpot();
    Qt::KeyboardModifiers anyModifiers();

    std::mt19937& m_random;
    std::deque<std::function<void()>> m_steps;  // of the drag
};

}  // namespace corvale::TestSupport
