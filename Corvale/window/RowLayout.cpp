#include "Corvale/window/RowLayout.h"

#include <QWidget>
#include <algorithm>

namespace corvale {

RowLayout::RowLayout(int gap, QWidget* parent) : LineLayout(gap, parent) { setContentsMargins(0, 0, 0, 0); }

bool RowLayout::givesWay(QLayoutItem& item) const { return m_givingWay.contains(item.widget()); }

QSize RowLayout::sizeHint() const {
    return lineSize([](QLayoutItem& item) { return item.sizeHint(); });
}

QSize RowLayout::minimumSize() const {
    return lineSize([this](QLayoutItem& item) { return givesWay(item) ? item.minimumSize() : item.sizeHint(); });
}

QHash<const QWidget*, int> RowLayout::givenUp(int missing) const {
    QHash<const QWidget*, int> given;
    const auto items = shownItems();
    for (const QWidget* widget : m_givingWay) {
        const auto found =
            std::find_if(items.begin(), items.end(), [widget](QLayoutItem* item) { return item->widget() == widget; });
        if (missing > 0 && found != items.end()) {
            const int most = std::max(0, (*found)->sizeHint().width() - (*found)->minimumSize().width());
            given[widget] = std::min(missing, most);
            missing -= given[widget];
        }
    }
    return given;
}

void RowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QRect contents = contentsRect();
    const auto given = givenUp(sizeHint().width() - rect.width());
    int x = contents.left();
    for (QLayoutItem* const item : shownItems()) {
        const QSize wanted = item->sizeHint();
        const int width = wanted.width() - given.value(item->widget());
        const int top = contents.top() + (contents.height() - wanted.height()) / 2;
        put(*item, QRect(x, top, width, wanted.height()));
        x += width + gap();
    }
}

}  // namespace corvale
