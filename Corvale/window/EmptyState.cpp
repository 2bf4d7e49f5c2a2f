#include "Corvale/window/EmptyState.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "Corvale/model/AppModel.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
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
        Drawing::symbol(painter, m_theme, QStringLiteral("tablecells"), palette.text3, rect(), symbolSize);
    }

private:
    Theme& m_theme;
};

}  // namespace

EmptyState::EmptyState(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent), m_model(model), m_theme(theme), m_symbol(new SymbolTile(theme, this)),
      m_title(new QLabel(this)), m_text(new QLabel(this)),
      m_choose(new Button(Button::Face::primary, theme, this)), m_sample(new Button(Button::Face::large, theme, this)),
      m_compare(new Button(Button::Face::primary, theme, this)) {
    m_title->setFont(Drawing::font(*this, 18, QFont::DemiBold));
    m_text->setText(
        tr("Open the older file on the left and the newer one on the right (Excel .xlsx, CSV or TSV), or drop them on "
           "the window. Corvale suggests a key column and shows every added, removed and changed row."));
    m_sample->setLabel(tr("Try the Sample"));
    m_compare->setLabel(tr("Compare"));
    layOut();

    connect(m_choose, &Button::clicked, this,
            [this] { m_model.choose(stage() == Stage::afterMissing ? Side::after : Side::before); });
    connect(m_sample, &Button::clicked, &model, &AppModel::openSamples);
    connect(m_compare, &Button::clicked, &model, &AppModel::compare);
    for (const auto changed : {&AppModel::beforeChanged, &AppModel::afterChanged, &AppModel::loadingChanged,
                               &AppModel::progressChanged}) {
        connect(&model, changed, this, &EmptyState::refresh);
    }
    connect(&theme, &Theme::changed, this, &EmptyState::updateColors);
    updateColors();
    refresh();
}

void EmptyState::layOut() {
    for (QLabel* label : {m_title, m_text}) {
        label->setAlignment(Qt::AlignCenter);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_text->setFixedWidth(textWidth);
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch();
    for (Button* button : {m_choose, m_sample, m_compare}) {
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
    column->addWidget(m_text, 0, Qt::AlignHCenter);
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
    m_choose->setLabel(now == Stage::noFile ? tr("Choose Files…") : tr("Choose…"));
    m_choose->setVisible(now != Stage::notCompared);
    m_sample->setVisible(now == Stage::noFile);
    // Until the first comparison ends there is nothing to say, and nothing to press but Cancel.
    m_symbol->setVisible(now != Stage::notCompared || !isBusy);
    m_title->setVisible(now != Stage::notCompared || !isBusy);
    m_compare->setVisible(now == Stage::notCompared && !isBusy);
}

void EmptyState::updateColors() {
    const auto color = [](QLabel& label, const QColor& ink) {
        QPalette palette = label.palette();
        palette.setColor(QPalette::WindowText, ink);
        label.setPalette(palette);
    };
    color(*m_title, m_theme.palette().text);
    color(*m_text, m_theme.palette().text2);
    update();
}

void EmptyState::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().surface);
}

}  // namespace corvale
