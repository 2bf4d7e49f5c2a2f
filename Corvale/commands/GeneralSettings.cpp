#include "Corvale/commands/GeneralSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/style/Look.h"
#include "Corvale/style/Typography.h"
#include "Corvale/window/ViewPicker.h"
#include "Corvale/window/Wording.h"

namespace corvale {

namespace {

constexpr int contentWidth = 472;
constexpr int lineHeight = 38;
constexpr int groupPadding = 14;
constexpr int noteIndent = 25;  // under the text of a check box
constexpr int numbersWidth = 190;

}  // namespace

GeneralSettings::GeneralSettings(AppModel& model, Theme& theme, QWidget* parent)
    : QWidget(parent), m_model(model), m_theme(theme), m_column(new QVBoxLayout(this)) {
    layOut();
    connect(&model, &AppModel::settingsChanged, this, &GeneralSettings::refresh);
    refresh();
}

void GeneralSettings::layOut() {
    m_column->setContentsMargins(24, 16, 24, 24);
    m_column->setSpacing(0);
    QVBoxLayout* const comparing = addGroup(tr("Comparing"));
    addToggle(comparing, tr("Ignore case"), [](AppSettings& s) -> bool& { return s.options.ignoreCase; });
    addToggle(comparing, tr("Ignore extra spaces"), [](AppSettings& s) -> bool& { return s.options.ignoreWhitespace; });
    addToggle(comparing, tr("Ignore number formatting"), [](AppSettings& s) -> bool& {
        return s.options.ignoreNumberFormat;
    });
    addToggle(comparing, tr("Ignore column order (match columns by name)"), [](AppSettings& s) -> bool& {
        return s.options.ignoreColumnOrder;
    });
    m_numbers = makeNumbers();
    addLine(comparing, m_numbers, tr("Numbers"));
    addLine(comparing, new ViewPicker(m_model, m_theme, this), tr("View"));

    QVBoxLayout* const reports = addGroup(tr("Reports"));
    addToggle(reports, tr("Include unchanged rows in Excel reports"), [](AppSettings& s) -> bool& {
        return s.includeUnchangedInReports;
    });
    auto* const note = new QLabel(
        tr("Corvale reads your files on this Mac and writes reports only where you save them. Nothing is uploaded."),
        this);
    setLook(*note, Look::secondaryText);
    note->setWordWrap(true);
    note->setContentsMargins(noteIndent, 0, 0, 11);
    reports->addWidget(note);

    QVBoxLayout* const start = addGroup(tr("Getting started"));
    auto* const again = new QPushButton(tr("Show the Welcome Screen Again"), this);
    again->setAutoDefault(false);
    connect(again, &QPushButton::clicked, this, [this] {
        Edit::settings(m_model, [](AppSettings& settings) { settings.onboardingDone = false; });
    });
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(0, 7, 0, 7);
    row->addWidget(again);
    row->addStretch();
    start->addLayout(row);
}

QVBoxLayout* GeneralSettings::addGroup(const QString& title) {
    m_column->addSpacing(m_column->isEmpty() ? 0 : 18);
    auto* const heading = new QLabel(title, this);
    heading->setFont(fontFor(TextRole::bodyStrong));
    heading->setContentsMargins(2, 0, 0, 7);
    m_column->addWidget(heading);
    auto* const group = new QFrame(this);
    setLook(*group, Look::card);
    group->setFixedWidth(contentWidth);
    group->setAccessibleName(title);
    m_column->addWidget(group);
    auto* const lines = new QVBoxLayout(group);
    lines->setContentsMargins(groupPadding, 3, groupPadding, 3);
    lines->setSpacing(0);
    return lines;
}

void GeneralSettings::addLine(QVBoxLayout* group, QWidget* content, const QString& label) {
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    if (!label.isEmpty()) {
        auto* const text = new QLabel(label, this);
        text->setBuddy(content);
        row->addWidget(text);
        row->addStretch();
    }
    row->addWidget(content);
    auto* const line = new QWidget(this);
    line->setMinimumHeight(lineHeight);
    if (group->count() > 0) {
        setLook(*line, Look::nextLine);
    }
    line->setLayout(row);
    group->addWidget(line);
}

void GeneralSettings::addToggle(QVBoxLayout* group, const QString& text, bool& (*field)(AppSettings& settings)) {
    auto* const box = new QCheckBox(text, this);
    connect(box, &QCheckBox::clicked, this, [this, field](bool isOn) {
        Edit::settings(m_model, [&](AppSettings& settings) { field(settings) = isOn; });
    });
    addLine(group, box);
    m_toggles.push_back({box, field});
}

QComboBox* GeneralSettings::makeNumbers() {
    auto* const numbers = new QComboBox(this);
    for (const auto& [style, stored] : enumTexts<NumberStyle>) {
        numbers->addItem(Wording::numberStyle(style), static_cast<int>(style));
    }
    numbers->setMinimumWidth(numbersWidth);
    numbers->setAccessibleName(tr("Numbers"));
    connect(numbers, &QComboBox::activated, this, [this, numbers] {
        const auto style = static_cast<NumberStyle>(numbers->currentData().toInt());
        Edit::settings(m_model, [style](AppSettings& settings) { settings.options.numberStyle = style; });
    });
    return numbers;
}

void GeneralSettings::refresh() {
    AppSettings settings = m_model.settings();
    for (const Toggle& toggle : m_toggles) {
        toggle.box->setChecked(toggle.field(settings));
    }
    m_numbers->setCurrentIndex(m_numbers->findData(static_cast<int>(settings.options.numberStyle)));
}

}  // namespace corvale
