#include "Corvale/style/ControlStyle.h"

#include <QFocusFrame>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "Corvale/style/FocusRing.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

constexpr int controlPadding = 10;
constexpr int comboArrowWidth = 7 + Metrics::chevron + 7;

int menuItemHeight(const QStyleOptionMenuItem& item, int contents) {
    if (item.menuItemType != QStyleOptionMenuItem::Separator) {
        // A larger system font makes larger items.
        return std::max(Metrics::menuItemHeight, contents + 9);
    }
    return item.text.isEmpty() ? Metrics::menuSeparatorHeight : std::max(Metrics::menuSectionHeight, contents + 9);
}

}  // namespace

ControlStyle::ControlStyle(const Palette& palette) : QProxyStyle(QStringLiteral("Fusion")), m_palette(palette) {}

void ControlStyle::setPalette(const Palette& palette) { m_palette = palette; }

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const QColor& symbolColor = option->state.testFlag(State_Enabled) ? m_palette.text2 : m_palette.disabled;
    switch (element) {
        case PE_FrameFocusRect:
            // The ring is drawn around controls instead.
            return;
        case PE_IndicatorCheckBox:
            return drawCheckBox(*option, *painter);
        case PE_IndicatorArrowDown:
            return Shapes::symbol(*painter,
                                  QStringLiteral("chevron.down"),
                                  symbolColor,
                                  Shapes::centered(Metrics::chevron, option->rect));
        case PE_PanelMenu:
            return painter->fillRect(option->rect, m_palette.menu);
        case PE_FrameMenu:
            return Shapes::box(*painter, option->rect, Metrics::menuRadius, Qt::NoBrush, m_palette.popupBorder);
        default:
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuItem && item != nullptr) {
        drawMenuItem(*item, *painter);
    } else if (element == CE_FocusFrame) {
        drawFocusRing(*option, *painter, widget);
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
    const auto* comboBox = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && comboBox != nullptr && !comboBox->editable) {
        return drawComboBox(*comboBox, *painter);
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_MenuPanelWidth:
            return 1;
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return Metrics::menuPadding - 1;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
            return Metrics::checkBox;
        case PM_SmallIconSize:
        case PM_ButtonIconSize:
        case PM_ToolBarIconSize:
            return Metrics::icon;
        case PM_FocusFrameHMargin:
        case PM_FocusFrameVMargin:
            return Metrics::focusRing + Metrics::focusRingGap;
        case PM_SplitterWidth:
            return 1;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                   const QWidget* widget) const {
    const QRect& whole = option->rect;
    if (control != CC_ComboBox || (part != SC_ComboBoxArrow && part != SC_ComboBoxEditField)) {
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
    const QRect arrow(whole.right() + 1 - comboArrowWidth, whole.top(), comboArrowWidth, whole.height());
    const QRect text = whole.adjusted(controlPadding, 0, -comboArrowWidth, 0);
    return visualRect(option->direction, whole, part == SC_ComboBoxArrow ? arrow : text);
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                     const QWidget* widget) const {
    if (type == CT_ComboBox) {
        // Wide enough for its list, which is a menu.
        return {1 + Metrics::menuTextLeft + contents.width() + Metrics::menuTextRight + 1,
                std::max(Metrics::controlHeight, contents.height() + 8)};
    }
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator && !item->text.isEmpty()) {
        // The menu knows nothing of what a separator says.
        const int text = QFontMetrics(fontFor(TextRole::caption, item->font)).horizontalAdvance(item->text);
        return {Metrics::menuTextLeft + text + Metrics::menuTextRight,
                menuItemHeight(*item, item->fontMetrics.height())};
    }
    // The menu itself adds the width of its longest shortcut.
    const int gap = item->text.contains(u'\t') ? Metrics::menuShortcutGap : 0;
    return {Metrics::menuTextLeft + contents.width() + gap + Metrics::menuTextRight,
            menuItemHeight(*item, item->fontMetrics.height())};
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    switch (hint) {
        case SH_Menu_SupportsSections:
        case SH_Menu_Scrollable:  // or hundreds of columns would become a wall of items, cut off at the screen's edge
        case SH_FocusFrame_AboveWidget:
            return 1;
        case SH_FocusFrame_Mask:  // the ring of a check box lies within it
        case SH_EtchDisabledText:
        case SH_Widget_Animation_Duration:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

void ControlStyle::drawCheckBox(const QStyleOption& option, QPainter& painter) const {
    const bool enabled = option.state.testFlag(State_Enabled);
    const bool filled = option.state.testFlag(State_On) || option.state.testFlag(State_NoChange);
    const QRect box = Shapes::centered(Metrics::checkBox, option.rect);
    const QColor& fill = !enabled ? m_palette.window : filled ? m_palette.accent : m_palette.surface;
    const QColor& edge = !enabled ? m_palette.border : filled ? m_palette.accent : m_palette.field;
    const QColor& mark = enabled ? m_palette.onAccent : m_palette.disabled;
    Shapes::box(painter, box, Metrics::checkBoxRadius, fill, edge);
    if (option.state.testFlag(State_On)) {
        Shapes::symbol(painter, QStringLiteral("checkmark"), mark, Shapes::centered(Metrics::chevron, box));
    } else if (option.state.testFlag(State_NoChange)) {
        painter.fillRect(box.adjusted(4, 7, -4, -7), mark);
    }
}

// As the style sheet has buttons.
void ControlStyle::drawComboBox(const QStyleOptionComboBox& option, QPainter& painter) const {
    const bool enabled = option.state.testFlag(State_Enabled);
    const bool open = option.state.testFlag(State_On) || option.state.testFlag(State_Sunken);
    const bool hover = option.state.testFlag(State_MouseOver);
    const QColor& edge = !enabled ? m_palette.border : open || hover ? m_palette.field : m_palette.controlBorder;
    const QColor& face = open ? m_palette.controlPressed : hover ? m_palette.controlHover : m_palette.control;
    Shapes::box(painter, option.rect, Metrics::controlRadius, enabled ? QBrush(face) : Qt::NoBrush, edge);
    const QRect arrow = proxy()->subControlRect(CC_ComboBox, &option, SC_ComboBoxArrow, nullptr);
    Shapes::symbol(painter,
                   QStringLiteral("chevron.down"),
                   enabled ? m_palette.text2 : m_palette.disabled,
                   Shapes::centered(Metrics::chevron, arrow));
}

void ControlStyle::drawFocusRing(const QStyleOption& option, QPainter& painter, const QWidget* frame) const {
    const auto* focusFrame = qobject_cast<const QFocusFrame*>(frame);
    const QWidget* control = focusFrame == nullptr ? nullptr : focusFrame->widget();
    if (control == nullptr) {
        return;
    }
    const int reach = Metrics::focusRing + Metrics::focusRingGap;
    const QRect ring = ringedPart(*control).translated(reach, reach).adjusted(-reach, -reach, reach, reach);
    Shapes::box(painter,
                ring & option.rect,
                ringedRadius(*control) + reach,
                Qt::NoBrush,
                QPen(m_palette.accent, Metrics::focusRing));
}

void ControlStyle::drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter) const {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return drawMenuSeparator(item, painter);
    }
    const bool enabled = item.state.testFlag(State_Enabled);
    const bool highlighted = enabled && item.state.testFlag(State_Selected);
    const QColor& color = !enabled ? m_palette.disabled : highlighted ? m_palette.onAccent : m_palette.text;
    if (highlighted) {
        Shapes::box(painter, item.rect, Metrics::controlRadius, m_palette.accent, Qt::NoPen);
    }
    const auto place = [&item](int left, int side) {
        const QRect square(item.rect.left() + left, item.rect.top(), side, item.rect.height());
        return Shapes::centered(side, visualRect(item.direction, item.rect, square));
    };
    if (item.checked) {
        Shapes::symbol(painter, QStringLiteral("checkmark"), color, place(Metrics::menuCheckLeft, Metrics::menuCheck));
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRect square = place(item.rect.width() - Metrics::menuTextRight - Metrics::chevron, Metrics::chevron);
        const QPixmap onward = Icons::pixmap(
            QStringLiteral("chevron.right"), color, square.width(), painter.device()->devicePixelRatioF());
        const bool mirrored = item.direction == Qt::RightToLeft;
        painter.drawPixmap(square.topLeft(), mirrored ? onward.transformed(QTransform::fromScale(-1, 1)) : onward);
    }
    painter.setPen(color);
    drawMenuText(item, painter, highlighted || !enabled);
}

