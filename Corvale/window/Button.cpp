#include "Corvale/window/Button.h"

#include <QAccessible>
#include <QButtonGroup>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/ControlAccessibility.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

struct Shape {
    int height;       // at least: a larger system font makes higher buttons
    int padding;      // left and right
    int menuPadding;  // right of the chevron
    int gap;          // between symbol, text and chevron
    int chevron;
    int radius;
    TextRole text;
};

constexpr Shape shapeOf(Button::Face face) {
    constexpr int controlRadius = Metrics::controlRadius;
    switch (face) {
        case Button::Face::bordered:
            return {Metrics::controlHeight, 11, 8, 6, Metrics::chevron, controlRadius, TextRole::body};
        case Button::Face::tile:
            return {Metrics::swapButton, 7, 7, 0, 0, Metrics::chipRadius, TextRole::body};
        case Button::Face::flat:
            return {Metrics::flatButton, 5, 5, 0, 0, 5, TextRole::body};
        case Button::Face::inCard:
            return {22, 6, 5, 3, 10, 5, TextRole::secondary};
        case Button::Face::segment:
            return {Metrics::controlHeight, 12, 12, 6, Metrics::chevron, controlRadius, TextRole::body};
        case Button::Face::warning:
            return {Metrics::noteHeight, 8, 8, 5, 0, controlRadius, TextRole::secondary};
    }
    Q_UNREACHABLE();
}

}  // namespace

Button::Button(Face face, Theme& theme, QWidget* parent) : QAbstractButton(parent), m_face(face), m_theme(theme) {
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setProperty("cornerRadius", shapeOf(face).radius);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void Button::setLabel(const QString& text, const QString& prefix) {
    if (text == m_label && prefix == m_prefix) {
        return;
    }
    m_label = text;
    m_prefix = prefix;
    setAccessibleName(prefix + text);
    updateGeometry();
    update();
}

void Button::setPrefixShown(bool shown) {
    m_prefixShown = shown;
    updateGeometry();
    update();
}

void Button::setTextShown(bool shown) {
    m_textShown = shown;
    updateGeometry();
    update();
}

void Button::setLongestText(int width) {
    m_longestText = width;
    updateGeometry();
}

void Button::setSymbol(const QString& name, int size) {
    m_symbol = name;
    m_symbolSize = size;
    updateGeometry();
    update();
}

void Button::setMenu(PopupMenu::Checking checking, std::function<void(PopupMenu&)> fill) {
    ControlAccessibility::install();
    m_menu = new PopupMenu(checking, std::move(fill), this);
    connect(this, &Button::clicked, m_menu, &PopupMenu::open);
    // Drops the interface of a button without a menu, where one has been asked for it already.
    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(QAccessible::queryAccessibleInterface(this)));
}

void Button::setHelp(const QString& help) {
    setToolTip(help);
    setAccessibleDescription(help);
}

void Button::setNarrowest(int width) {
    m_narrowest = width;
    updateGeometry();
}

QFont Button::textFont() const {
    QFont font = fontFor(shapeOf(m_face).text);
    const bool isValue = m_face == Face::inCard && !m_prefix.isEmpty();
    font.setWeight(m_face == Face::warning || isOn() ? QFont::DemiBold : isValue ? QFont::Medium : QFont::Normal);
    return font;
}

int Button::widthBesideText(bool textShown) const {
    const Shape shape = shapeOf(m_face);
    const bool hasMenu = m_menu != nullptr;
    int width = shape.padding + (hasMenu ? shape.gap + shape.chevron + shape.menuPadding : shape.padding);
    if (!m_symbol.isEmpty()) {
        width += m_symbolSize + (textShown && !m_label.isEmpty() ? shape.gap : 0);
    }
    if (m_prefixShown && !m_prefix.isEmpty()) {
        width += Drawing::textWidth(fontFor(shape.text), m_prefix);
    }
    return width;
}

int Button::fullTextWidth() const {
    QFont font = textFont();
    // What can be on keeps the width of its heavier text, so that switching moves nothing.
    if (isCheckable()) {
        font.setWeight(QFont::DemiBold);
    }
    const int width = Drawing::textWidth(font, m_label);
    return m_longestText > 0 ? std::min(width, m_longestText) : width;
}

int Button::widthWithText(bool shown) const { return widthBesideText(shown) + (shown ? fullTextWidth() : 0); }

QSize Button::sizeHint() const {
    const Shape shape = shapeOf(m_face);
    return {widthWithText(m_textShown), std::max(shape.height, QFontMetrics(fontFor(shape.text)).height())};
}

QSize Button::minimumSizeHint() const {
    const QSize whole = sizeHint();
    return m_narrowest > 0 ? QSize(std::min(m_narrowest, whole.width()), whole.height()) : whole;
}

