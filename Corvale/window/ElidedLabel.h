#pragma once

#include <QString>
#include <QWidget>

#include "Corvale/style/Typography.h"

namespace corvale {

class Theme;

// One line of text, elided where it is too narrow; its tooltip is the whole text then.
class ElidedLabel : public QWidget {
public:
    // Secondary text is in its colour too. The theme outlives the label.
    ElidedLabel(TextRole role, Theme& theme, QWidget* parent);

    void setText(const QString& text);
    const QString& text() const { return m_text; }
    void setElided(Qt::TextElideMode mode) { m_elided = mode; }
    // In pixels; higher where the font asks for it.
    void setLeastHeight(int height);
    // True draws it in the accent colour.
    void setHighlighted(bool highlighted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TextRole m_role;
    Theme& m_theme;
    QString m_text;
    Qt::TextElideMode m_elided = Qt::ElideRight;
    int m_leastHeight = 0;
    bool m_highlighted = false;
};

}  // namespace corvale
