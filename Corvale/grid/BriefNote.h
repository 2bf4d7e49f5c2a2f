#pragma once

#include <QLabel>
#include <QTimer>

namespace corvale {

class Theme;

// A sentence over the foot of a widget that goes away by itself, and is read out.
class BriefNote : public QLabel {
    Q_OBJECT

public:
    // The theme outlives the note.
    BriefNote(const Theme& theme, QWidget* covered);

    void say(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Theme& m_theme;
    QTimer m_timer;
};

}  // namespace corvale
