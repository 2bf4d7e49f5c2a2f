#pragma once

#include "Corvale/commands/AuxiliaryWindow.h"

namespace corvale {

class AppModel;
class Theme;

// The settings window. What is set there holds at once.
class SettingsView : public AuxiliaryWindow {
    Q_OBJECT

public:
    // Both outlive the window.
    SettingsView(AppModel& model, Theme& theme, QWidget* parent);

private:
    void closeUnderSheet();

    AppModel& m_model;
};

}  // namespace corvale
