#pragma once

#include <QDialog>

namespace corvale {

class AppModel;
class Theme;

// The settings window. What is set there holds at once.
class SettingsView : public QDialog {
    Q_OBJECT

public:
    // Both outlive the window.
    SettingsView(AppModel& model, Theme& theme, QWidget* parent);

    // In front, with the keyboard.
    void open() override;

private:
    QWidget* makeTabs();

    Theme& m_theme;
};

}  // namespace corvale
