#include "Corvale/grid/BriefNote.h"

#include <QAccessible>
#include <QPainter>
#include <chrono>

#include "Corvale/style/Metrics.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"

namespace corvale {

namespace {

constexpr std::chrono::milliseconds shownFor{2500};
constexpr int paddingX = 12;
constexpr int paddingY = 7;
constexpr int fromFoot = 16;

}  // namespace

BriefNote::BriefNote(const Theme& theme, QWidget* covered) : QLabel(covered), m_theme(theme) {
    hide();
    setTextFormat(Qt::PlainText);
    setContentsMargins(paddingX, paddingY, paddingX, paddingY);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_timer.setSingleShot(true);
    m_timer.setInterval(shownFor);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
}

void BriefNote::say(const QString& text) {
    setText(text);
    setAccessibleName(text);
    adjustSize();
    const QRect covered = parentWidget()->rect();
    move((covered.width() - width()) / 2, covered.height() - height() - fromFoot);
    show();
    raise();
    m_timer.start();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void BriefNote::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Shapes::box(painter, rect(), Metrics::controlRadius, m_theme.palette().toolTip, m_theme.palette().toolTip);
    painter.setPen(m_theme.palette().onToolTip);
    painter.drawText(contentsRect(), Qt::AlignCenter, text());
}

}  // namespace corvale
