#include "Corvale/window/LineLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace corvale {

LineLayout::LineLayout(int gap, QWidget* parent) : QLayout(parent), m_gap(gap) {}

LineLayout::~LineLayout() = default;

void LineLayout::addItem(QLayoutItem* item) { m_items.emplace_back(item); }

int LineLayout::count() const { return static_cast<int>(m_items.size()); }

QLayoutItem* LineLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* LineLayout::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_items.begin() + index;
    QLayoutItem* const item = place->release();
    m_items.erase(place);
    return item;
}

std::vector<QLayoutItem*> LineLayout::shownItems() const {
    std::vector<QLayoutItem*> shown;
    for (const auto& item : m_items) {
        // A spacer calls itself empty.
        if (!item->isEmpty() || item->spacerItem()) {
            shown.push_back(item.get());
        }
    }
    return shown;
}

QSize LineLayout::beside(QSize line, QSize item) const {
    return {line.width() + (line.width() > 0 ? m_gap : 0) + item.width(), std::max(line.height(), item.height())};
}

void LineLayout::put(QLayoutItem& item, const QRect& rect) const {
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    item.setGeometry(QStyle::visualRect(direction, contentsRect(), rect));
}

}  // namespace corvale
