#pragma once

#include <QWidget>

#include "Corvale/model/AppSettings.h"

namespace corvale {

class AppModel;
class Button;
class Theme;

// The choice between the two ways in which the list shows a row.
class ViewPicker : public QWidget {
    Q_OBJECT

public:
    // Both outlive the picker.
    ViewPicker(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Button* makeSegment(ViewMode view, const QString& label);

    AppModel& m_model;
    Theme& m_theme;
    Button* m_unified;
    Button* m_sideBySide;
};

}  // namespace corvale
