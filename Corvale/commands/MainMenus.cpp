#include "Corvale/commands/MainMenus.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/Edit.h"
#include "Corvale/window/MainWindow.h"
#include "MacMenuBaseline/MenuBaseline.h"

namespace corvale {

MainMenus::MainMenus(AppModel& model, MainWindow& window, Actions actions)
    : QObject(&window), m_model(model), m_window(window), m_actions(std::move(actions)) {
    addFile();
    addEdit();
    addCompare();
    addHelp();
    for (const auto changed : {&AppModel::beforeChanged,
                               &AppModel::afterChanged,
                               &AppModel::resultChanged,
                               &AppModel::exportingChanged,
                               &AppModel::filterChanged,
                               &AppModel::settingsChanged,
                               &AppModel::showInspectorChanged}) {
        connect(&model, changed, this, &MainMenus::refresh);
    }
    refresh();
}

QAction* MainMenus::add(QMenu* menu, Command command) {
    auto* const action = new QAction(command.text, menu);
    action->setShortcut(QKeySequence(command.keys));
    action->setCheckable(static_cast<bool>(command.isChecked));
    connect(action, &QAction::triggered, this, [this, run = std::move(command.run)] {
        run();
        // A click on what is checked already has unchecked it.
        refresh();
    });
    menu->addAction(action);
    m_items.push_back({action, std::move(command.isEnabled), std::move(command.isChecked)});
    return action;
}

void MainMenus::addFile() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("File"));
    add(menu, {.text = tr("Open Before…"), .keys = QStringLiteral("Ctrl+O"), .run = [this] {
                   m_model.choose(Side::before);
               }});
    add(menu, {.text = tr("Open After…"), .keys = QStringLiteral("Ctrl+Shift+O"), .run = [this] {
                   m_model.choose(Side::after);
               }});
    add(menu, {.text = tr("Open the Sample"), .run = [this] { m_model.openSamples(); }});
    menu->addSeparator();
    const auto canExport = [this] { return m_model.result() && !m_model.exporting(); };
    add(menu,
        {.text = tr("Export Excel Report…"),
         .keys = QStringLiteral("Ctrl+E"),
         .run = [this] { m_model.exportReport(ReportKind::excel); },
         .isEnabled = canExport});
    add(menu,
        {.text = tr("Export HTML Report…"),
         .keys = QStringLiteral("Ctrl+Shift+E"),
         .run = [this] { m_model.exportReport(ReportKind::html); },
         .isEnabled = canExport});
    menu->addSeparator();
    const MacMenuBaseline::MenuBaseline baseline{
        .close = MacMenuBaseline::CloseWindowAction::through(m_window.closeGuard()), .help = {}, .helpItems = {}};
    m_everywhere.append(baseline.addCloseTo(*menu));
    // Through the close guard too: a report that is being written is not given up.
    QAction* const quit = add(menu, {.text = tr("Quit Corvale"), .keys = QStringLiteral("Ctrl+Q"), .run = [this] {
                                         m_window.closeGuard().close(&m_window);
                                     }});
    quit->setMenuRole(QAction::QuitRole);
    m_everywhere.append(quit);
}

void MainMenus::addEdit() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("Edit"));
    add(menu,
        {.text = tr("Search Rows"),
         .keys = QStringLiteral("Ctrl+F"),
         .run = [this] { m_model.setFocusSearch(true); },
         .isEnabled = [this] { return m_model.result() != nullptr; }});
    menu->addSeparator();
    add(menu, {.text = tr("Settings…"), .keys = QStringLiteral("Ctrl+,"), .run = m_actions.showSettings})
        ->setMenuRole(QAction::PreferencesRole);
}

void MainMenus::addCompare() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("Compare"));
    add(menu,
        {.text = tr("Compare Again"),
         .keys = QStringLiteral("Ctrl+R"),
         .run = [this] { m_model.compareAgain(); },
         .isEnabled = [this] { return m_model.before() && m_model.after(); }});
    add(menu,
        {.text = tr("Swap Before and After"),
         .keys = QStringLiteral("Ctrl+Alt+S"),
         .run = [this] { m_model.swap(); },
         .isEnabled = [this] { return m_model.before() || m_model.after(); }});
    menu->addSeparator();
    addView(menu, {.text = tr("Unified View"), .keys = QStringLiteral("Ctrl+1")}, ViewMode::unified);
    addView(menu, {.text = tr("Side by Side View"), .keys = QStringLiteral("Ctrl+2")}, ViewMode::sideBySide);
    menu->addSeparator();
    addShow(menu, {.text = tr("Show Only Changes"), .keys = QStringLiteral("Ctrl+3")}, DiffFilter::Show::changes);
    addShow(menu, {.text = tr("Show All Rows"), .keys = QStringLiteral("Ctrl+4")}, DiffFilter::Show::all);
    menu->addSeparator();
    m_details = add(menu,
                    {.keys = QStringLiteral("Ctrl+Alt+I"),
                     .run = [this] { m_model.toggleInspector(); },
                     .isEnabled = [this] { return m_model.result() != nullptr; }});
}

void MainMenus::addView(QMenu* menu, Command command, ViewMode view) {
    command.run = [this, view] { Edit::settings(m_model, [view](AppSettings& settings) { settings.view = view; }); };
    command.isChecked = [this, view] { return m_model.settings().view == view; };
    add(menu, std::move(command));
}

void MainMenus::addShow(QMenu* menu, Command command, DiffFilter::Show show) {
    command.run = [this, show] { Edit::filter(m_model, [show](DiffFilter& filter) { filter.show = show; }); };
    command.isEnabled = [this] { return m_model.result() != nullptr; };
    command.isChecked = [this, show] { return m_model.filter().show == show; };
    add(menu, std::move(command));
}

void MainMenus::addHelp() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("Help"));
    QList<QAction*> further;
    if (m_actions.checkForUpdates) {
        auto* const updates = new QAction(tr("Check for Updates…"), this);
        updates->setMenuRole(QAction::ApplicationSpecificRole);
        connect(updates, &QAction::triggered, this, m_actions.checkForUpdates);
        m_items.push_back({updates, m_actions.canCheckForUpdates, {}});
        further.append(updates);
    }
    auto* const separator = new QAction(this);
    separator->setSeparator(true);
    auto* const about = new QAction(tr("About Corvale"), this);
    about->setMenuRole(QAction::AboutRole);
    connect(about, &QAction::triggered, this, m_actions.showAbout);
    further.append({separator, about});
    const MacMenuBaseline::MenuBaseline baseline{
        .close = {},
        .help = MacMenuBaseline::MenuHelp{.appName = QStringLiteral("Corvale"),
                                          .shortcut = QKeySequence(QKeySequence::HelpContents),
                                          .action = m_actions.showHelp},
        .helpItems = further};
    m_everywhere.append(baseline.addHelpTo(*menu));
}

void MainMenus::refresh() {
    for (const Item& item : m_items) {
        item.action->setEnabled(!item.isEnabled || item.isEnabled());
        if (item.isChecked) {
            item.action->setChecked(item.isChecked());
        }
    }
    m_details->setText(m_model.showInspector() ? tr("Hide Row Details") : tr("Show Row Details"));
}

}  // namespace corvale
