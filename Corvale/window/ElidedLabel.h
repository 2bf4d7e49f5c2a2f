#pragma once

#include <QString>
#include <QWidget>

#include <cstdint>

namespace corvale {

class Theme;

// One line of text, elided where it is too narrow; its tooltip is the whole text then.
class ElidedLabel : public QWidget {
public:
    enum class Role : std::uint8_t { main, secondary };

    // `size` in pixels where the system's font has 13. The theme outlives the label.
    ElidedLabel(Role role, double size, QFont::Weight weight, Theme& theme, QWidget* parent);

    void setText(const QString& text);
    const QString& text() const { return m_text; }
    void setElided(Qt::TextElideMode mode) { m_elided = mode; }
    // True draws it in the accent colour.
    void setHighlighted(bool highlighted);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QFont labelFont() const;

    Role m_role;
    double m_size;
    QFont::Weight m_weight;
    Theme& m_theme;
    QString m_text;
    Qt::TextElideMode m_elided = Qt::ElideRight;
    bool m_highlighted = false;
};

}  // namespace corvale
