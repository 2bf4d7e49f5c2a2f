#pragma once

#include <QWidget>
#include <cstddef>

#include "Corvale/grid/GridContents.h"

namespace corvale {

class AppModel;
class Theme;

// The names above the grid's columns; side by side, with the names of the two files above them.
class GridHeader : public QWidget {
    Q_OBJECT

public:
    // All outlive the header, which is told by update() when `contents` change.
    GridHeader(const AppModel& model, const GridContents& contents, const Theme& theme, QWidget* parent);

    // How far the columns are scrolled sideways.
    void setScroll(int scroll);
    static int heightFor(ViewMode view);
    // "Item", or "Last updated (ignored)"; by a place in the layout.
    QString title(std::size_t cell) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool sideBySide() const { return m_contents.geometry.view() == ViewMode::sideBySide; }
    QRect columnArea(std::size_t cell) const;
    void paintSideTitles(QPainter& painter) const;
    void paintSideTitle(QPainter& painter, const QRect& area, const QString& side, const QString& file) const;
    void paintColumns(QPainter& painter) const;
    void paintColumn(QPainter& painter, std::size_t cell) const;
    void paintLeadingBlock(QPainter& painter) const;
    // What is left for the name and its note.
    int textWidth(std::size_t cell) const;
    void showToolTip(const QPoint& position, const QPoint& globalPosition);

    const AppModel& m_model;
    const GridContents& m_contents;
    const Theme& m_theme;
    int m_scroll = 0;
};

}  // namespace corvale
