#include "Corvale/commands/CorvaleApp.h"

#include <QDesktopServices>
#include <QUrl>
#include <QUrlQuery>

#include "Corvale/commands/Vendor.h"

namespace corvale {

namespace {

QUrl updateEndpoint() { return QUrl(QString::fromUtf8(Vendor::updateEndpoint)); }
QUrl updateFeed() { return QUrl(QString::fromUtf8(Vendor::updateFeed)); }
bool canUpdate() { return !updateEndpoint().isEmpty() && !updateFeed().isEmpty(); }

}  // namespace

CorvaleApp::CorvaleApp(Platform& platform, Theme& theme, QSettings& store)
    : m_model(platform),
      m_window(m_model, platform, theme),
      m_help(new HelpView(theme, &m_window)),
      m_settings(new SettingsView(m_model, theme, &m_window)),
      m_about(new AboutPanel(&m_window)),
      m_welcome(new WelcomeView(m_model, theme, &m_window)),
      m_alerts(m_window),
      m_controller({.feed = updateFeed(), .program = ProgramIdentity::current()}, store, m_alerts),
      m_updater(m_controller, m_alerts, updateEndpoint(), ProgramIdentity::current()),
      m_delegate(m_model),
      m_menus(new MainMenus(m_model, m_window, actions())) {
    for (QWidget* further : std::initializer_list<QWidget*>{m_help, m_settings, m_about, m_welcome}) {
        further->addActions(m_menus->actionsEverywhere());
    }
    QObject::connect(m_welcome, &WelcomeView::helpWanted, m_help, &HelpView::open);
    QObject::connect(m_help, &HelpView::emailWanted, m_help, [this] { writeToSupport(); });
    QObject::connect(&m_updater, &Updater::checkingChanged, m_menus, &MainMenus::refresh);
}

MainMenus::Actions CorvaleApp::actions() {
    MainMenus::Actions actions{.showSettings = [this] { m_settings->open(); },
                               .showHelp = [this] { m_help->open(); },
                               .showAbout = [this] { m_about->open(); },
                               .checkForUpdates = {},
                               .canCheckForUpdates = [this] { return !m_updater.checking(); }};
    if (canUpdate()) {
        actions.checkForUpdates = [this] { m_updater.checkForUpdates(); };
    }
    return actions;
}

void CorvaleApp::start(const QStringList& files) {
    m_window.show();
    m_delegate.open(files);
    m_welcome->refresh();
    if (canUpdate()) {
        m_controller.startUpdater();
    }
}

void CorvaleApp::writeToSupport() {
    QUrl message;
    message.setScheme(QStringLiteral("mailto"));
    message.setPath(QString::fromUtf8(Vendor::supportAddress));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("subject"), QStringLiteral("Corvale"));
    message.setQuery(query);
    QDesktopServices::openUrl(message);
}

}  // namespace corvale
