#include "Corvale/window/EmptyState.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Theme.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"

namespace corvale {

namespace {

constexpr int tileSize = 64;
constexpr int symbolSize = 36;
constexpr int textWidth = 500;
constexpr int aboveMiddle = 96;

class SymbolTile : public QWidget {
public:
    SymbolTile(Theme& theme, QWidget* parent) : QWidget(parent), m_theme(theme) { setFixedSize(tileSize, tileSize); }

protected:
    void paintEvent(QPaintEvent*) override {
        const Palette& palette = m_theme.palette();
        QPainter painter(this);
        Drawing::box(painter, rect(), 16, palette.surface2, palette.line);
        Drawing::symbol(painter, QStringLiteral("tablecells"), palette.text3, rect(), symbolSize);
    }

private:
    Theme& m_theme;
};

}  // namespace

EmptyState::EmptyState(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_symbol(new SymbolTile(theme, this)),
      m_title(new QLabel(this)),
      m_text(new QLabel(this)),
      m_choose(new QPushButton(this)),
      m_sample(new QPushButton(tr("Try the Sample"), this)),
      m_compare(new QPushButton(tr("Compare"), this)) {
    m_title->setFont(fontFor(TextRole::stateTitle));
    m_text->setText(
        tr("Open the older file on the left and the newer one on the right (Excel .xlsx, CSV or TSV), or drop them on "
           "the window. Corvale suggests a key column and shows every added, removed and changed row."));
    setLook(*m_text, Look::secondaryText);
    for (QPushButton* button : {m_choose, m_compare}) {
        button->setDefault(true);
        button->setFont(fontFor(TextRole::bodyStrong));
    }
    layOut();

    connect(m_choose, &QPushButton::clicked, this, [this] {
        m_model.choose(stage() == Stage::afterMissing ? Side::after : Side::before);
    });
    connect(m_sample, &QPushButton::clicked, &model, &AppModel::openSamples);
    connect(m_compare, &QPushButton::clicked, &model, &AppModel::compare);
    for (const auto changed :
         {&AppModel::beforeChanged, &AppModel::afterChanged, &AppModel::loadingChanged, &AppModel::progressChanged}) {
        connect(&model, changed, this, &EmptyState::refresh);
    }
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

void EmptyState::layOut() {
    for (QLabel* label : {m_title, m_text}) {
        label->setAlignment(Qt::AlignCenter);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    for (QPushButton* button : {m_choose, m_sample, m_compare}) {
        buttons->addWidget(button);
    }
    buttons->addStretch();
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(12, 12, 12, aboveMiddle);
    column->setSpacing(0);
    column->addStretch();
    column->addWidget(m_symbol, 0, Qt::AlignHCenter);
    column->addSpacing(16);
    column->addWidget(m_title);
    column->addSpacing(6);
    auto* const text = new QHBoxLayout;
    m_text->setMaximumWidth(textWidth);
    text->addStretch();
    text->addWidget(m_text, 100);
    text->addStretch();
    column->addLayout(text);
    column->addSpacing(20);
    column->addLayout(buttons);
    column->addStretch();
}

EmptyState::Stage EmptyState::stage() const {
    if (!m_model.before() && !m_model.after()) {
        return Stage::noFile;
    }
    if (!m_model.before()) {
        return Stage::beforeMissing;
    }
    return m_model.after() ? Stage::notCompared : Stage::afterMissing;
}

void EmptyState::refresh() {
    const Stage now = stage();
    const bool isBusy = !m_model.loading().empty() || m_model.progress();
    switch (now) {
        case Stage::noFile:
            m_title->setText(tr("Pick two spreadsheets to compare"));
            break;
        case Stage::beforeMissing:
            m_title->setText(tr("Choose the older file (Before)."));
            break;
        case Stage::afterMissing:
            m_title->setText(tr("Choose the newer file (After)."));
            break;
        case Stage::notCompared:
            m_title->setText(tr("Not compared yet"));
            break;
    }
    m_text->setVisible(now == Stage::noFile);
    m_choose->setText(now == Stage::noFile ? tr("Choose Files…") : tr("Choose…"));
    m_choose->setVisible(now != Stage::notCompared);
    m_sample->setVisible(now == Stage::noFile);
    // Until the first comparison ends there is nothing to say, and nothing to press but Cancel.
    m_symbol->setVisible(now != Stage::notCompared || !isBusy);
    m_title->setVisible(now != Stage::notCompared || !isBusy);
    m_compare->setVisible(now == Stage::notCompared && !isBusy);
}

void EmptyState::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().surface);
}

}  // namespace corvale
