#pragma once

#include <QLayout>
#include <memory>
#include <vector>

class QRect;

namespace corvale {

// What layouts that set items beside each other share: keeping the items, and the width of a line of them.
class LineLayout : public QLayout {
public:
    ~LineLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

protected:
    // `gap` in pixels, between neighbours.
    LineLayout(int gap, QWidget* parent);

    int gap() const { return m_gap; }
    // In their order, without hidden widgets. The layout keeps them.
    std::vector<QLayoutItem*> shownItems() const;

    // The size, margins included, of one line of the shown items, when each has the size that `sizeOf` returns for it.
    template <typename SizeOf>
    QSize lineSize(SizeOf sizeOf) const {
        QSize line(0, 0);
        for (QLayoutItem* const item : shownItems()) {
            line = beside(line, sizeOf(*item));
        }
        return line.grownBy(contentsMargins());
    }

    // `rect` lies in the contents of the layout as a reader from left to right sees it, and is mirrored for others.
    void put(QLayoutItem& item, const QRect& rect) const;

private:
    QSize beside(QSize line, QSize item) const;

    int m_gap;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

}  // namespace corvale
