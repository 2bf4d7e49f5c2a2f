#pragma once

#include <QFont>
#include <QWidget>

#include "Corvale/grid/RowField.h"

namespace corvale {

class Theme;
class ValueText;

// One field of the row details: the column's name above its two values.
class FieldView : public QWidget {
    Q_OBJECT

public:
    struct Fonts {
        explicit Fonts(const QFont& base);
        QFont name;
        QFont plain;
        QFont bold;
    };

    // The theme outlives the view.
    FieldView(const Theme& theme, QWidget* parent);

    void setField(const RowField& field);
    // Lays the values out in that width.
    int heightIn(int width);
    ValueText& before() { return *m_before; }
    ValueText& after() { return *m_after; }

    // The height that a field will have, near enough to scroll by.
    static int estimatedHeight(const Fonts& fonts, const RowField& field, int width);
    // Where the After values begin, from the left of a field of that width.
    static int afterLeft(int width);
    static constexpr int padding = 14;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRect nameArea() const;

    const Theme& m_theme;
    RowField m_field;  // its values are not kept: they belong to the result
    ValueText* m_before;
    ValueText* m_after;
};

}  // namespace corvale
