#include "tests/Corvale/robustness/Looks.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>
#include <array>
#include <map>

#include "Corvale/commands/CorvaleApp.h"
#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/RowInspector.h"
#include "Corvale/window/ChipLabel.h"
#include "Corvale/window/MainView.h"
#include "Corvale/window/MatchBar.h"
#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/ProblemAlert.h"
#include "Corvale/window/SummaryStrip.h"
#include "Corvale/window/Wording.h"

namespace corvale::TestSupport::Looks {

namespace {

// Of the rows themselves.
std::array<std::int64_t, 4> countedRows(const DiffResult& result) {
    std::array<std::int64_t, 4> counts{};
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        ++counts[static_cast<std::size_t>(result.rows.status(row))];
    }
    return counts;
}

std::int64_t countedCells(const DiffResult& result) {
    std::int64_t cells = 0;
    for (std::size_t row = 0; row < result.rows.size(); ++row) {
        cells += static_cast<std::int64_t>(result.rows.changes(row).size());
    }
    return cells;
}

void expectSoundResult(const AppModel& model) {
    const DiffResult& result = *model.result();
    const DiffSummary& summary = result.summary;
    EXPECT_TRUE(model.before() && model.after());
    EXPECT_EQ(countedRows(result), (std::array{summary.added, summary.removed, summary.changed, summary.same}));
    EXPECT_EQ(countedCells(result), summary.changedCells);
    EXPECT_EQ(summary.same + summary.changed + summary.removed, static_cast<std::int64_t>(result.before.rows().size()));
    EXPECT_EQ(summary.same + summary.changed + summary.added, static_cast<std::int64_t>(result.after.rows().size()));
    EXPECT_EQ(model.visible(), model.filter().apply(result));
    const auto& column = model.filter().column;
    EXPECT_TRUE(!column || (*column >= 0 && *column < static_cast<std::int64_t>(result.columns.size())));
    const auto row = model.selectedRow();
    EXPECT_TRUE(!row || (*row >= 0 && *row < static_cast<std::int64_t>(result.rows.size())));
}

void expectGrid(const AppModel& model, const DiffGrid& grid) {
    ASSERT_EQ(grid.lineCount(), static_cast<std::int64_t>(model.visible().size()));
    const auto& visible = model.visible();
    const auto selected = std::lower_bound(visible.begin(), visible.end(), model.selectedRow().value_or(-1));
    const bool isListed = model.selectedRow() && selected != visible.end() && *selected == *model.selectedRow();
    EXPECT_EQ(grid.selectedLine(), isListed ? std::optional<std::int64_t>(selected - visible.begin()) : std::nullopt);
    const DiffGrid::Lines lines = grid.linesOnScreen();
    EXPECT_TRUE(lines.begin >= 0 && lines.begin <= lines.end && lines.end <= grid.lineCount());
    for (std::int64_t line = lines.begin; line < lines.end; ++line) {
        const GridRow row = grid.row(line);
        EXPECT_EQ(&row.result(), model.result().get());
        EXPECT_EQ(row.row(), model.result()->rows[static_cast<std::size_t>(visible[static_cast<std::size_t>(line)])]);
    }
}

// By what they are read out as: "Changed 12, 15 cells".
void expectChips(const AppModel& model, const SummaryStrip& strip) {
    const DiffSummary& summary = model.result()->summary;
    const QString cells =
        summary.changedCells > 0 ? QStringLiteral(", %1 cells").arg(Wording::count(summary.changedCells)) : QString();
    const std::map<QString, DiffFilter::Show> expected = {
        {QStringLiteral("Added ") + Wording::count(summary.added), DiffFilter::Show::added},
        {QStringLiteral("Removed ") + Wording::count(summary.removed), DiffFilter::Show::removed},
        {QStringLiteral("Changed ") + Wording::count(summary.changed) + cells, DiffFilter::Show::changed},
        {QStringLiteral("Unchanged ") + Wording::count(summary.same), DiffFilter::Show::all}};
    const auto chips = strip.findChildren<ChipLabel*>();
    EXPECT_EQ(chips.size(), 4);
    for (const ChipLabel* chip : chips) {
        const auto found = expected.find(chip->accessibleName());
        ASSERT_NE(found, expected.end()) << chip->accessibleName().toStdString();
        EXPECT_EQ(chip->selected(), model.filter().show == found->second) << chip->accessibleName().toStdString();
    }
}

void expectMenus(const AppModel& model, const MainWindow& window) {
    const bool hasResult = model.result() != nullptr;
    const std::map<QString, bool> enabled = {{QStringLiteral("Export Excel Report…"), hasResult},
                                             {QStringLiteral("Export HTML Report…"), hasResult},
                                             {QStringLiteral("Search Rows"), hasResult},
                                             {QStringLiteral("Compare Again"), model.before() && model.after()},
                                             {QStringLiteral("Swap Before and After"), model.before() || model.after()},
                                             {QStringLiteral("Show All Rows"), hasResult}};
    const std::map<QString, bool> ticked = {
        {QStringLiteral("Unified View"), model.settings().view == ViewMode::unified},
        {QStringLiteral("Side by Side View"), model.settings().view == ViewMode::sideBySide},
        {QStringLiteral("Show Only Changes"), model.filter().show == DiffFilter::Show::changes},
        {QStringLiteral("Show All Rows"), model.filter().show == DiffFilter::Show::all}};
    std::size_t seen = 0;
    for (const QAction* menu : window.menuBar()->actions()) {
        for (const QAction* item : menu->menu()->actions()) {
            const auto rule = enabled.find(item->text());
            EXPECT_TRUE(rule == enabled.end() || item->isEnabled() == rule->second) << item->text().toStdString();
            seen += rule == enabled.end() ? 0 : 1;
            const auto tick = ticked.find(item->text());
            EXPECT_TRUE(tick == ticked.end() || item->isChecked() == tick->second) << item->text().toStdString();
            seen += tick == ticked.end() ? 0 : 1;
        }
    }
    EXPECT_EQ(seen, enabled.size() + ticked.size());
}

// A menu whose button is gone lists what is gone too.
void expectMenuOfButton() {
    const auto* const menu = qobject_cast<const PopupMenu*>(QApplication::activePopupWidget());
    if (menu != nullptr) {
        EXPECT_TRUE(menu->parentWidget()->isVisible()) << menu->parentWidget()->accessibleName().toStdString();
        EXPECT_FALSE(menu->size().isEmpty()) << menu->parentWidget()->accessibleName().toStdString();
    }
}

template <typename Widget>
Widget& partOf(const QWidget& window) {
    auto* const part = window.findChild<Widget*>();
    return part != nullptr ? *part : throw std::runtime_error("a part of the window is gone");
}

}  // namespace

