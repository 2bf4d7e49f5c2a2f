#include "Corvale/window/FocusRing.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPainter>

#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr int ringDistance = 1;
constexpr int ringWidth = 2;
constexpr double ringRadius = 8;

}  // namespace

FocusRing::FocusRing(Theme& theme, QWidget* window) : QWidget(window), m_theme(theme) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void FocusRing::follow(QWidget* control) {
    for (const QPointer<QWidget>& watched : m_watched) {
        if (watched) {
            watched->removeEventFilter(this);
        }
    }
    m_watched.clear();
    const bool isOurs = qobject_cast<QAbstractButton*>(control) != nullptr && control->window() == window();
    m_control = isOurs ? control : nullptr;
    for (QWidget* widget = m_control; widget != nullptr && widget != parentWidget(); widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        m_watched.append(widget);
    }
    moveToControl();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::KeyPress:
            // Later, when all of what moves together has moved.
            QMetaObject::invokeMethod(this, &FocusRing::moveToControl, Qt::QueuedConnection);
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::moveToControl() {
    const bool shows = m_control && m_control->isVisible() && window()->testAttribute(Qt::WA_KeyboardFocusChange);
    setVisible(shows);
    if (shows) {
        constexpr int outside = ringDistance + ringWidth;
        setGeometry(QRect(m_control->mapTo(parentWidget(), QPoint()), m_control->size())
                        .adjusted(-outside, -outside, outside, outside));
        raise();
    }
}

void FocusRing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_theme.palette().accent, ringWidth));
    const double inset = ringWidth / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), ringRadius, ringRadius);
}

}  // namespace corvale
