#pragma once

#include <vector>

#include "Corvale/window/LineLayout.h"

namespace corvale {

// Lays its items out in lines, each at its preferred width, wrapping like words. Items of a line are centred on it; one
// wider than the layout gets the whole width, and the height that it then wants.
class FlowLayout : public LineLayout {
public:
    // Gaps in pixels, between items of a line and between lines.
    FlowLayout(int gap, int lineGap, QWidget* parent);

    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Placed {
        QLayoutItem* item;
        QRect rect;
    };
    // The shown items within `width`, from the top left, and the height that they take.
    std::vector<Placed> place(int width, int& height) const;

    int m_lineGap;
};

}  // namespace corvale