void Button::nextCheckState() {
    if (group() != nullptr) {
        QAbstractButton::nextCheckState();
    }
}

// Its menu goes with it, or would stay over a window that has no use for it any more.
void Button::hideEvent(QHideEvent* event) {
    if (m_menu != nullptr) {
        m_menu->close();
    }
    QAbstractButton::hideEvent(event);
}

void Button::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isSpaceOrDown = event->key() == Qt::Key_Space || event->key() == Qt::Key_Down;
    if (isReturn || (m_menu != nullptr && isSpaceOrDown)) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void Button::mousePressEvent(QMouseEvent* event) {
    // A menu opens when the button goes down, so that an item can be chosen in one movement.
    if (m_menu != nullptr && event->button() == Qt::LeftButton) {
        m_menu->open();
    } else {
        QAbstractButton::mousePressEvent(event);
    }
}

Button::Colors Button::faceColors() const {
    const Palette& palette = m_theme.palette();
    const Colors plain{palette.control, palette.controlBorder, palette.text2, palette.text2, palette.text};
    switch (m_face) {
        case Face::segment:
            return isOn() ? Colors{palette.segmentOn, palette.controlBorder, palette.text, palette.text, palette.text}
                          : Colors{Qt::transparent, Qt::transparent, palette.text2, palette.text2, palette.text2};
        case Face::warning:
            return {palette.changed.fill,
                    palette.changed.edge,
                    palette.changed.text,
                    palette.changed.text,
                    palette.changed.text};
        case Face::flat:
            return {Qt::transparent, Qt::transparent, palette.text2, palette.text2, palette.text2};
        case Face::inCard:
            return {Qt::transparent,
                    Qt::transparent,
                    palette.text2,
                    palette.text2,
                    m_prefix.isEmpty() ? palette.text2 : palette.text};
        case Face::bordered:
        case Face::tile:
            return isOn()
                       ? Colors{palette.accentTint, palette.accentLine, palette.accent, palette.accent, palette.accent}
                       : plain;
    }
    Q_UNREACHABLE();
}

Button::Colors Button::colors() const {
    const Palette& palette = m_theme.palette();
    Colors colors = faceColors();
    const bool isBare = m_face == Face::flat || m_face == Face::inCard;
    if (!isEnabled()) {
        colors = {Qt::transparent,
                  isBare ? QColor(Qt::transparent) : palette.border,
                  palette.disabled,
                  palette.disabled,
                  palette.disabled};
    } else if (isBare && (isActive() || isHovered())) {
        colors.face = palette.pressed;
        colors.symbol = palette.text;
        colors.text = palette.text;
    } else if (m_face == Face::segment || isOn()) {
        colors.text = isHovered() && !isOn() ? palette.text : colors.text;
    } else if (m_face == Face::warning) {
        colors.border = isActive() || isHovered() ? palette.changed.text : colors.border;
    } else if (isActive() || isHovered()) {
        colors.face = isActive() ? palette.controlPressed : palette.controlHover;
        colors.border = palette.field;
    }
    return colors;
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Colors shown = colors();
    const bool isOpenNote = m_face == Face::warning && isActive();
    Drawing::box(painter, rect(), shapeOf(m_face).radius, shown.face, shown.border, isOpenNote ? 2 : 1);
    paintContents(painter, shown);
}

void Button::paintContents(QPainter& painter, const Colors& colors) const {
    const Shape shape = shapeOf(m_face);
    // In the middle of what the heavier text of a button that is on would need.
    const bool hasSlack = m_textShown && isCheckable();
    int x = shape.padding + (hasSlack ? (fullTextWidth() - Drawing::textWidth(textFont(), m_label)) / 2 : 0);
    const auto place = [this](int left, int width) {
        return QStyle::visualRect(layoutDirection(), rect(), QRect(left, 0, width, height()));
    };
    if (!m_symbol.isEmpty()) {
        Drawing::symbol(painter, m_symbol, colors.symbol, place(x, m_symbolSize), m_symbolSize);
        x += m_symbolSize + shape.gap;
    }
    if (m_prefixShown && !m_prefix.isEmpty()) {
        const QFont font = fontFor(shape.text);
        const int width = Drawing::textWidth(font, m_prefix);
        Drawing::text(painter, place(x, width), m_prefix, font, colors.prefix);
        x += width;
    }
    if (m_textShown) {
        Drawing::text(painter, place(x, width() - widthBesideText(true)), m_label, textFont(), colors.text);
    }
    if (m_menu != nullptr) {
        const int left = width() - shape.menuPadding - shape.chevron;
        Drawing::symbol(
            painter, QStringLiteral("chevron.down"), colors.symbol, place(left, shape.chevron), shape.chevron);
    }
}

}  // namespace corvale
