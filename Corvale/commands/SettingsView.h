#pragma once

#include "Corvale/commands/FurtherWindow.h"

namespace corvale {

class AppModel;
class Theme;

// The settings window. What is set there holds at once.
class SettingsView : public FurtherWindow {
    Q_OBJECT

public:
    // Both outlive the window.
    SettingsView(AppModel& model, Theme& theme, QWidget* parent);

private:
    void makeWay();

    AppModel& m_model;
};

}  // namespace corvale
