#include "Corvale/commands/Scrim.h"

#include <QEvent>
#include <QPainter>

#include "Corvale/style/Theme.h"

namespace corvale {

Scrim::Scrim(Theme& theme, QWidget* covered) : QWidget(covered), m_theme(theme) {
    hide();
    covered->installEventFilter(this);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

bool Scrim::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        resize(parentWidget()->size());
    }
    return QWidget::eventFilter(watched, event);
}

void Scrim::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    resize(parentWidget()->size());
    raise();
}

void Scrim::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().scrim);
}

}  // namespace corvale
