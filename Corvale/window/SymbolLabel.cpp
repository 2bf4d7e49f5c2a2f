#include "Corvale/window/SymbolLabel.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/ControlAccessibility.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int gap = 5;

}  // namespace

SymbolLabel::SymbolLabel(Look look, const QString& text, Theme& theme, QWidget* parent)
    : QWidget(parent), m_look(std::move(look)), m_theme(theme) {
    ControlAccessibility::install();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    setText(text);
}

void SymbolLabel::setText(const QString& text) {
    if (text == m_text) {
        return;
    }
    m_text = text;
    setAccessibleName(text);
    updateGeometry();
    update();
}

int SymbolLabel::textLeft() const { return m_look.padding + (m_look.symbol.isEmpty() ? 0 : m_look.symbolSize + gap); }

QSize SymbolLabel::sizeHint() const {
    const QFont font = fontFor(m_look.text);
    const int content = std::max(m_look.symbolSize, QFontMetrics(font).height());
    return {textLeft() + Drawing::textWidth(font, m_text) + m_look.padding,
            m_look.fill != nullptr ? std::max(Metrics::chipHeight, content) : content};
}

QSize SymbolLabel::minimumSizeHint() const { return {std::min(sizeHint().width(), textLeft()), sizeHint().height()}; }

void SymbolLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Palette& palette = m_theme.palette();
    const QColor color = isEnabled() ? m_look.color(palette) : palette.disabled;
    const QColor ink = isEnabled() && m_look.textColor != nullptr ? m_look.textColor(palette) : color;
    const auto place = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    if (m_look.fill != nullptr) {
        Drawing::box(painter, rect(), Metrics::chipRadius, m_look.fill(palette), Qt::transparent);
    }
    if (!m_look.symbol.isEmpty()) {
        Drawing::symbol(
            painter, m_look.symbol, color, place({m_look.padding, 0, m_look.symbolSize, height()}), m_look.symbolSize);
    }
    Drawing::text(
        painter, place(rect().adjusted(textLeft(), 0, -m_look.padding, 0)), m_text, fontFor(m_look.text), ink);
}

}  // namespace corvale
