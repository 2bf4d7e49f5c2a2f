#pragma once

#include <QColor>
#include <QString>
#include <QWidget>

#include "Corvale/style/Typography.h"

namespace corvale {

struct Palette;
class Theme;

// A symbol and a line of text in one colour; the text is elided where it is too narrow.
class SymbolLabel : public QWidget {
public:
    struct Look {
        QString symbol;  // empty: the text alone
        int symbolSize;  // in pixels
        TextRole text;
        int padding;  // left and right, in pixels
        QColor (*color)(const Palette& palette);
        QColor (*textColor)(const Palette& palette);  // null: that of the symbol
        QColor (*fill)(const Palette& palette);       // of a box behind it; null: none
    };

    // The theme outlives the label.
    SymbolLabel(Look look, const QString& text, Theme& theme, QWidget* parent);

    void setText(const QString& text);
    const QString& text() const { return m_text; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int textLeft() const;

    Look m_look;
    QString m_text;
    Theme& m_theme;
};

}  // namespace corvale
