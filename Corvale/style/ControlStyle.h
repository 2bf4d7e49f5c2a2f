#pragma once

#include <QProxyStyle>

#include "Corvale/style/Palette.h"

class QStyleOptionComboBox;
class QStyleOptionMenuItem;

namespace corvale {

// Fusion, with our own menus, combo boxes, check boxes, chevrons and focus rings: what has a symbol in a colour of the
// palette, or reaches over the edge of its control, is beyond a style sheet.
class ControlStyle : public QProxyStyle {
public:
    explicit ControlStyle(const Palette& palette);

    void setPalette(const Palette& palette);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;

private:
    void drawComboBox(const QStyleOptionComboBox& option, QPainter& painter) const;
    void drawCheckBox(const QStyleOption& option, QPainter& painter) const;
    void drawFocusRing(const QStyleOption& option, QPainter& painter, const QWidget* frame) const;
    void drawMenuItem(const QStyleOptionMenuItem& item, QPainter& painter) const;
    void drawMenuSeparator(const QStyleOptionMenuItem& item, QPainter& painter) const;
    void drawMenuText(const QStyleOptionMenuItem& item, QPainter& painter, bool onePen) const;

    Palette m_palette;
};

}  // namespace corvale
