#include "Corvale/style/FocusRing.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QStyleOptionButton>
#include <QVariant>

#include "Corvale/style/Metrics.h"

namespace corvale {

namespace {

bool hasRing(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr || widget.property("focusRing").toBool();
}

// Reasons that are neither keep what was before: closing a menu or coming back to the window.
bool isByKeyboard(Qt::FocusReason reason, bool before) {
    switch (reason) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            return true;
        case Qt::MouseFocusReason:
            return false;
        default:
            return before;
    }
}

}  // namespace

FocusRing::FocusRing(QApplication& application) { application.installEventFilter(this); }

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        if (auto* widget = qobject_cast<QWidget*>(watched)) {
            leave();
            if (event->type() == QEvent::FocusIn) {
                enter(*widget, static_cast<const QFocusEvent*>(event)->reason());
            }
        }
    }
    return false;
}

void FocusRing::enter(QWidget& widget, Qt::FocusReason reason) {
    m_byKeyboard = isByKeyboard(reason, m_byKeyboard);
    if (!m_byKeyboard || !hasRing(widget) || widget.isWindow()) {
        return;
    }
    if (!m_frame) {
        m_frame = new QFocusFrame(&widget);
    }
    m_frame->setWidget(&widget);
    if (m_frame->isHidden()) {
        // It was out of sight. Many a list scrolls to what has taken the keyboard, and the frame would not notice.
        QMetaObject::invokeMethod(this, &FocusRing::lookAgain, Qt::QueuedConnection);
    }
}

void FocusRing::lookAgain() {
    if (m_frame && m_frame->isHidden()) {
        QWidget* const widget = m_frame->widget();
        m_frame->setWidget(nullptr);
        m_frame->setWidget(widget);
    }
}

void FocusRing::leave() {
    if (m_frame) {
        m_frame->setWidget(nullptr);
    }
}

QRect ringedPart(const QWidget& control) {
    const auto* box = qobject_cast<const QCheckBox*>(&control);
    if (box == nullptr) {
        return control.rect();
    }
    QStyleOptionButton option;
    option.initFrom(box);
    return box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
}

int ringedRadius(const QWidget& control) {
    if (qobject_cast<const QCheckBox*>(&control) != nullptr) {
        return Metrics::checkBoxRadius;
    }
    const QVariant radius = control.property("cornerRadius");
    return radius.isValid() ? radius.toInt() : Metrics::controlRadius;
}

}  // namespace corvale
