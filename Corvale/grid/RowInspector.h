#pragma once

#include <QWidget>

namespace corvale {

class AppModel;
class Theme;

// The row-details pane: every cell of the selected row, before and after, as texts that can be selected and copied.
class RowInspector : public QWidget {
    Q_OBJECT

public:
    // Both outlive the pane.
    RowInspector(AppModel& model, Theme& theme, QWidget* parent);
    ~RowInspector() override;
};

}  // namespace corvale
