#pragma once

#include <QAbstractScrollArea>
#include <QString>
#include <cstdint>
#include <optional>

namespace corvale {

class AppModel;
class Theme;

// The list of the result's visible rows, one line each, as settings().view has them shown; or what to say when there
// are none. Reads and paints only what is on screen.
class DiffGrid : public QAbstractScrollArea {
    Q_OBJECT

public:
    // Lines, 0-based: places in AppModel::visible(). `end` is one past the last.
    struct Lines {
        std::int64_t begin = 0;
        std::int64_t end = 0;
        friend bool operator==(const Lines&, const Lines&) = default;
    };

    // Both outlive the grid.
    DiffGrid(AppModel& model, Theme& theme, QWidget* parent);
    ~DiffGrid() override;

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

Q_SIGNALS:
    // Other lines are on screen.
    void viewMoved();
};

}  // namespace corvale
