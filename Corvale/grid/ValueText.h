#pragma once

#include <QColor>
#include <QTextEdit>
#include <string_view>

#include "Corvale/grid/FieldValue.h"

namespace corvale {

// One value of the row details: wraps anywhere, can be selected and copied as it is in the file. As high as its text.
class ValueText : public QTextEdit {
    Q_OBJECT

public:
    struct Look {
        QColor color;
        QColor markFill;   // behind the stretch that differs
        QColor noteColor;  // of what says that something is left out
        bool isBold = false;
        bool isStruck = false;
        bool isUnderlined = false;
        bool isItalic = false;
    };

    explicit ValueText(QWidget* parent);

    void setValue(const FieldValue& value, const Look& look);
    // In a column of that width.
    int heightIn(int width);

    static int lineHeight(const QFont& font);
    // The height that a text will have, without reading one that is very long.
    static int estimatedHeight(const QFont& font, std::string_view text, int width);

protected:
    QMimeData* createMimeDataFromSelection() const override;

private:
    void setFormat(int begin, int end, const QTextCharFormat& format);

    FieldValue m_value;
};

}  // namespace corvale
