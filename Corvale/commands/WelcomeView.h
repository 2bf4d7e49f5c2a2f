#pragma once

#include <QDialog>

class QLayout;
class QPushButton;

namespace corvale {

class AppModel;
class Scrim;
class Theme;

// The sheet over the window at the first start. However it is closed, it has been seen.
class WelcomeView : public QDialog {
    Q_OBJECT

public:
    // Both outlive the sheet, whose parent is the window that it covers.
    WelcomeView(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();
    // Follows the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void helpWanted();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();
    QWidget* makeBlurb(const QString& symbol, const QString& title, const QString& text);
    QLayout* makeButtons();
    void placeOverWindow();
    void beDone();

    AppModel& m_model;
    Theme& m_theme;
    Scrim* m_scrim;
    QPushButton* m_help;
    QPushButton* m_sample;
    QPushButton* m_start;
};

}  // namespace corvale
