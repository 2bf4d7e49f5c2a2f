#pragma once

#include <QWidget>

class QSplitter;
class QStackedLayout;

namespace corvale {

class AppModel;
class DiffGrid;
class EmptyState;
class FilesBar;
class MainToolbar;
class MatchBar;
class Platform;
class ProblemAlert;
class ProgressOverlay;
class RowInspector;
class SummaryStrip;
class Theme;

// All that is in the window: bars, list and row details, and what lies over them. Files may be dropped anywhere.
class MainView : public QWidget {
    Q_OBJECT

public:
    // All outlive the view.
    MainView(AppModel& model, Platform& platform, Theme& theme, QWidget* parent);

    DiffGrid& grid() const { return *m_grid; }

    void refresh();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* makeResults(Platform& platform);
    QSplitter* makeSplitter(Platform& platform, QWidget* parent);
    void connectToModel();
    void focusGrid();
    void fitInspector();

    AppModel& m_model;
    Theme& m_theme;
    MainToolbar* m_toolbar;
    FilesBar* m_files;
    MatchBar* m_match;
    SummaryStrip* m_strip = nullptr;
    QStackedLayout* m_body = nullptr;
    EmptyState* m_empty = nullptr;
    QSplitter* m_splitter = nullptr;
    DiffGrid* m_grid = nullptr;
    RowInspector* m_inspector = nullptr;
    QWidget* m_results;
    ProgressOverlay* m_progress;
    ProblemAlert* m_problem;
    int m_inspectorWidth = 0;  // that the window's width asks for
};

}  // namespace corvale
