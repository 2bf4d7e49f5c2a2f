#include "Corvale/grid/InspectorHead.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QResizeEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/FieldView.h"
#include "Corvale/grid/GridDrawing.h"
#include "Corvale/grid/GridFonts.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/ValueText.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Icons.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

using RowSide = DuplicateKey::Side;

constexpr int paddingX = FieldView::padding;
constexpr int paddingTop = 11;
constexpr int paddingBottom = 10;
constexpr int statusIcon = 14;
constexpr std::size_t keyEndCharacters = 480;  // both ends have room in a tooltip
constexpr int mostSummaryLines = 8;
constexpr int numberGap = 14;
constexpr int numberLineGap = 1;
constexpr int titlePadding = 12;  // above and below the titles together

void setColor(QLabel& label, const QColor& color) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
}

}  // namespace

InspectorHead::InspectorHead(AppModel& model, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_key(new QLabel(this)),
      m_symbol(new QLabel(this)),
      m_status(new QLabel(this)),
      m_before(new QLabel(this)),
      m_after(new QLabel(this)),
      m_summary(new ValueText(this)) {
    for (QLabel* label : {m_key, m_status, m_before, m_after}) {
        label->setTextFormat(Qt::PlainText);
    }
    for (QLabel* label : {m_before, m_after}) {
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    m_key->setMinimumWidth(1);
    m_summary->setAccessibleName(tr("Changes"));
    updateFonts();
    addRows();
}

void InspectorHead::addRows() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(paddingX, paddingTop, paddingX, paddingBottom + titlesHeight());
    layout->setSpacing(0);
    auto* keyRow = new QHBoxLayout;
    keyRow->setSpacing(5);
    keyRow->addWidget(m_key, 1);
    keyRow->addWidget(m_symbol);
    keyRow->addWidget(m_status);
    layout->addLayout(keyRow);
    m_numbers = new QBoxLayout(QBoxLayout::LeftToRight);
    m_numbers->addWidget(m_before, 0, Qt::AlignLeft);
    m_numbers->addWidget(m_after, 1, Qt::AlignLeft);
    layout->addSpacing(3);
    layout->addLayout(m_numbers);
    layout->addSpacing(7);
    layout->addWidget(m_summary);
}

void InspectorHead::refresh() {
    const DiffResult& result = *m_model.result();
    const DiffRow row = result.rows[static_cast<std::size_t>(*m_model.selectedRow())];
    m_keyText = RowTexts::title(result, row, keyEndCharacters);
    m_before->setText(RowTexts::heading(result, row, RowSide::before));
    m_after->setText(RowTexts::heading(result, row, RowSide::after));
    updateColors();
    showStatus(row);
    showChanges(result, row);
    fitNumbers();
    fitSummary();
    elideKey();
}

QString InspectorHead::status() const { return m_status->text(); }

QString InspectorHead::beforeNumber() const { return m_before->text(); }

QString InspectorHead::afterNumber() const { return m_after->text(); }

QString InspectorHead::summary() const { return m_summary->toPlainText(); }

void InspectorHead::elideKey() {
    const QString shown = m_key->fontMetrics().elidedText(m_keyText, Qt::ElideMiddle, m_key->width());
    m_key->setText(shown);
    m_key->setToolTip(shown == m_keyText ? QString() : CellText::toolTip(m_keyText));
    m_key->setAccessibleName(m_keyText);
}

void InspectorHead::updateFonts() {
    m_key->setFont(fontFor(TextRole::detailsKey, font()));
    QFont status = fontFor(TextRole::secondary, font());
    m_before->setFont(status);
    m_after->setFont(status);
    m_summary->setFont(status);
    status.setWeight(QFont::DemiBold);
    m_status->setFont(status);
}

void InspectorHead::updateColors() {
    const Palette& palette = m_theme.palette();
    setColor(*m_key, palette.text);
    setColor(*m_before, palette.text2);
    setColor(*m_after, palette.text2);
    update();
}

void InspectorHead::showStatus(const DiffRow& row) {
    const QColor color = GridDrawing::statusColor(m_theme.palette(), row.status);
    m_status->setText(RowTexts::statusWord(row.status));
    setColor(*m_status, color);
    m_symbol->setPixmap(Icons::pixmap(RowTexts::statusSymbol(row.status), color, statusIcon, devicePixelRatioF()));
}

void InspectorHead::showChanges(const DiffResult& result, const DiffRow& row) {
    m_summaryText = RowTexts::summary(result, row);
    m_summary->setVisible(!row.changes.empty());
}

void InspectorHead::fitNumbers() {
    const int needed = m_before->sizeHint().width() + numberGap + m_after->sizeHint().width();
    const bool fit = needed <= width() - 2 * paddingX;
    m_numbers->setDirection(fit ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_numbers->setSpacing(fit ? numberGap : numberLineGap);
}

// What is copied is all of it: the sign stands for the rest.
void InspectorHead::showSummary(qsizetype units) {
    FieldValue summary;
    summary.original = m_summaryText;
    summary.text = CellText::cut(m_summaryText, units);
    summary.origins.resize(static_cast<std::size_t>(summary.text.size()));
    std::iota(summary.origins.begin(), summary.origins.end(), 0);
    ValueText::Look look;
    look.color = m_theme.palette().text;
    m_summary->setValue(summary, look);
}

void InspectorHead::fitSummary() {
    const int most = mostSummaryLines * ValueText::lineHeight(m_summary->font());
    const int available = width() - 2 * paddingX;
    showSummary(m_summaryText.size());
    const int needed = m_summary->heightIn(available);
    if (needed > most) {
        qsizetype fitting = 0;
        for (qsizetype tooLong = m_summaryText.size(); tooLong - fitting > 1;) {
            const qsizetype units = std::midpoint(fitting, tooLong);
            showSummary(units);
            (m_summary->heightIn(available) > most ? tooLong : fitting) = units;
        }
        showSummary(fitting);
        m_summary->heightIn(available);
    }
    m_summary->setToolTip(needed > most ? CellText::toolTip(m_summaryText) : QString());
    m_summary->setFixedHeight(std::min(most, needed));
}

void InspectorHead::setFieldWidth(int width) {
    m_fieldWidth = width;
    update();
}

int InspectorHead::titlesHeight() const {
    return QFontMetrics(fontFor(TextRole::caption, font())).height() + titlePadding;
}

void InspectorHead::paintEvent(QPaintEvent*) {
    const Palette& palette = m_theme.palette();
    QPainter painter(this);
    const int titlesTop = height() - titlesHeight();
    painter.fillRect(0, 0, width(), titlesTop, palette.surface2);
    painter.fillRect(0, titlesTop - 1, width(), 1, palette.border);
    painter.fillRect(0, titlesTop, width(), titlesHeight(), palette.surface);
    painter.fillRect(0, height() - 1, width(), 1, palette.line);
    const GridFont font(fontFor(TextRole::caption, this->font()));
    const qreal baseline = font.baseline(titlesTop, titlesHeight());
    painter.setPen(palette.text2);
    font.draw(painter, QPointF(paddingX, baseline), RowTexts::sideName(RowSide::before));
    font.draw(painter, QPointF(FieldView::afterLeft(m_fieldWidth), baseline), RowTexts::sideName(RowSide::after));
}

void InspectorHead::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    elideKey();
    fitNumbers();
    // Shown anew it would lose its selection.
    if (event->size().width() != event->oldSize().width()) {
        fitSummary();
    }
}

void InspectorHead::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateFonts();
        layout()->setContentsMargins(paddingX, paddingTop, paddingX, paddingBottom + titlesHeight());
        fitSummary();
    }
}

}  // namespace corvale
