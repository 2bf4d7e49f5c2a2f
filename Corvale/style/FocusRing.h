#pragma once

#include <QFocusFrame>
#include <QObject>
#include <QPointer>
#include <QRect>

class QApplication;

namespace corvale {

// Shows a ring around the control that has the focus, while the user goes from control to control by keyboard. Buttons
// and combo boxes have it; another widget that paints no focus of its own asks for it with the property "focusRing".
// Lives on the main thread.
class FocusRing : public QObject {
public:
    explicit FocusRing(QApplication& application);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter(QWidget& widget, Qt::FocusReason reason);
    void leave();
    void lookAgain();

    QPointer<QFocusFrame> m_frame;  // belongs to the parent of the control
    bool m_byKeyboard = false;
};

// The part of a control that the ring goes around, in its own coordinates: of a check box the box.
QRect ringedPart(const QWidget& control);

// The radius of that part's corners; a widget that paints itself sets the property "cornerRadius".
int ringedRadius(const QWidget& control);

}  // namespace corvale
