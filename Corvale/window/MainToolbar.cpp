#include "Corvale/window/MainToolbar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/SearchField.h"
#include "Corvale/window/SymbolLabel.h"
#include "Corvale/window/ViewPicker.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

constexpr int gap = Metrics::controlGap;
constexpr int groupGap = 8;
constexpr int longestColumn = 200;
// Window widths below which words go; the last level is for fonts wider than usual.
constexpr int widthOfLevel[] = {Metrics::withoutLabels, Metrics::withoutTexts};
constexpr int mostNarrow = 3;
constexpr int searchWidth[] = {Metrics::searchWidth, 190, 170, 140};

SymbolLabel* makeLabel(const QString& text, Theme& theme, QWidget* parent) {
    return new SymbolLabel({.symbol = {},
                            .symbolSize = 0,
                            .text = TextRole::body,
                            .padding = 0,
                            .color = [](const Palette& palette) { return palette.text2; }},
                           text,
                           theme,
                           parent);
}

}  // namespace

MainToolbar::MainToolbar(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_viewLabel(makeLabel(tr("View"), theme, this)),
      m_view(new ViewPicker(model, theme, this)),
      m_groupGap(new QSpacerItem(groupGap, 0, QSizePolicy::Fixed)),
      m_showLabel(makeLabel(tr("Show"), theme, this)),
      m_show(makeMenu(&MainToolbar::fillShow)),
      m_column(makeMenu(&MainToolbar::fillColumns)),
      m_export(makeMenu(&MainToolbar::fillExport)),
      m_details(new Button(Button::Face::bordered, theme, this)),
      m_search(new SearchField(model, theme, this)) {
    m_show->setHelp(tr("Which rows the list shows"));
    m_column->setHelp(tr("Only rows with a change in one column"));
    m_column->setLongestText(longestColumn);
    m_export->setLabel(tr("Export Report"));
    m_export->setSymbol(QStringLiteral("square.and.arrow.up"), 16);
    m_export->setHelp(tr("Save the changes as an Excel workbook with highlighted cells, or as a web page to share"));
    m_details->setLabel(tr("Row Details"));
    m_details->setSymbol(QStringLiteral("sidebar.right"), 16);
    m_details->setHelp(tr("Show or hide the selected row’s details"));
    m_details->setCheckable(true);
    connect(m_details, &Button::clicked, &model, &AppModel::toggleInspector);
    layOut();

    for (const auto changed : {&AppModel::resultChanged,
                               &AppModel::filterChanged,
                               &AppModel::settingsChanged,
                               &AppModel::showInspectorChanged,
                               &AppModel::exportingChanged}) {
        connect(&model, changed, this, &MainToolbar::refresh);
    }
    // What it lists is of the result that was.
    connect(&model, &AppModel::resultChanged, m_column->menu(), &QMenu::close);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

Button* MainToolbar::makeMenu(void (MainToolbar::*fill)(PopupMenu&)) {
    auto* const button = new Button(Button::Face::bordered, m_theme, this);
    button->setMenu(PopupMenu::Checking::closes, [this, fill](PopupMenu& menu) { (this->*fill)(menu); });
    return button;
}

void MainToolbar::layOut() {
    setFixedHeight(Metrics::toolBarHeight);
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(12, 0, 12, 2);
    row->setSpacing(gap);
    row->addWidget(m_viewLabel);
    row->addWidget(m_view);
    row->addItem(m_groupGap);
    row->addWidget(m_showLabel);
    for (QWidget* widget : std::initializer_list<QWidget*>{m_show, m_column}) {
        row->addWidget(widget);
    }
    row->addStretch();
    for (QWidget* widget : std::initializer_list<QWidget*>{m_export, m_details, m_search}) {
        row->addWidget(widget);
    }
}

void MainToolbar::refresh() {
    const bool hasResult = m_model.result() != nullptr;
    m_show->setLabel(Wording::show(m_model.filter().show));
    m_show->setAccessibleName(tr("Show: %1").arg(m_show->label()));
    m_column->setLabel(columnText());
    m_details->setChecked(m_model.showInspector());
    for (QWidget* widget : std::initializer_list<QWidget*>{m_showLabel, m_show, m_column, m_details}) {
        widget->setEnabled(hasResult);
    }
    m_export->setEnabled(hasResult && !m_model.exporting());
}

QString MainToolbar::columnText() const {
    const auto& result = m_model.result();
    const auto& column = m_model.filter().column;
    return result && column
               ? tr("Column: %1").arg(Wording::menuText(result->columns[static_cast<std::size_t>(*column)].name))
               : tr("Any Column");
}

void MainToolbar::fillShow(PopupMenu& menu) {
    for (const auto& [show, stored] : enumTexts<DiffFilter::Show>) {
        menu.addItem(
            {.text = Wording::show(show),
             .action = [this,
                        show = show] { Edit::filter(m_model, [show](DiffFilter& filter) { filter.show = show; }); },
             .isChecked = [this, show = show] { return m_model.filter().show == show; }});
    }
}

void MainToolbar::fillColumns(PopupMenu& menu) {
    const auto add = [this, &menu](const QString& text, std::optional<std::int64_t> column) {
        menu.addItem(
            {.text = text,
             .action = [this,
                        column] { Edit::filter(m_model, [column](DiffFilter& filter) { filter.column = column; }); },
             .isChecked = [this, column] { return m_model.filter().column == column; }});
    };
    add(tr("Any Column"), std::nullopt);
    if (const auto& result = m_model.result()) {
        for (const auto& [column, changedRows] : result->summary.changesByColumn) {
            const QString name = Wording::menuText(result->columns[static_cast<std::size_t>(column)].name);
            add(tr("%1 (%2)").arg(name, Wording::count(changedRows)), column);
        }
    }
}

void MainToolbar::fillExport(PopupMenu& menu) {
    const auto add = [this, &menu](const QString& text, ReportKind kind) {
        menu.addItem({.text = text, .action = [this, kind] { m_model.exportReport(kind); }});
    };
    add(tr("Excel Report (.xlsx)…"), ReportKind::excel);
    add(tr("HTML Report…"), ReportKind::html);
}

bool MainToolbar::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        shrink();
    }
    return handled;
}

void MainToolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    shrink();
}

void MainToolbar::shrink() {
    int level = 0;
    for (const int least : widthOfLevel) {
        level += width() < least ? 1 : 0;
    }
    while (level < mostNarrow && widthAt(level) > width()) {
        ++level;
    }
    if (level != m_level) {
        m_level = level;
        showWords();
    }
}

int MainToolbar::widthAt(int level) const {
    const QMargins margins = layout()->contentsMargins();
    int width = margins.left() + margins.right() + m_view->sizeHint().width() + gap + m_show->sizeHint().width() + gap +
                m_column->sizeHint().width() + gap + gap + m_export->widthWithText(level <= 1) + gap +
                m_details->widthWithText(level == 0) + gap + searchWidth[level];
    if (level == 0) {
        width += m_viewLabel->sizeHint().width() + gap + groupGap + m_showLabel->sizeHint().width() + gap;
    }
    return width;
}

void MainToolbar::showWords() {
    m_viewLabel->setVisible(m_level == 0);
    m_showLabel->setVisible(m_level == 0);
    m_groupGap->changeSize(m_level == 0 ? groupGap : 0, 0, QSizePolicy::Fixed);
    layout()->invalidate();
    m_details->setTextShown(m_level == 0);
    m_export->setTextShown(m_level <= 1);
    m_search->setFixedWidth(searchWidth[m_level]);
}

void MainToolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(0, height() - 1, width(), 1, m_theme.palette().border);
}

}  // namespace corvale
