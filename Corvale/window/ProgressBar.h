#pragma once

#include <QBasicTimer>
#include <QProgressBar>

namespace corvale {

class Theme;

// A thin bar; a part of it moves to and fro while the range is empty.
class ProgressBar : public QProgressBar {
public:
    // The theme outlives the bar.
    ProgressBar(Theme& theme, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    bool isBusy() const { return minimum() == maximum(); }
    QRect filledPart() const;

    Theme& m_theme;
    QBasicTimer m_timer;
    int m_step = 0;  // of the movement
};

}  // namespace corvale
