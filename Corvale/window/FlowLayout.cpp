#include "Corvale/window/FlowLayout.h"

#include <QRect>
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

FlowLayout::FlowLayout(int gap, int lineGap, QWidget* parent) : LineLayout(gap, parent), m_lineGap(lineGap) {}

int FlowLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    int height = 0;
    place(width - margins.left() - margins.right(), height);
    return height + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const {
    return lineSize([](const QLayoutItem& item) { return item.sizeHint(); });
}

QSize FlowLayout::minimumSize() const {
    QSize size(0, 0);
    for (const QLayoutItem* const item : shownItems()) {
        size = size.expandedTo(item->minimumSize());
    }
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect contents = contentsRect();
    int height = 0;
    for (const Placed& placed : place(contents.width(), height)) {
        put(*placed.item, placed.rect.translated(contents.topLeft()));
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
    for (QLayoutItem* const item : shownItems()) {
        const QSize size = sizeWithin(*item, width);
        if (x > 0 && x + size.width() > width) {
            centreLine();
            y += lineHeight + m_lineGap;
            x = 0;
            lineHeight = 0;
        }
        placed.push_back({item, QRect(QPoint(x, y), size)});
        x += size.width() + gap();
        lineHeight = std::max(lineHeight, size.height());
    }
    centreLine();
    height = y + lineHeight;
    return placed;
}

}  // namespace corvale
