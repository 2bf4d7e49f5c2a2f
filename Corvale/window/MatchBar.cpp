#include "Corvale/window/MatchBar.h"

#include <QPainter>
#include <algorithm>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Columns.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "Corvale/window/RowLayout.h"
#include "Corvale/window/SymbolLabel.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

constexpr int narrowestButton = 96;
constexpr int longestColumn = 220;

constexpr bool DiffOptions::*ignoreOptions[] = {&DiffOptions::ignoreCase,
                                                &DiffOptions::ignoreWhitespace,
                                                &DiffOptions::ignoreNumberFormat,
                                                &DiffOptions::ignoreColumnOrder};

std::int64_t ignoredDifferences(const DiffOptions& options) {
    return std::count_if(std::begin(ignoreOptions), std::end(ignoreOptions), [&options](bool DiffOptions::*option) {
        return options.*option;
    });
}

}  // namespace

MatchBar::MatchBar(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_model(model),
      m_theme(theme),
      m_matchLabel(new SymbolLabel({.symbol = QStringLiteral("key"),
                                    .symbolSize = 16,
                                    .text = TextRole::body,
                                    .padding = 0,
                                    .color = [](const Palette& palette) { return palette.text2; }},
                                   tr("Match rows by"), theme, this)),
      m_match(makeMenu(PopupMenu::Checking::closes, &MatchBar::fillMatch)),
      m_numberStyle(makeMenu(PopupMenu::Checking::closes, &MatchBar::fillNumberStyle)),
      m_ignore(makeMenu(PopupMenu::Checking::staysOpen, &MatchBar::fillIgnore)),
      m_ignoreColumns(makeMenu(PopupMenu::Checking::staysOpen, &MatchBar::fillIgnoreColumns)) {
    m_match->setHelp(
        tr("Rows with the same value in this column are compared with each other. Pick Row order for files without an "
           "ID column."));
    m_match->setLongestText(longestColumn);
    m_numberStyle->setHelp(
        tr("How the files write numbers: 1,234.56 or 1.234,56. Automatic follows the files (else this Mac’s region)."));
    m_ignoreColumns->setHelp(tr("Leave columns such as “Last updated” out of the comparison"));
    setAccessibleName(tr("Matching"));
    layOut();

    for (const auto changed : {&AppModel::beforeChanged,
                               &AppModel::afterChanged,
                               &AppModel::matchChanged,
                               &AppModel::suggestedKeyChanged,
                               &AppModel::resultChanged,
                               &AppModel::settingsChanged}) {
        connect(&model, changed, this, &MatchBar::refresh);
    }
    // What the columns' menus list is gone with the file that they are from.
    for (const auto changed : {&AppModel::beforeChanged, &AppModel::afterChanged}) {
        connect(&model, changed, m_match->menu(), &QMenu::close);
        connect(&model, changed, m_ignoreColumns->menu(), &QMenu::close);
    }
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    refresh();
}

Button* MatchBar::makeMenu(PopupMenu::Checking checking, void (MatchBar::*fill)(PopupMenu&)) {
    auto* const button = new Button(Button::Face::bordered, m_theme, this);
    button->setNarrowest(narrowestButton);
    button->setMenu(checking, [this, fill](PopupMenu& menu) { (this->*fill)(menu); });
    m_menus.push_back(button->menu());
    return button;
}

void MatchBar::layOut() {
    constexpr int groupGap = 8;
    auto* const row = new RowLayout(8, this);
    row->setContentsMargins(12, 8, 12, 8);
    row->addWidget(m_matchLabel);
    row->addWidget(m_match);
    row->addItem(new QSpacerItem(groupGap, 0));
    row->addWidget(m_numberStyle);
    row->addWidget(m_ignore);
    row->addWidget(m_ignoreColumns);
    row->setGivingWay({m_numberStyle, m_ignoreColumns, m_ignore, m_match, m_matchLabel});
}

void MatchBar::refresh() {
    const QString match = matchText();
    m_match->setLabel(match);
    m_match->setAccessibleName(tr("Match rows by: %1").arg(match));
    const NumberStyle style = m_model.settings().options.numberStyle;
    m_numberStyle->setLabel(style == NumberStyle::automatic ? automaticStyle() : Wording::numberStyle(style));
    const std::int64_t ignored = ignoredDifferences(m_model.settings().options);
    m_ignore->setLabel(ignored == 0 ? tr("Ignore") : tr("Ignoring %1 of 4").arg(ignored));
    const std::int64_t columns = ignoredColumns();
    m_ignoreColumns->setLabel(columns == 0 ? tr("Ignore Columns")
                                           : tr("Ignoring %1 columns").arg(Wording::count(columns)));
    for (PopupMenu* menu : m_menus) {
        menu->refresh();
    }
}

QString MatchBar::keyText(const std::string& column) const {
    const QString name = Wording::menuText(column);
    return column == m_model.suggestedKey() ? tr("%1 (suggested)").arg(name) : name;
}

QString MatchBar::matchText() const {
    const auto& column = m_model.match().column();
    return column ? keyText(*column) : tr("Row order (no key column)");
}

QString MatchBar::automaticStyle() const {
    const auto& result = m_model.result();
    const bool isDetected = result && result->options.numberStyle == NumberStyle::automatic;
    return isDetected ? tr("Automatic (%1)").arg(Wording::numberStyle(result->numberStyle))
                      : Wording::numberStyle(NumberStyle::automatic);
}

std::int64_t MatchBar::ignoredColumns() const {
    const DiffOptions& options = m_model.settings().options;
    const std::vector<std::string> offered = m_model.ignorableColumns();
    return std::count_if(
        offered.begin(), offered.end(), [&options](const auto& column) { return Columns::isIgnored(options, column); });
}

void MatchBar::fillMatch(PopupMenu& menu) {
    const auto add = [this, &menu](const QString& text, const MatchChoice& choice) {
        menu.addItem({.text = text,
                      .action = [this, choice] { m_model.setMatch(choice); },
                      .isChecked = [this, choice] { return m_model.match() == choice; }});
    };
    for (const std::string& column : m_model.sharedColumns()) {
        add(keyText(column), MatchChoice::key(column));
    }
    menu.addSeparator();
    add(tr("Row order (no key column)"), MatchChoice::rowOrder());
}

void MatchBar::fillNumberStyle(PopupMenu& menu) {
    for (const auto& [style, stored] : enumTexts<NumberStyle>) {
        const bool isAutomatic = style == NumberStyle::automatic;
        menu.addItem(
            {.text = isAutomatic ? automaticStyle() : Wording::numberStyle(style),
             .action = [this, style = style] { change([style](auto& options) { options.numberStyle = style; }); },
             .isChecked = [this, style = style] { return m_model.settings().options.numberStyle == style; }});
    }
}

void MatchBar::fillIgnore(PopupMenu& menu) {
    menu.addTitle(tr("What doesn’t count as a change"));
    addOption(menu, tr("Ignore case"), &DiffOptions::ignoreCase);
    addOption(menu, tr("Ignore extra spaces"), &DiffOptions::ignoreWhitespace);
    addOption(menu,
              tr("Ignore number formatting"),
              &DiffOptions::ignoreNumberFormat,
              tr("1,250.00, $1250 and 1250 count as the same; so do 50% and 0.5, and 007 and 7."));
    addOption(menu,
              tr("Ignore column order"),
              &DiffOptions::ignoreColumnOrder,
              tr("On: columns are matched by their names wherever they are. Off: by position (A with A, B with B)."));
}

void MatchBar::addOption(PopupMenu& menu, const QString& text, bool DiffOptions::*option, const QString& help) {
    menu.addItem(
        {.text = text,
         .action = [this, option] { change([option](auto& options) { options.*option = !(options.*option); }); },
         .isChecked = [this, option] { return m_model.settings().options.*option; },
         .help = help});
}

void MatchBar::fillIgnoreColumns(PopupMenu& menu) {
    for (const std::string& column : m_model.ignorableColumns()) {
        menu.addItem(
            {.text = Wording::menuText(column),
             .action = [this,
                        column] { change([&column](auto& options) { Columns::toggleIgnored(options, column); }); },
             .isChecked = [this, column] { return Columns::isIgnored(m_model.settings().options, column); }});
    }
    menu.addSeparator();
    menu.addItem({.text = tr("Compare Every Column"),
                  .action = [this] { change([](DiffOptions& options) { options.ignoredColumns.clear(); }); },
                  .isEnabled = [this] { return !m_model.settings().options.ignoredColumns.empty(); }});
}

void MatchBar::change(const std::function<void(DiffOptions&)>& edit) {
    Edit::settings(m_model, [&edit](AppSettings& settings) { edit(settings.options); });
}

void MatchBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect match = m_match->geometry();
    const QRect style = m_numberStyle->geometry();
    const int x =
        match.right() < style.left() ? (match.right() + style.left()) / 2 : (style.right() + match.left()) / 2;
    painter.fillRect(x, (height() - 18) / 2, 1, 18, m_theme.palette().border);
    painter.fillRect(0, height() - 1, width(), 1, m_theme.palette().border);
}

}  // namespace corvale
