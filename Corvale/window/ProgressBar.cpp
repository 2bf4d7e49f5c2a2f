#include "Corvale/window/ProgressBar.h"

#include <QPainter>
#include <QStyle>
#include <QTimerEvent>
#include <chrono>
#include <cstdlib>

#include "Corvale/style/Theme.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int stepsOneWay = 40;
constexpr int firstStep = 18;
constexpr std::chrono::milliseconds stepTime(30);
constexpr double busyShare = 0.37;

}  // namespace

ProgressBar::ProgressBar(Theme& theme, QWidget* parent) : QProgressBar(parent), m_theme(theme), m_step(firstStep) {
    setTextVisible(false);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ProgressBar::showEvent(QShowEvent* event) {
    QProgressBar::showEvent(event);
    m_timer.start(static_cast<int>(stepTime.count()), this);
}

void ProgressBar::hideEvent(QHideEvent* event) {
    QProgressBar::hideEvent(event);
    m_timer.stop();
}

void ProgressBar::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_timer.timerId()) {
        QProgressBar::timerEvent(event);
    } else if (isBusy()) {
        m_step = (m_step + 1) % (2 * stepsOneWay);
        update();
    }
}

QRect ProgressBar::filledPart() const {
    if (!isBusy()) {
        const double share = static_cast<double>(value() - minimum()) / (maximum() - minimum());
        return {0, 0, qRound(share * width()), height()};
    }
    const int part = qRound(busyShare * width());
    const int there = stepsOneWay - std::abs(m_step - stepsOneWay);
    return {(width() - part) * there / stepsOneWay, 0, part, height()};
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double radius = height() / 2.0;
    Drawing::box(painter, rect(), radius, m_theme.palette().pressed, Qt::transparent);
    if (const QRect filled = filledPart(); filled.width() > 0) {
        Drawing::box(painter,
                     QStyle::visualRect(layoutDirection(), rect(), filled),
                     radius,
                     m_theme.palette().accent,
                     Qt::transparent);
    }
}

}  // namespace corvale
