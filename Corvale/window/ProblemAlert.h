#pragma once

#include <QDialog>

class QPushButton;

namespace corvale {

class AppModel;
class Theme;
class ValueText;

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
    void showText();

    AppModel& m_model;
    Theme& m_theme;
    QWidget* m_title;
    ValueText* m_text;  // not a label: it breaks long file names anywhere
    QPushButton* m_ok;
};

}  // namespace corvale
