#pragma once

#include <QAbstractButton>
#include <QString>
#include <cstdint>
#include <functional>

#include "Corvale/window/PopupMenu.h"

namespace corvale {

class Theme;

// A button of the window, painted by itself: plain, opening a menu, or showing whether something is on. Its checked
// state is only what setChecked() says, a click does not change it: it shows what the model has.
class Button : public QAbstractButton {
    Q_OBJECT

public:
    enum class Face : std::uint8_t {
        bordered,
        tile,     // a symbol alone, with a border
        flat,     // a symbol alone
        inCard,   // part of a line of small text
        segment,  // of several in a frame
        warning,  // a note that opens something
    };

    // The theme outlives the button.
    Button(Face face, Theme& theme, QWidget* parent);

    // The label: `prefix` in a quiet colour, then `text`. Elided at the right where the button is too narrow.
    void setLabel(const QString& text, const QString& prefix = {});
    const QString& label() const { return m_label; }
    // False leaves the prefix, or the text beside a symbol, to the accessible name.
    void setPrefixShown(bool shown);
    void setTextShown(bool shown);
    // The width that the text takes at most, in pixels.
    void setLongestText(int width);
    // A symbol before the text, and its size in pixels.
    void setSymbol(const QString& name, int size);
    // Gives the button a menu, which opens at a click. `fill` adds its items.
    void setMenu(PopupMenu::Checking checking, std::function<void(PopupMenu&)> fill);
    // Null when it has none; a child of the button.
    PopupMenu* menu() const { return m_menu; }
    // The tooltip, which is also the accessible description.
    void setHelp(const QString& help);

    QSize sizeHint() const override;
    // The preferred width if the text beside the symbol were shown, or not.
    int widthWithText(bool shown) const;
    // As narrow as setNarrowest() allows; by default no narrower than the whole label.
    QSize minimumSizeHint() const override;
    void setNarrowest(int width);

protected:
    // Of several in a group, Qt has the others give way.
    void nextCheckState() override;
    void hideEvent(QHideEvent* event) override;
    // Return does what a click does, and so does Down where there is a menu.
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    struct Colors {
        QColor face;
        QColor border;
        QColor symbol;
        QColor prefix;
        QColor text;
    };

    Colors colors() const;
    Colors faceColors() const;
    QFont textFont() const;
    bool isOn() const { return isChecked() && isEnabled(); }
    bool isActive() const { return isDown() && isEnabled(); }
    bool isHovered() const { return underMouse() && isEnabled(); }
    int widthBesideText(bool textShown) const;
    int fullTextWidth() const;
    void paintContents(QPainter& painter, const Colors& colors) const;

    Face m_face;
    Theme& m_theme;
    PopupMenu* m_menu = nullptr;
    QString m_label;
    QString m_prefix;
    QString m_symbol;
    int m_symbolSize = 0;
    int m_longestText = 0;  // 0: any
    int m_narrowest = 0;    // 0: as wide as the label
    bool m_prefixShown = true;
    bool m_textShown = true;
};

}  // namespace corvale
