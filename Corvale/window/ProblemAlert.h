#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace corvale {

class AppModel;
class Theme;

// Shows the model's problem over its window until the user has read it.
class ProblemAlert : public QDialog {
    Q_OBJECT

public:
    // Both outlive the alert.
    ProblemAlert(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();

    AppModel& m_model;
    Theme& m_theme;
    QWidget* m_title;
    QLabel* m_text;
    QPushButton* m_ok;
};

}  // namespace corvale
