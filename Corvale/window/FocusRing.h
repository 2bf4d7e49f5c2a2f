#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

namespace corvale {

class Theme;

// The ring around the control of a window that has the keyboard, once the keyboard was used to get there. It lies
// outside the control, over whatever is beside it; fields and lists, which show the focus themselves, get none.
class FocusRing : public QWidget {
public:
    // A child of `window`, which it stays within. The theme outlives it.
    FocusRing(Theme& theme, QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(QWidget* control);
    void moveToControl();

    Theme& m_theme;
    QPointer<QWidget> m_control;
    QList<QPointer<QWidget>> m_watched;  // the control and what it is in, up to the window
};

}  // namespace corvale
