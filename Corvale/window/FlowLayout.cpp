#include "Corvale/window/FlowLayout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace corvale {

namespace {

QSize sizeWithin(const QLayoutItem& item, int width) {
    const QSize wanted = item.sizeHint();
    if (wanted.width() <= width) {
        return wanted;
    }
    return {width, item.hasHeightForWidth() ? item.heightForWidth(width) : wanted.height()};
}

}  // namespace

FlowLayout::FlowLayout(int gap, int lineGap, QWidget* parent) : QLayout(parent), m_gap(gap), m_lineGap(lineGap) {}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) { m_items.emplace_back(item); }

int FlowLayout::count() const { return static_cast<int>(m_items.size()); }

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    const auto place = m_items.begin() + index;
    QLayoutItem* const item = place->release();
    m_items.erase(place);
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    int height = 0;
    place(width - margins.left() - margins.right(), height);
    return height + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const {
    const QMargins margins = contentsMargins();
    QSize size(0, 0);
    for (const auto& item : m_items) {
        if (!item->isEmpty()) {
            const QSize wanted = item->sizeHint();
            size = {size.width() + (size.width() > 0 ? m_gap : 0) + wanted.width(),
                    std::max(size.height(), wanted.height())};
        }
    }
    return size.grownBy(margins);
}

QSize FlowLayout::minimumSize() const {
    QSize size(0, 0);
    for (const auto& item : m_items) {
        if (!item->isEmpty()) {
            size = size.expandedTo(item->minimumSize());
        }
    }
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect contents = contentsRect();
    const Qt::LayoutDirection direction = parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int height = 0;
    for (const Placed& placed : place(contents.width(), height)) {
        placed.item->setGeometry(QStyle::visualRect(direction, contents, placed.rect.translated(contents.topLeft())));
    }
}

std::vector<FlowLayout::Placed> FlowLayout::place(int width, int& height) const {
    std::vector<Placed> placed;
    std::size_t lineBegin = 0;
    int x = 0;
    int y = 0;
    int lineHeight = 0;
    const auto centreLine = [&] {
        for (std::size_t i = lineBegin; i < placed.size(); ++i) {
            placed[i].rect.moveTop(y + (lineHeight - placed[i].rect.height()) / 2);
        }
        lineBegin = placed.size();
    };
    for (const auto& item : m_items) {
        if (item->isEmpty()) {
            continue;
        }
        const QSize size = sizeWithin(*item, width);
        if (x > 0 && x + size.width() > width) {
            centreLine();
            y += lineHeight + m_lineGap;
            x = 0;
            lineHeight = 0;
        }
        placed.push_back({item.get(), QRect(QPoint(x, y), size)});
        x += size.width() + m_gap;
        lineHeight = std::max(lineHeight, size.height());
    }
    centreLine();
    height = y + lineHeight;
    return placed;
}

}  // namespace corvale
