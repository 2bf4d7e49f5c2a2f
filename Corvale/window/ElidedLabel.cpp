#include "Corvale/window/ElidedLabel.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/ControlAccessibility.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int narrowest = 40;

}  // namespace

ElidedLabel::ElidedLabel(TextRole role, Theme& theme, QWidget* parent) : QWidget(parent), m_role(role), m_theme(theme) {
    ControlAccessibility::install();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void ElidedLabel::setText(const QString& text) {
    if (text == m_text) {
        return;
    }
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

void ElidedLabel::setLeastHeight(int height) {
    m_leastHeight = height;
    updateGeometry();
}

void ElidedLabel::setHighlighted(bool highlighted) {
    m_highlighted = highlighted;
    update();
}

QSize ElidedLabel::sizeHint() const {
    const QFont font = fontFor(m_role);
    return {Drawing::textWidth(font, m_text), std::max(m_leastHeight, QFontMetrics(font).height())};
}

QSize ElidedLabel::minimumSizeHint() const {
    const QSize whole = sizeHint();
    return {std::min(narrowest, whole.width()), whole.height()};
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && sizeHint().width() > width()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), CellText::toolTip(m_text), this);
        return true;
    }
    return QWidget::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = m_theme.palette();
    const QColor color = m_highlighted ? palette.accent : m_role == TextRole::secondary ? palette.text2 : palette.text;
    Drawing::text(painter, rect(), m_text, fontFor(m_role), color, m_elided);
}

}  // namespace corvale
