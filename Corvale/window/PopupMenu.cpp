#include "Corvale/window/PopupMenu.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>
#include <utility>

namespace corvale {

namespace {

constexpr int distance = 4;  // from the button

// A single & would underline the letter behind it.
QString withoutMnemonics(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

}  // namespace

PopupMenu::PopupMenu(Checking checking, std::function<void(PopupMenu&)> fill, QAbstractButton* button)
    : QMenu(button), m_checking(checking), m_fill(std::move(fill)), m_button(button) {
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToHide, this, &PopupMenu::release);
}

void PopupMenu::addTitle(const QString& title) { addSection(title); }

void PopupMenu::addItem(const Item& item) {
    QAction* const action = addAction(withoutMnemonics(item.text));
    action->setCheckable(item.isChecked != nullptr);
    action->setToolTip(item.help);
    connect(action, &QAction::triggered, this, item.action);
    m_entries.push_back({action, item});
}

void PopupMenu::open() {
    m_button->setDown(true);
    refill();
    popup(place());
}

void PopupMenu::refill() {
    clear();
    m_entries.clear();
    m_fill(*this);
    refresh();
}

void PopupMenu::refresh() {
    for (const Entry& entry : m_entries) {
        if (entry.item.isChecked) {
            entry.action->setChecked(entry.item.isChecked());
        }
        if (entry.item.isEnabled) {
            entry.action->setEnabled(entry.item.isEnabled());
        }
    }
}

void PopupMenu::release() {
    m_button->setDown(false);
    // The pointer left the button unseen, while the menu had it.
    const QPoint pointer = m_button->mapFromGlobal(QCursor::pos());
    m_button->setAttribute(Qt::WA_UnderMouse, m_button->rect().contains(pointer));
}

QPoint PopupMenu::place() const {
    const QSize size = sizeHint();
    const QRect screen = m_button->screen()->availableGeometry();
    const QRect button(m_button->mapToGlobal(QPoint()), m_button->size());
    const int below = screen.bottom() - button.bottom() - distance;
    const int above = button.top() - screen.top() - distance;
    const bool goesBelow = size.height() <= below || below >= above;
    // Of a window that reaches beyond the screen, the button may lie below its edge. Were the menu to open there, Qt
    // would shrink it, as it scrolls, until nothing is left.
    const int bottom = std::min(button.top(), screen.bottom()) - distance;
    const int left = m_button->layoutDirection() == Qt::RightToLeft ? button.right() + 1 - size.width() : button.left();
    return {std::clamp(left, screen.left(), std::max(screen.left(), screen.right() - size.width())),
            goesBelow ? button.bottom() + distance : std::max(screen.top(), bottom - size.height())};
}

bool PopupMenu::toggle(QAction* action) {
    if (m_checking == Checking::closes || action == nullptr || !action->isCheckable() || !action->isEnabled()) {
        return false;
    }
    action->trigger();
    refresh();
    return true;
}

void PopupMenu::keyPressEvent(QKeyEvent* event) {
    const bool picks = event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!picks || !toggle(activeAction())) {
        QMenu::keyPressEvent(event);
    }
}

void PopupMenu::mousePressEvent(QMouseEvent* event) {
    m_pressedInside = rect().contains(event->position().toPoint());
    // A click on the button closes its menu, and is not to open it again.
    const QPoint inButton = m_button->mapFromGlobal(event->globalPosition().toPoint());
    setAttribute(Qt::WA_NoMouseReplay, m_button->rect().contains(inButton));
    QMenu::mousePressEvent(event);
}

void PopupMenu::mouseReleaseEvent(QMouseEvent* event) {
    if (!m_pressedInside || !toggle(actionAt(event->position().toPoint()))) {
        QMenu::mouseReleaseEvent(event);
    }
}

}  // namespace corvale