// An item's text, and after a tab its shortcut. In `onePen`, or else the shortcut as secondary text. No icons: none of
// our items has one, and those that Qt gives to a text field's menu would be the only ones.
void ControlStyle::drawMenuText(const QStyleOptionMenuItem& item, QPainter& painter, bool onePen) const {
    const qsizetype tab = item.text.indexOf(u'\t');
    const QRect place =
        visualRect(item.direction, item.rect, item.rect.adjusted(Metrics::menuTextLeft, 0, -Metrics::menuTextRight, 0));
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine |
                      (proxy()->styleHint(SH_UnderlineShortcut, &item, nullptr, nullptr) != 0 ? Qt::TextShowMnemonic
                                                                                              : Qt::TextHideMnemonic);
    painter.setFont(item.font);
    painter.drawText(place, flags | int(visualAlignment(item.direction, Qt::AlignLeft)), item.text.left(tab));
    if (tab < 0) {
        return;
    }
    if (!onePen) {
        painter.setPen(m_palette.text2);
    }
    painter.drawText(place, flags | int(visualAlignment(item.direction, Qt::AlignRight)), item.text.mid(tab + 1));
}

void ControlStyle::drawMenuSeparator(const QStyleOptionMenuItem& item, QPainter& painter) const {
    if (item.text.isEmpty()) {
        const int y = item.rect.center().y();
        painter.fillRect(item.rect.left() + 8, y, item.rect.width() - 16, 1, m_palette.border);
        return;
    }
    painter.setFont(fontFor(TextRole::caption, item.font));
    painter.setPen(m_palette.text2);
    const QRect place =
        visualRect(item.direction, item.rect, item.rect.adjusted(Metrics::menuTextLeft, 0, -Metrics::menuTextRight, 0));
    painter.drawText(place, int(visualAlignment(item.direction, Qt::AlignLeft) | Qt::AlignVCenter), item.text);
}

}  // namespace corvale
