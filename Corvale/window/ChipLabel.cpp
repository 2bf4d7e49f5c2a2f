#include "Corvale/window/ChipLabel.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

constexpr int gap = 6;
constexpr int detailGap = 8;   // on both sides of the line before the detail
constexpr int endPadding = 2;  // more than at the start

QString symbolOf(ChipLabel::Kind kind) {
    switch (kind) {
        case ChipLabel::Kind::added:
            return QStringLiteral("plus.circle.fill");
        case ChipLabel::Kind::removed:
            return QStringLiteral("minus.circle.fill");
        case ChipLabel::Kind::changed:
            return QStringLiteral("pencil.circle.fill");
        case ChipLabel::Kind::unchanged:
            return QStringLiteral("equal.circle");
    }
    Q_UNREACHABLE();
}

}  // namespace

ChipLabel::ChipLabel(Kind kind, Theme& theme, QWidget* parent)
    : QAbstractButton(parent), m_kind(kind), m_theme(theme), m_symbol(symbolOf(kind)) {
    switch (kind) {
        case Kind::added:
            m_title = tr("Added");
            break;
        case Kind::removed:
            m_title = tr("Removed");
            break;
        case Kind::changed:
            m_title = tr("Changed");
            break;
        case Kind::unchanged:
            m_title = tr("Unchanged");
            break;
    }
    setCheckable(true);
    setProperty("cornerRadius", Metrics::chipRadius);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    setSelected(false);
}

QColor ChipLabel::color() const {
    const Palette& palette = m_theme.palette();
    switch (m_kind) {
        case Kind::added:
            return palette.added.text;
        case Kind::removed:
            return palette.removed.text;
        case Kind::changed:
            return palette.changed.text;
        case Kind::unchanged:
            return palette.text2;
    }
    Q_UNREACHABLE();
}

void ChipLabel::setCount(std::int64_t count, std::optional<QString> detail) {
    m_count = count;
    m_detail = std::move(detail);
    setAccessibleName(m_title + u' ' + countText() + (m_detail ? QStringLiteral(", ") + *m_detail : QString()));
    updateGeometry();
    update();
}

void ChipLabel::setSelected(bool selected) {
    setChecked(selected);
    const QString help = selected                    ? tr("Show every change again")
                         : m_kind == Kind::unchanged ? tr("Show every row, changed or not")
                                                     : tr("Show only these rows");
    setToolTip(help);
    setAccessibleDescription(help);
}

void ChipLabel::setQuiet(bool quiet) {
    m_quiet = quiet;
    updateGeometry();
    update();
}

QString ChipLabel::countText() const { return Wording::count(m_count); }

QFont ChipLabel::titleFont(bool selected) const {
    QFont font = fontFor(TextRole::body);
    font.setWeight(selected ? QFont::DemiBold : m_quiet ? QFont::Normal : QFont::Medium);
    return font;
}

QFont ChipLabel::countFont() const {
    if (!m_quiet) {
        return fontFor(TextRole::chipCount);
    }
    QFont font = fontFor(TextRole::body);
    font.setWeight(QFont::Medium);
    return font;
}

int ChipLabel::padding() const { return m_quiet ? 6 : 9; }

QSize ChipLabel::sizeHint() const {
    // As wide as with the heavier title, so that a click moves nothing.
    int width = padding() + Metrics::icon + gap + Drawing::textWidth(titleFont(!m_quiet), m_title) + gap +
                Drawing::textWidth(countFont(), countText()) + padding() + (m_quiet ? 0 : endPadding);
    if (m_detail) {
        width += 2 * detailGap + Drawing::textWidth(fontFor(TextRole::secondary), *m_detail);
    }
    return {width, std::max(Metrics::chipHeight, QFontMetrics(countFont()).height())};
}

void ChipLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void ChipLabel::paintFace(QPainter& painter) const {
    const Palette& palette = m_theme.palette();
    const bool isHovered = underMouse() && isEnabled();
    if (selected()) {
        const QColor fill = m_kind == Kind::added     ? palette.added.fill
                            : m_kind == Kind::removed ? palette.removed.fill
                            : m_kind == Kind::changed ? palette.changed.fill
                                                      : palette.pressed;
        Drawing::box(painter, rect(), Metrics::chipRadius, fill, color(), 2);
    } else if (isDown()) {
        Drawing::box(painter, rect(), Metrics::chipRadius, palette.pressed, palette.field);
    } else if (isHovered) {
        Drawing::box(painter, rect(), Metrics::chipRadius, palette.surface2, palette.field);
    } else if (!m_quiet) {
        Drawing::box(painter, rect(), Metrics::chipRadius, palette.surface, palette.border);
    }
}

void ChipLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFace(painter);
    const Palette& palette = m_theme.palette();
    const QColor ink = m_quiet && !selected() ? palette.text2 : palette.text;
    // In the middle of what the heavier title of a selected chip would need.
    int x = padding() + Drawing::textWidth(titleFont(!m_quiet), m_title) / 2 -
            Drawing::textWidth(titleFont(selected()), m_title) / 2;
    const auto next = [this, &x](int width) {
        const QRect part = QStyle::visualRect(layoutDirection(), rect(), QRect(x, 0, width, height()));
        x += width;
        return part;
    };
    const auto write = [&painter, &next](const QString& text, const QFont& font, const QColor& color) {
        Drawing::text(painter, next(Drawing::textWidth(font, text)), text, font, color, Qt::ElideNone);
    };
    Drawing::symbol(
        painter, m_symbol, m_quiet && !selected() ? palette.text3 : color(), next(Metrics::icon), Metrics::icon);
    x += gap;
    write(m_title, titleFont(selected()), ink);
    x += gap;
    write(countText(), countFont(), ink);
    if (m_detail) {
        x += detailGap;
        painter.fillRect(next(1).adjusted(0, 8, 0, -8), palette.border);
        x += detailGap - 1;
        write(*m_detail, fontFor(TextRole::secondary), palette.text2);
    }
}

}  // namespace corvale
