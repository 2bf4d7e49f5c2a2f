#pragma once

#include <QMenu>
#include <cstdint>
#include <functional>
#include <vector>

class QAbstractButton;

namespace corvale {

// The menu of a button, which owns it. It is filled anew whenever it opens, and scrolls where it is too long for the
// screen.
class PopupMenu : public QMenu {
    Q_OBJECT

public:
    enum class Checking : std::uint8_t {
        closes,     // as in any menu
        staysOpen,  // for several items in a row
    };

    struct Item {
        QString text;  // taken as it stands, without mnemonics
        std::function<void()> action;
        std::function<bool()> isChecked;  // none: has no check mark
        std::function<bool()> isEnabled;  // none: always
        QString help;                     // a tooltip
    };

    // `fill` adds the items.
    PopupMenu(Checking checking, std::function<void(PopupMenu&)> fill, QAbstractButton* button);

    // Tells what the items below are about.
    void addTitle(const QString& title);
    void addItem(const Item& item);

    // Below the button, or above it where there is more room.
    void open();
    // Asks the items anew what is checked and enabled.
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
    QPoint place() const;
    // Picks the item without closing; false for one that closes the menu.
    bool toggle(QAction* action);

    Checking m_checking;
    std::function<void(PopupMenu&)> m_fill;
    QAbstractButton* m_button;
    std::vector<Entry> m_entries;
    bool m_pressedInside = false;
};

}  // namespace corvale
