#pragma once

#include <QHash>
#include <QList>

#include "Corvale/window/LineLayout.h"

namespace corvale {

// Lays its widgets out in one row from the start, each at its preferred width. Where the row is too narrow, they give
// way one after the other, each down to its minimum before the next.
class RowLayout : public LineLayout {
public:
    // `gap` in pixels, between neighbours.
    RowLayout(int gap, QWidget* parent);

    // Which widgets give way, the first one first. Others keep their width.
    void setGivingWay(QList<QWidget*> widgets) { m_givingWay = std::move(widgets); }

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    bool givesWay(QLayoutItem& item) const;
    // How much of its preferred width each widget gives up, for the row to be narrower by `missing`.
    QHash<const QWidget*, int> givenUp(int missing) const;

    QList<QWidget*> m_givingWay;
};

}  // namespace corvale
