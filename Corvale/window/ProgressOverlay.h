#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace corvale {

class AppModel;
class ProgressBar;
class Theme;

// A veil over what is out of date while files are read or compared, with a panel that can cancel that. It comes only
// after a moment, so that quick work does not flash.
class ProgressOverlay : public QWidget {
    Q_OBJECT

public:
    // A child of `covered`, as large as it is. Both others outlive the overlay.
    ProgressOverlay(AppModel& model, Theme& theme, QWidget* covered);

    void refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isReading() const;
    bool isNeeded() const;
    void layOut();
    QRect panel() const;
    void showWhenNeeded();

    AppModel& m_model;
    Theme& m_theme;
    QLabel* m_title;
    ProgressBar* m_bar;
    QPushButton* m_cancel;
    QTimer m_delay;
    QPointer<QWidget> m_focusBefore;
};

}  // namespace corvale
