#include "Corvale/window/ProblemAlert.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "Corvale/grid/ValueText.h"
#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/SymbolLabel.h"

namespace corvale {

namespace {

constexpr int textWidth = 356;

}  // namespace

ProblemAlert::ProblemAlert(AppModel& model, Theme& theme, QWidget* parent)
    : QDialog(parent),
      m_model(model),
      m_theme(theme),
      m_title(new SymbolLabel({.symbol = QStringLiteral("exclamationmark.triangle.fill"),
                               .symbolSize = 18,
                               .text = TextRole::detailsKey,
                               .padding = 0,
                               .color = [](const Palette& palette) { return palette.changed.text; },
                               .textColor = [](const Palette& palette) { return palette.text; }},
                              tr("Something went wrong"), theme, this)),
      m_text(new ValueText(this)),
      m_ok(new QPushButton(tr("OK"), this)) {
    setWindowTitle(tr("Something went wrong"));
    m_ok->setDefault(true);
    m_ok->setFont(fontFor(TextRole::bodyStrong));
    m_ok->setMinimumWidth(78);
    layOut();

    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    // However it is closed, the problem has been read.
    connect(this, &QDialog::finished, &model, &AppModel::dismissProblem);
    connect(&model, &AppModel::problemChanged, this, &ProblemAlert::refresh);
    connect(&theme, &Theme::changed, this, &ProblemAlert::showText);
    refresh();
}

void ProblemAlert::layOut() {
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_ok);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(22, 20, 22, 16);
    column->setSpacing(0);
    column->addWidget(m_title);
    column->addSpacing(6);
    column->addWidget(m_text);
    column->addSpacing(14);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void ProblemAlert::refresh() {
    const auto& problem = m_model.problem();
    if (!problem) {
        hide();
        return;
    }
    showText();
    setAccessibleDescription(*problem);
    if (!isVisible()) {
        open();
        m_ok->setFocus(Qt::OtherFocusReason);
    }
}

void ProblemAlert::showText() {
    FieldValue value;
    value.text = value.original = m_model.problem().value_or(QString());
    ValueText::Look look;
    look.color = m_theme.palette().text2;
    m_text->setValue(value, look);
    m_text->setAccessibleName(value.text);
    m_text->setFixedSize(textWidth, m_text->heightIn(textWidth));
    update();
}

void ProblemAlert::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().surface);
}

}  // namespace corvale