void expectSoundModel(CorvaleApp& app) {
    const AppModel& model = app.model();
    EXPECT_TRUE(model.loading().empty());
    EXPECT_FALSE(model.progress());
    EXPECT_FALSE(model.compareFlag());
    EXPECT_FALSE(model.exporting());
    if (model.result()) {
        expectSoundResult(model);
    } else {
        EXPECT_TRUE(model.visible().empty());
        EXPECT_FALSE(model.selectedRow());
    }
    if (model.before() && model.after()) {
        const auto shared = model.sharedColumns();
        const auto& key = model.match().column();
        EXPECT_TRUE(!key || std::find(shared.begin(), shared.end(), *key) != shared.end()) << *key;
    }
    EXPECT_EQ(model.sheet() == AppModel::Sheet::welcome, !model.settings().onboardingDone);
}

void expectWindowAsModel(CorvaleApp& app) {
    const AppModel& model = app.model();
    const MainWindow& window = app.window();
    const auto& strip = partOf<SummaryStrip>(window);
    const auto& alert = partOf<ProblemAlert>(window);
    EXPECT_EQ(!partOf<MatchBar>(window).isHidden(), model.before() && model.after());
    EXPECT_EQ(!strip.isHidden(), model.result() != nullptr);
    EXPECT_EQ(!partOf<RowInspector>(window).isHidden(), model.showInspector());
    expectMenus(model, window);
    if (window.isVisible()) {
        EXPECT_EQ(!alert.isHidden(), model.problem().has_value());
        EXPECT_EQ(!partOf<WelcomeView>(window).isHidden(), model.sheet().has_value());
        expectMenuOfButton();
    }
    if (model.result()) {
        expectGrid(model, window.view().grid());
        expectChips(model, strip);
    }
}

}  // namespace corvale::TestSupport::Looks
