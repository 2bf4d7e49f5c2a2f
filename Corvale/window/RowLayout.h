#pragma once

#include <QLayout>
#include <QList>
#include <memory>
#include <vector>

namespace corvale {

// Lays its widgets out in one row from the start, each at its preferred width. Where the row is too narrow, they give
// way one after the other, each down to its minimum before the next.
class RowLayout : public QLayout {
public:
    // `gap` in pixels, between neighbours.
    RowLayout(int gap, QWidget* parent);
    ~RowLayout() override;

    // Which widgets give way, the first one first. Others keep their width.
    void setGivingWay(QList<QWidget*> widgets) { m_givingWay = std::move(widgets); }

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    static bool isShown(QLayoutItem& item);
    bool givesWay(QLayoutItem& item) const;
    template <typename SizeOf>
    QSize total(SizeOf sizeOf) const;

    int m_gap;
    QList<QWidget*> m_givingWay;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

}  // namespace corvale
