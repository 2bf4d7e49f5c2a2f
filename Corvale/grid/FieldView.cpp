#include "Corvale/grid/FieldView.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/GridDrawing.h"
#include "Corvale/grid/GridFonts.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/ValueText.h"
#include "Corvale/style/Shapes.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

constexpr int paddingY = 6;
constexpr int nameGap = 2;
constexpr int keyIcon = 11;
constexpr int keyGap = 5;
constexpr int arrowColumn = 22;
constexpr int arrowIcon = 12;
constexpr int barWidth = 3;
constexpr int hairline = 1;
constexpr qreal markShare = 0.6;

QFont nameFont(const QFont& base, bool isChanged) {
    QFont font = fontFor(TextRole::caption, base);
    font.setWeight(isChanged ? QFont::DemiBold : QFont::Normal);
    return font;
}

int nameHeight(const QFont& font) { return QFontMetrics(font).height() + 1; }

int valueWidth(int width) { return std::max(1, (width - 2 * FieldView::padding - arrowColumn) / 2); }

int heightAround(const QFont& nameFont) { return 2 * paddingY + nameHeight(nameFont) + nameGap + hairline; }

ValueText::Look lookOf(const Palette& palette, const RowField& field, const FieldValue& value, bool isAfter) {
    ValueText::Look look;
    look.color = palette.text;
    look.noteColor = palette.text3;
    if (field.kind == RowField::Kind::changed) {
        look.color = isAfter ? palette.text : palette.changed.text;
        look.markFill = GridDrawing::mixed(palette.changed.edge, palette.changed.fill, markShare);
        look.isBold = isAfter;
    } else if (field.kind == RowField::Kind::formatOnly) {
        look.color = palette.formatOnly.text;
        look.markFill = GridDrawing::mixed(palette.formatOnly.edge, palette.formatOnly.fill, markShare);
        look.isUnderlined = isAfter;
    }
    look.isStruck = field.kind != RowField::Kind::plain && !isAfter;
    if (value.isNote) {
        look.color = palette.text3;
        look.isItalic = true;
        look.isBold = look.isStruck = look.isUnderlined = false;
    }
    return look;
}

// Of what a value reads like, but for visible spaces and notes of what is left out.
int estimatedValueHeight(const QFont& font, const RowField& field, const std::optional<std::string_view>& text,
                         int width) {
    if (text && !text->empty()) {
        return ValueText::estimatedHeight(font, *text, width);
    }
    return ValueText::estimatedHeight(font, FieldValue::note(field, text.has_value()).toStdString(), width);
}

}  // namespace

FieldView::FieldView(const Theme& theme, QWidget* parent)
    : QWidget(parent), m_theme(theme), m_before(new ValueText(this)), m_after(new ValueText(this)) {}

void FieldView::setField(const RowField& field) {
    m_field = field;
    m_field.before.reset();
    m_field.after.reset();
    const FieldValues values = FieldValues::of(field);
    m_before->setValue(values.before, lookOf(m_theme.palette(), field, values.before, false));
    m_after->setValue(values.after, lookOf(m_theme.palette(), field, values.after, true));
    m_before->setAccessibleName(field.name + u' ' + RowTexts::sideName(DuplicateKey::Side::before));
    m_after->setAccessibleName(field.name + u' ' + RowTexts::sideName(DuplicateKey::Side::after));
    update();
}

int FieldView::heightIn(int width) {
    const int column = valueWidth(width);
    const int values = std::max(m_before->heightIn(column), m_after->heightIn(column));
    const int top = paddingY + nameHeight(nameFont(font(), true)) + nameGap;
    m_before->setGeometry(padding, top, column, values);
    m_after->setGeometry(afterLeft(width), top, column, values);
    return heightAround(nameFont(font(), true)) + values;
}

int FieldView::afterLeft(int width) { return padding + valueWidth(width) + arrowColumn; }

FieldView::Fonts::Fonts(const QFont& base)
    : name(fontFor(TextRole::caption, base)),
      plain(fontFor(TextRole::body, base)),
      bold(fontFor(TextRole::bodyBold, base)) {}

int FieldView::estimatedHeight(const Fonts& fonts, const RowField& field, int width) {
    const int column = valueWidth(width);
    const QFont& afterFont = field.kind == RowField::Kind::changed ? fonts.bold : fonts.plain;
    const int before = estimatedValueHeight(fonts.plain, field, field.before, column);
    const int after = estimatedValueHeight(afterFont, field, field.after, column);
    return heightAround(fonts.name) + std::max(before, after);
}

QRect FieldView::nameArea() const {
    const int left = padding + (m_field.isKey ? keyIcon + keyGap : 0);
    return {left, paddingY, std::max(0, width() - left - padding), nameHeight(nameFont(font(), true))};
}

void FieldView::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    QColor nameColor = palette.text2;
    QColor line = palette.line;
    if (m_field.kind != RowField::Kind::plain) {
        const ChangeColors& colors = m_field.kind == RowField::Kind::changed ? palette.changed : palette.formatOnly;
        painter.fillRect(rect(), colors.fill);
        painter.fillRect(0, 0, barWidth, height(), colors.mark);
        nameColor = colors.text;
        line = colors.edge;
        const QRect arrow(
            afterLeft(width()) - arrowColumn + (arrowColumn - arrowIcon) / 2, m_after->y() + 3, arrowIcon, arrowIcon);
        Shapes::symbol(painter, QStringLiteral("arrow.right"), colors.text, arrow);
    }
    painter.fillRect(0, height() - hairline, width(), hairline, line);
    const QRect area = nameArea();
    if (m_field.isKey) {
        const QRect icon(padding, area.top() + (area.height() - keyIcon) / 2, keyIcon, keyIcon);
        Shapes::symbol(painter, QStringLiteral("key"), nameColor, icon);
    }
    const GridFont font(nameFont(this->font(), m_field.kind != RowField::Kind::plain));
    painter.setPen(nameColor);
    font.draw(painter,
              QPointF(area.left(), font.baseline(area.top(), area.height())),
              font.elided(m_field.name, area.width()));
}

bool FieldView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const GridFont font(nameFont(this->font(), m_field.kind != RowField::Kind::plain));
    const bool isCut = font.width(m_field.name) > nameArea().width();
    const bool isOnName = nameArea().contains(help->pos());
    QToolTip::showText(help->globalPos(), isCut && isOnName ? CellText::toolTip(m_field.name) : QString(), this);
    return true;
}

}  // namespace corvale
