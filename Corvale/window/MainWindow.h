#pragma once

#include <QMainWindow>

#include "MacMenuBaseline/CloseGuard.h"

namespace corvale {

class AppModel;
class MainView;
class Platform;
class Theme;

// The one window. It does not close while a report is written, but as soon as that has succeeded.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // All outlive the window.
    MainWindow(AppModel& model, Platform& platform, Theme& theme);

    MainView& view() const { return *m_view; }
    MacMenuBaseline::CloseGuard& closeGuard() { return m_closeGuard; }

private:
    bool mayClose();
    void closeAfterExport();
    QSize startSize() const;

    AppModel& m_model;
    MacMenuBaseline::CloseGuard m_closeGuard;
    MainView* m_view;
    bool m_closesAfterExport = false;
};

}  // namespace corvale
