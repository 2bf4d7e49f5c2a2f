#pragma once

#include <QWidget>

namespace corvale {

class AppModel;
class DiffGrid;
class Platform;
class Theme;

// The whole result squeezed into the height of the grid beside it: marks for added, removed and changed rows in a lane
// each, the part on screen framed, the selected row as a line. A click or drag moves the grid there.
class OverviewStrip : public QWidget {
    Q_OBJECT

public:
    // All outlive the strip. `platform` counts the rows of a large result in the background.
    OverviewStrip(AppModel& model, DiffGrid& grid, Theme& theme, Platform& platform, QWidget* parent);
    ~OverviewStrip() override;
};

}  // namespace corvale
