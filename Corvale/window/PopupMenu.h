#pragma once

#include <QMenu>
#include <cstdint>
#include <functional>
#include <vector>

class QAbstractButton;

namespace corvale {

class Theme;

// The menu of a button, which owns it. It is filled anew whenever it opens, and scrolls where it is too long for the
// screen.
class PopupMenu : public QMenu {
    Q_OBJECT

public:
    enum class Ticking : std::uint8_t {
        closes,     // as in any menu
        staysOpen,  // for several ticks in a row
    };

    struct Item {
        QString text;  // taken as it stands, without mnemonics
        std::function<void()> action;
        std::function<bool()> isTicked;   // none: has no tick
        std::function<bool()> isEnabled;  // none: always
        QString help;                     // a tooltip
    };

    // `fill` adds the items. The theme outlives the menu.
    PopupMenu(Ticking ticking, std::function<void(PopupMenu&)> fill, Theme& theme, QAbstractButton* button);

    // Tells what the items below are about.
    void addTitle(const QString& title);
    void addItem(const Item& item);

    // Below the button, or above it where there is more room.
    void open();
    // Asks the items anew what is ticked and enabled.
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    struct Entry {
        QAction* action;
        Item item;
    };

    void refill();
    // Lets the button go back to how it is without its menu.
    void release();
    QPoint place();
    // Picks the item without closing; false for one that closes the menu.
    bool tick(QAction* action);

    Ticking m_ticking;
    std::function<void(PopupMenu&)> m_fill;
    Theme& m_theme;
    QAbstractButton* m_button;
    std::vector<Entry> m_entries;
    bool m_pressedInside = false;
};

}  // namespace corvale
