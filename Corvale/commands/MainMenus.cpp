#include "Corvale/commands/MainMenus.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/window/MainWindow.h"
#include "MacMenuBaseline/MenuBaseline.h"

namespace corvale {

namespace {

// On macOS, Qt takes Ctrl for ⌘.
QKeySequence keys(const char* portable) { return QKeySequence(QString::fromLatin1(portable)); }

}  // namespace

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

QAction* MainMenus::add(QMenu* menu, const QString& text, const QKeySequence& shortcut, std::function<void()> run,
                        std::function<bool()> isEnabled, std::function<bool()> isChecked) {
    auto* const action = new QAction(text, menu);
    action->setShortcut(shortcut);
    action->setCheckable(static_cast<bool>(isChecked));
    connect(action, &QAction::triggered, this, [this, run = std::move(run)] {
        run();
        // A click on what is checked already has unchecked it.
        refresh();
    });
    menu->addAction(action);
    m_items.push_back({action, std::move(isEnabled), std::move(isChecked)});
    return action;
}

void MainMenus::addFile() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("File"));
    add(menu, tr("Open Before…"), keys("Ctrl+O"), [this] { m_model.choose(Side::before); });
    add(menu, tr("Open After…"), keys("Ctrl+Shift+O"), [this] { m_model.choose(Side::after); });
    add(menu, tr("Open the Sample"), {}, [this] { m_model.openSamples(); });
    menu->addSeparator();
    const auto canExport = [this] { return m_model.result() && !m_model.exporting(); };
    add(
        menu,
        tr("Export Excel Report…"),
        keys("Ctrl+E"),
        [this] { m_model.exportReport(ReportKind::excel); },
        canExport);
    add(
        menu,
        tr("Export HTML Report…"),
        keys("Ctrl+Shift+E"),
        [this] { m_model.exportReport(ReportKind::html); },
        canExport);
    menu->addSeparator();
    const MacMenuBaseline::MenuBaseline baseline{
        .close = MacMenuBaseline::CloseWindowAction::through(m_window.closeGuard()), .help = {}, .helpItems = {}};
    m_everywhere.append(baseline.addCloseTo(*menu));
    // Through the close guard too: a report that is being written is not given up.
    QAction* const quit =
        add(menu, tr("Quit Corvale"), keys("Ctrl+Q"), [this] { m_window.closeGuard().close(&m_window); });
    quit->setMenuRole(QAction::QuitRole);
    m_everywhere.append(quit);
}

void MainMenus::addEdit() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("Edit"));
    add(
        menu,
        tr("Search Rows"),
        keys("Ctrl+F"),
        [this] { m_model.setFocusSearch(true); },
        [this] { return m_model.result() != nullptr; });
    menu->addSeparator();
    add(menu, tr("Settings…"), keys("Ctrl+,"), m_actions.showSettings)->setMenuRole(QAction::PreferencesRole);
}

void MainMenus::addCompare() {
    QMenu* const menu = m_window.menuBar()->addMenu(tr("Compare"));
    add(
        menu,
        tr("Compare Again"),
        keys("Ctrl+R"),
        [this] { m_model.compareAgain(); },
        [this] { return m_model.before() && m_model.after(); });
    add(
        menu,
        tr("Swap Before and After"),
        keys("Ctrl+Alt+S"),
        [this] { m_model.swap(); },
        [this] { return m_model.before() || m_model.after(); });
    menu->addSeparator();
    addViews(menu);
}

void MainMenus::addViews(QMenu* menu) {
    const auto viewItem = [&](const QString& text, const char* shortcut, ViewMode view) {
        add(
            menu,
            text,
            keys(shortcut),
            [this, view] {
                AppSettings settings = m_model.settings();
                settings.view = view;
                m_model.setSettings(settings);
            },
            {},
            [this, view] { return m_model.settings().view == view; });
    };
    const auto showItem = [&](const QString& text, const char* shortcut, DiffFilter::Show show) {
        add(
            menu,
            text,
            keys(shortcut),
            [this, show] {
                DiffFilter filter = m_model.filter();
                filter.show = show;
                m_model.setFilter(filter);
            },
            [this] { return m_model.result() != nullptr; },
            [this, show] { return m_model.filter().show == show; });
    };
    viewItem(tr("Unified View"), "Ctrl+1", ViewMode::unified);
    viewItem(tr("Side by Side View"), "Ctrl+2", ViewMode::sideBySide);
    menu->addSeparator();
    showItem(tr("Show Only Changes"), "Ctrl+3", DiffFilter::Show::changes);
    showItem(tr("Show All Rows"), "Ctrl+4", DiffFilter::Show::all);
    menu->addSeparator();
    m_details = add(
        menu,
        {},
        keys("Ctrl+Alt+I"),
        [this] { m_model.toggleInspector(); },
        [this] { return m_model.result() != nullptr; });
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
    baseline.addHelpTo(*menu);
    m_everywhere.append(menu->actions().constFirst());
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
