#pragma once

#include <QWidget>

#include <cstdint>

class QLabel;

namespace corvale {

class AppModel;
class Button;
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
    void updateColors();

    AppModel& m_model;
    Theme& m_theme;
    QWidget* m_symbol;
    QLabel* m_title;
    QLabel* m_text;
    Button* m_choose;   // the files, or the missing one
    Button* m_sample;
    Button* m_compare;
};

}  // namespace corvale
