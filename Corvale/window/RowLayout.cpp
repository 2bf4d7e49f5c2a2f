#include "Corvale/window/RowLayout.h"

#include <QHash>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace corvale {

RowLayout::RowLayout(int gap, QWidget* parent) : QLayout(parent), m_gap(gap) { setContentsMargins(0, 0, 0, 0); }

RowLayout::~RowLayout() = default;

void RowLayout::addItem(QLayoutItem* item) { m_items.emplace_back(item); }

int RowLayout::count() const { return static_cast<int>(m_items.size()); }

QLayoutItem* RowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* RowLayout::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_items.begin() + index;
    QLayoutItem* const item = place->release();
    m_items.erase(place);
    return item;
}

bool RowLayout::isShown(QLayoutItem& item) { return !item.isEmpty() || item.spacerItem() != nullptr; }

bool RowLayout::givesWay(QLayoutItem& item) const { return m_givingWay.contains(item.widget()); }

template <typename SizeOf>
QSize RowLayout::total(SizeOf sizeOf) const {
    QSize size(0, 0);
    for (const auto& item : m_items) {
        if (isShown(*item)) {
            const QSize part = sizeOf(*item);
            size = {size.width() + (size.width() > 0 ? m_gap : 0) + part.width(),
                    std::max(size.height(), part.height())};
        }
    }
    return size.grownBy(contentsMargins());
}

QSize RowLayout::sizeHint() const {
    return total([](QLayoutItem& item) { return item.sizeHint(); });
}

QSize RowLayout::minimumSize() const {
    return total([this](QLayoutItem& item) { return givesWay(item) ? item.minimumSize() : item.sizeHint(); });
}

void RowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect contents = contentsRect();
    QHash<const QWidget*, int> given;
    int missing = sizeHint().width() - rect.width();
    for (const QWidget* widget : m_givingWay) {
        const auto item = std::find_if(
            m_items.begin(), m_items.end(), [widget](const auto& candidate) { return candidate->widget() == widget; });
        if (missing > 0 && item != m_items.end() && isShown(**item)) {
            const int most = std::max(0, (*item)->sizeHint().width() - (*item)->minimumSize().width());
            given[widget] = std::min(missing, most);
            missing -= given[widget];
        }
    }
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int x = contents.left();
    for (const auto& item : m_items) {
        if (isShown(*item)) {
            const QSize wanted = item->sizeHint();
            const int width = wanted.width() - given.value(item->widget());
            const int top = contents.top() + (contents.height() - wanted.height()) / 2;
            item->setGeometry(QStyle::visualRect(direction, contents, QRect(x, top, width, wanted.height())));
            x += width + m_gap;
        }
    }
}

}  // namespace corvale
