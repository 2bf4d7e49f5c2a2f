#include "Corvale/window/SummaryStrip.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/ChipLabel.h"
#include "Corvale/window/DuplicateList.h"
#include "Corvale/window/FlowLayout.h"
#include "Corvale/window/SymbolLabel.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

void showNote(SymbolLabel& note, std::int64_t count, const QString& text) {
    note.setText(text);
    note.setVisible(count > 0);
}

// The files match: beside the chips, which have nothing to say then.
SymbolLabel* makeVerdict(const QString& text, Theme& theme, QWidget* parent) {
    return new SymbolLabel({.symbol = QStringLiteral("checkmark.seal.fill"),
                            .symbolSize = 20,
                            .text = TextRole::panelTitle,
                            .padding = 10,
                            .color = [](const Palette& palette) { return palette.added.text; },
                            .fill = [](const Palette& palette) { return palette.added.fill; }},
                           text,
                           theme,
                           parent);
}

}  // namespace

SummaryStrip::SummaryStrip(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_verdict(makeVerdict(tr("The files match"), theme, this)),
      m_chips{makeChip(ChipLabel::Kind::added, DiffFilter::Show::added),
              makeChip(ChipLabel::Kind::removed, DiffFilter::Show::removed),
              makeChip(ChipLabel::Kind::changed, DiffFilter::Show::changed),
              makeChip(ChipLabel::Kind::unchanged, DiffFilter::Show::all)},
      m_notes(makeNotes()),
      m_duplicateList(new DuplicateList(model, theme, this)) {
    auto* const flow = new FlowLayout(8, 8, this);
    flow->setContentsMargins(12, 8, 12, 8);
    flow->addWidget(m_verdict);
    for (const Chip& chip : m_chips) {
        flow->addWidget(chip.label);
    }
    flow->addWidget(m_notes);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);

    connect(m_outdated, &Button::clicked, &model, &AppModel::compare);
    connect(m_duplicates, &Button::clicked, this, &SummaryStrip::openDuplicates);
    connect(m_duplicateList, &DuplicateList::closed, m_duplicates, [this] { m_duplicates->setDown(false); });
    connect(&model, &AppModel::resultChanged, this, &SummaryStrip::refresh);
    connect(&model, &AppModel::isResultOutdatedChanged, this, &SummaryStrip::refresh);
    connect(&model, &AppModel::filterChanged, this, &SummaryStrip::refreshChips);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

SummaryStrip::Chip SummaryStrip::makeChip(ChipLabel::Kind kind, DiffFilter::Show show) {
    auto* const chip = new ChipLabel(kind, m_theme, this);
    chip->installEventFilter(this);
    connect(chip, &ChipLabel::clicked, this, [this, show] { toggle(show); });
    return {chip, show};
}

QWidget* SummaryStrip::makeNotes() {
    auto* const notes = new QWidget(this);
    auto* const flow = new FlowLayout(12, 2, notes);
    flow->setContentsMargins(2, 0, 2, 0);
    const auto add = [this, notes, flow](const QString& symbol, QColor (*color)(const Palette&)) {
        auto* const note = new SymbolLabel(
            {.symbol = symbol, .symbolSize = 14, .text = TextRole::secondary, .padding = 2, .color = color},
            {},
            m_theme,
            notes);
        note->setMinimumHeight(Metrics::noteHeight);
        flow->addWidget(note);
        return note;
    };
    m_outdated = addWarning(*notes);
    m_outdated->setLabel(tr("Results out of date"));
    m_outdated->setHelp(tr("These are the results from before your last change. Click to compare again."));
    const auto quiet = [](const Palette& palette) { return palette.text2; };
    m_newColumns = add({}, quiet);
    m_removedColumns = add({}, quiet);
    m_orderChanged = add({}, quiet);
    m_emptyKeys = add({}, quiet);
    m_formatOnly = add(QStringLiteral("info.circle"), [](const Palette& palette) { return palette.formatOnly.text; });
    m_duplicates = addWarning(*notes);
    m_duplicates->setHelp(tr("Keys on more than one row: repeats are paired in order. Click to see them."));
    return notes;
}

Button* SummaryStrip::addWarning(QWidget& notes) {
    auto* const warning = new Button(Button::Face::warning, m_theme, &notes);
    warning->setSymbol(QStringLiteral("exclamationmark.triangle.fill"), 14);
    notes.layout()->addWidget(warning);
    return warning;
}

bool SummaryStrip::showDuplicates() const { return m_duplicateList->isVisible(); }

void SummaryStrip::refresh() {
    m_duplicateList->hide();
    refreshChips();
    if (m_model.result()) {
        refreshNotes();
    }
}

void SummaryStrip::refreshChips() {
    if (!m_model.result()) {
        return;
    }
    const DiffSummary& summary = m_model.result()->summary;
    const bool differ = summary.hasDifferences();
    m_verdict->setVisible(!differ && !m_model.isResultOutdated());
    const std::array<std::int64_t, 4> counts{summary.added, summary.removed, summary.changed, summary.same};
    for (std::size_t i = 0; i < m_chips.size(); ++i) {
        const auto& [chip, show] = m_chips[i];
        const bool hasCells = show == DiffFilter::Show::changed && summary.changedCells > 0;
        chip->setCount(
            counts[i],
            hasCells ? std::optional(tr("%1 cells").arg(Wording::count(summary.changedCells))) : std::nullopt);
        chip->setQuiet(!differ);
        chip->setSelected(m_model.filter().show == show);
    }
}

void SummaryStrip::refreshNotes() {
    const DiffResult& result = *m_model.result();
    const auto emptyKeys = static_cast<std::int64_t>(result.blankKeys.before.size() + result.blankKeys.after.size());
    const auto duplicates = static_cast<std::int64_t>(result.duplicates.size());
    const auto [added, removed] = std::pair(result.summary.addedColumns, result.summary.removedColumns);
    const std::int64_t formatOnly = result.summary.typeOnlyCells;
    showNote(*m_newColumns, added, tr("%1 new columns").arg(Wording::count(added)));
    showNote(*m_removedColumns, removed, tr("%1 columns removed").arg(Wording::count(removed)));
    showNote(*m_orderChanged, result.columnOrderChanged ? 1 : 0, tr("Column order changed"));
    showNote(*m_emptyKeys, emptyKeys, tr("%1 rows with an empty key").arg(Wording::count(emptyKeys)));
    showNote(*m_formatOnly,
             formatOnly,
             tr("%1 cells differ only in number format, case or spacing").arg(Wording::count(formatOnly)));
    m_outdated->setVisible(m_model.isResultOutdated());
    m_duplicates->setLabel(tr("%1 duplicate keys").arg(Wording::count(duplicates)));
    m_duplicates->setVisible(duplicates > 0);
}

void SummaryStrip::toggle(DiffFilter::Show show) {
    Edit::filter(m_model,
                 [show](DiffFilter& filter) { filter.show = filter.show == show ? DiffFilter::Show::changes : show; });
}

void SummaryStrip::openDuplicates() {
    m_duplicates->setDown(true);
    m_duplicateList->openBelow(*m_duplicates);
}

bool SummaryStrip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const int forward = layoutDirection() == Qt::RightToLeft ? Qt::Key_Left : Qt::Key_Right;
        const int backward = layoutDirection() == Qt::RightToLeft ? Qt::Key_Right : Qt::Key_Left;
        if (key == forward || key == backward) {
            moveAlongChips(key == forward ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SummaryStrip::moveAlongChips(int step) {
    const auto current =
        std::find_if(m_chips.begin(), m_chips.end(), [](const Chip& chip) { return chip.label->hasFocus(); });
    const auto next = (current - m_chips.begin()) + step;
    if (next >= 0 && next < static_cast<std::ptrdiff_t>(m_chips.size())) {
        m_chips[static_cast<std::size_t>(next)].label->setFocus(Qt::TabFocusReason);
    }
}

void SummaryStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.palette().surface);
    painter.fillRect(0, height() - 1, width(), 1, m_theme.palette().border);
}

}  // namespace corvale
