#pragma once

#include <QWidget>
#include <cstdint>

class QLabel;
class QPushButton;

namespace corvale {

class AppModel;
class Theme;

// What to do while there is no result to show.
class EmptyState : public QWidget {
    Q_OBJECT

public:
    // Both outlive it.
    EmptyState(AppModel& model, Theme& theme, QWidget* parent);

    void refresh();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Stage : std::uint8_t { noFile, beforeMissing, afterMissing, notCompared };

    Stage stage() const;
    void layOut();

    AppModel& m_model;
    Theme& m_theme;
    QWidget* m_symbol;
    QLabel* m_title;
    QLabel* m_text;
    QPushButton* m_choose;  // the files, or the missing one
    QPushButton* m_sample;
    QPushButton* m_compare;
};

}  // namespace corvale
