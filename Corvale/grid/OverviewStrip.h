#pragma once

#include <QPixmap>
#include <QWidget>
#include <cstdint>
#include <optional>

#include "Corvale/grid/KnownResult.h"
#include "Corvale/grid/Overview.h"
#include "Corvale/model/BackgroundJobs.h"

namespace corvale {

class AppModel;
class DiffGrid;
class Platform;
class Theme;
struct DiffResult;

// The whole result squeezed into the height of the grid beside it: marks for added, removed and changed rows in a lane
// each, the part on screen framed, the selected row as a line. A click or drag moves the grid there.
class OverviewStrip : public QWidget {
    Q_OBJECT

public:
    // A range of pixels from the top of the strip.
    struct Span {
        double top = 0;
        double height = 0;
        friend bool operator==(const Span&, const Span&) = default;
    };

    // All outlive the strip. `platform` counts the rows of a large result in the background.
    OverviewStrip(AppModel& model, DiffGrid& grid, Theme& theme, Platform& platform, QWidget* parent);
    ~OverviewStrip() override;

    void refresh();
    // Empty while a large result is being counted.
    const Overview::Counts& counts() const { return m_counts; }
    // Around the listed rows that are on screen; none when all are.
    std::optional<Span> frame() const;
    // The middle of the selected row.
    std::optional<double> selectionLine() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void count();
    void goTo(double y);
    int marksTop() const;
    int marksHeight() const;
    const QPixmap& marksPicture();

    AppModel& m_model;
    DiffGrid& m_grid;
    const Theme& m_theme;
    KnownResult m_counted;  // the result that the counts are of, or will be
    Overview::Counts m_counts;
    QPixmap m_marks;
    BackgroundJobs m_jobs;  // last, so that nothing is delivered into a strip half gone
};

}  // namespace corvale
