#include "Corvale/style/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QToolTip>
#include <utility>

#include "Corvale/style/ControlStyle.h"
#include "Corvale/style/StyleSheet.h"

namespace corvale {

namespace {

QPalette widgetPalette(const Palette& colors) {
    const std::pair<QPalette::ColorRole, QColor> roles[] = {
        {QPalette::Window, colors.window},       {QPalette::WindowText, colors.text},
        {QPalette::Base, colors.surface},        {QPalette::AlternateBase, colors.surface2},
        {QPalette::Text, colors.text},           {QPalette::PlaceholderText, colors.text3},
        {QPalette::Button, colors.control},      {QPalette::ButtonText, colors.text},
        {QPalette::BrightText, colors.onAccent}, {QPalette::Light, colors.surface},
        {QPalette::Midlight, colors.line},       {QPalette::Mid, colors.border},
        {QPalette::Dark, colors.field},          {QPalette::Shadow, colors.controlBorder},
        {QPalette::Highlight, colors.accent},    {QPalette::HighlightedText, colors.onAccent},
        {QPalette::Link, colors.accent},         {QPalette::LinkVisited, colors.accent},
        {QPalette::ToolTipBase, colors.toolTip}, {QPalette::ToolTipText, colors.onToolTip},
    };
    QPalette palette;
    for (const auto& [role, color] : roles) {
        palette.setColor(role, color);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
        palette.setColor(QPalette::Disabled, role, colors.disabled);
    }
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colors.accentTint);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colors.text);
    return palette;
}

// The list of a combo box asks for the one of menus by name.
QPalette menuPalette(const Palette& colors) {
    QPalette palette = widgetPalette(colors);
    palette.setColor(QPalette::Window, colors.menu);
    palette.setColor(QPalette::Base, colors.menu);
    return palette;
}

}  // namespace

Theme::Theme(QApplication& application)
    : m_application(application),
      m_scheme(schemeOf(QApplication::palette())),
      m_style(new ControlStyle(palette())),
      m_focusRing(application) {
    QApplication::setStyle(m_style);
    apply();
    application.installEventFilter(this);
}

Scheme Theme::scheme() const { return m_scheme; }

const Palette& Theme::palette() const { return Palette::forScheme(m_scheme); }

bool Theme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &m_application && event->type() == QEvent::ApplicationPaletteChange) {
        const Scheme now = schemeOf(QApplication::palette());
        const bool isOther = std::exchange(m_scheme, now) != now;
        // Colours of the desktop take the place of ours, also where it stays as light or dark as it was. Our own come
        // by here too, and change nothing.
        if (isOther || QApplication::palette("QWidget") != widgetPalette(palette())) {
            apply();
        }
        if (isOther) {
            Q_EMIT changed();
        }
    }
    return false;
}

void Theme::apply() {
    if (m_style) {
        m_style->setPalette(palette());
    }
    const QPalette widgets = widgetPalette(palette());
    QApplication::setPalette(widgets, "QWidget");
    QApplication::setPalette(menuPalette(palette()), "QMenu");
    QToolTip::setPalette(widgets);
    m_application.setStyleSheet(StyleSheet::make(palette()));
}

}  // namespace corvale
