#include "Corvale/window/ProgressOverlay.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <chrono>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/ProgressBar.h"

namespace corvale {

namespace {

constexpr std::chrono::milliseconds delay(120);
constexpr QSize panelSize(Metrics::progressPanel, 117);
constexpr int aboveMiddle = 34;
constexpr int barSteps = 1000;

}  // namespace

ProgressOverlay::ProgressOverlay(AppModel& model, Theme& theme, QWidget* covered)
    : QWidget(covered),
      m_model(model),
      m_theme(theme),
      m_title(new QLabel(this)),
      m_bar(new ProgressBar(theme, this)),
      m_cancel(new QPushButton(tr("Cancel"), this)) {
    m_title->setFont(fontFor(TextRole::panelTitle));
    setObjectName(QStringLiteral("progress"));
    m_delay.setSingleShot(true);
    covered->installEventFilter(this);
    hide();

    connect(m_cancel, &QPushButton::clicked, &model, &AppModel::cancel);
    connect(&m_delay, &QTimer::timeout, this, &ProgressOverlay::showWhenNeeded);
    for (const auto changed : {&AppModel::loadingChanged, &AppModel::progressChanged}) {
        connect(&model, changed, this, &ProgressOverlay::refresh);
    }
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

bool ProgressOverlay::isReading() const { return !m_model.loading().empty(); }

bool ProgressOverlay::isNeeded() const { return isReading() || m_model.progress(); }

void ProgressOverlay::refresh() {
    const bool wasReading = m_bar->maximum() == 0;
    if (isNeeded()) {
        m_title->setText(isReading() ? tr("Opening…") : tr("Comparing…"));
        m_bar->setAccessibleName(m_title->text());
        m_bar->setRange(0, isReading() ? 0 : barSteps);
        m_bar->setValue(qRound(m_model.progress().value_or(0) * barSteps));
    }
    if (isNeeded() == isVisible()) {
        m_delay.stop();
    } else if (isNeeded() || wasReading) {
        // After reading, a comparison follows in a moment; going and coming back would flash.
        if (!m_delay.isActive()) {
            m_delay.start(delay);
        }
    } else {
        hide();
    }
}

void ProgressOverlay::showWhenNeeded() { setVisible(isNeeded()); }

QRect ProgressOverlay::panel() const {
    QRect panel({}, panelSize);
    panel.moveCenter(rect().center() - QPoint(0, aboveMiddle));
    panel.moveTop(std::max(panel.top(), 8));
    return panel;
}

void ProgressOverlay::layOut() {
    setGeometry(parentWidget()->rect());
    const QRect inner = panel().adjusted(20, 18, -20, -16);
    m_title->setGeometry(inner.left(), inner.top(), inner.width(), 20);
    m_bar->setGeometry(inner.left(), inner.top() + 32, inner.width(), Metrics::progressBar);
    const QSize size = m_cancel->sizeHint();
    const QRect end(QPoint(inner.right() - size.width() + 1, inner.bottom() - size.height() + 1), size);
    m_cancel->setGeometry(QStyle::visualRect(layoutDirection(), inner, end));
}

bool ProgressOverlay::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && isVisible()) {
        layOut();
    }
    return QWidget::eventFilter(watched, event);
}

void ProgressOverlay::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    layOut();
    raise();
    QWidget* const focused = window()->focusWidget();
    const bool isTyping = qobject_cast<QLineEdit*>(focused) != nullptr;
    if (!isTyping && QApplication::activePopupWidget() == nullptr) {
        m_focusBefore = focused;
        m_cancel->setFocus(Qt::OtherFocusReason);
    }
}

void ProgressOverlay::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (m_focusBefore && m_cancel == window()->focusWidget()) {
        m_focusBefore->setFocus(Qt::OtherFocusReason);
    }
    m_focusBefore = nullptr;
}

void ProgressOverlay::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        m_model.cancel();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ProgressOverlay::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    painter.fillRect(rect(), palette.veil);
    Drawing::shadow(painter, panel(), Metrics::panelRadius);
    Drawing::box(painter, panel(), Metrics::panelRadius, palette.surface, palette.popupBorder);
}

}  // namespace corvale
