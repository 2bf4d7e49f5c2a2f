#pragma once

#include <QAbstractScrollArea>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "Corvale/grid/ChangeWalk.h"
#include "Corvale/grid/GridContents.h"
#include "Corvale/grid/GridRow.h"
#include "Corvale/grid/KnownResult.h"
#include "Corvale/grid/LinePainter.h"

namespace corvale {

class AppModel;
class BriefNote;
class GridHeader;
class GridPlaceholder;
class Theme;

// The list of the result's visible rows, one line each, as settings().view has them shown; or what to say when there
// are none. Reads and paints only what is on screen. A line is a place in AppModel::visible(), 0-based.
class DiffGrid : public QAbstractScrollArea {
    Q_OBJECT

public:
    // Lines [begin, end).
    struct Lines {
        std::int64_t begin = 0;
        std::int64_t end = 0;
        friend bool operator==(const Lines&, const Lines&) = default;
    };

    // Both outlive the grid.
    DiffGrid(AppModel& model, Theme& theme, QWidget* parent);
    ~DiffGrid() override;

    void refresh();

    // Height of the header above the lines, which depends on the view.
    int headerHeight() const;
    // The lines that are on screen, in part or whole.
    Lines linesOnScreen() const;
    // Scrolls so that the line, moved into bounds, is in the middle.
    void centerOn(std::int64_t line);

    // Goes to the next changed cell of the listed rows, in reading order, from the first one again after the last.
    void showNextChange();
    void showPreviousChange();
    // Puts the selected row on the clipboard: a tab-separated line a side that has it.
    void copySelectedRow();

    std::int64_t lineCount() const;
    // `line` is below lineCount(). Valid until the model changes.
    GridRow row(std::int64_t line) const;
    void selectLine(std::int64_t line);
    std::optional<std::int64_t> selectedLine() const;
    const GridContents& contents() const { return m_contents; }
    const GridHeader& header() const { return *m_header; }
    // Where things are in the viewport, on screen or not.
    QRect lineArea(std::int64_t line) const;
    QRect cellArea(std::int64_t line, std::size_t cell) const;

Q_SIGNALS:
    // Other lines are on screen.
    void viewMoved();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    // What lies under the pointer.
    struct Spot;

    void takeResult();
    void layOut();
    void updateScrollBars();
    void updatePlaceholder();
    void showSelection();
    void showLines();
    void showVisibleRows();
    void takeView();
    void takeFilter();
    void applyTheme();

    int scroll() const;
    ViewMode view() const;
    std::optional<std::int64_t> lineAt(int y) const;
    Spot spotAt(const QPoint& position) const;
    // Follows a tab to its cell; elsewhere the line there.
    std::optional<std::int64_t> pressAt(const QPoint& position);
    void ensureLineOnScreen(std::int64_t line);
    void scrollToCell(std::size_t cell);
    void openDetails();
    bool moveSelection(int key);
    void moveSelectionBy(std::int64_t lines);
    void setHoveredLine(std::optional<std::int64_t> line);
    void updateLine(std::optional<std::int64_t> line);
    void goToChange(const std::optional<ChangeWalk::Step>& step, const QString& noteWhenWrapped);
    ChangeWalk::Start changeStart() const;
    LinePainter::State stateOf(std::int64_t line) const;
    void paintLines(QPainter& painter, const QRect& area);
    QString toolTipAt(const QPoint& position) const;
    QString cellToolTip(std::int64_t line, std::size_t cell) const;
    void announceSelection();
    void announceCell(std::int64_t line, std::size_t cell);

    // The changed cell that was gone to last, while its row is the selected one.
    struct CurrentChange {
        std::int64_t row = 0;  // index into the result's rows
        std::size_t change = 0;
    };

    AppModel& m_model;
    Theme& m_theme;
    GridContents m_contents;
    KnownResult m_measured;  // the result that the contents were worked out from
    LinePainter m_painter;
    GridHeader* m_header;
    GridPlaceholder* m_placeholder;
    BriefNote* m_note;
    std::optional<std::int64_t> m_hoveredLine;
    std::optional<CurrentChange> m_currentChange;
};

}  // namespace corvale
