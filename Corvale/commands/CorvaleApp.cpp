#include "Corvale/commands/CorvaleApp.h"

#include <QUrl>
#include <QUrlQuery>

#include "Corvale/commands/Vendor.h"

namespace corvale {

CorvaleApp::Environment CorvaleApp::Environment::ofVendor() {
    return {.updateEndpoint = QUrl(QString::fromUtf8(Vendor::updateEndpoint)),
            .updateFeed = QUrl(QString::fromUtf8(Vendor::updateFeed)),
            .opener = AddressOpener()};
}

CorvaleApp::CorvaleApp(Platform& platform, Theme& theme, QSettings& store, const Environment& environment)
    : m_opener(environment.opener),
      m_canUpdate(!environment.updateEndpoint.isEmpty() && !environment.updateFeed.isEmpty()),
      m_model(platform),
      m_window(m_model, platform, theme),
      m_help(new HelpView(theme, &m_window)),
      m_settings(new SettingsView(m_model, theme, &m_window)),
      m_about(new AboutPanel(&m_window)),
      m_welcome(new WelcomeView(m_model, theme, &m_window)),
      m_alerts(m_window, m_opener),
      m_controller({.feed = environment.updateFeed, .program = ProgramIdentity::current()}, store, m_alerts),
      m_updater(m_controller, m_alerts, environment.updateEndpoint, ProgramIdentity::current()),
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
    if (m_canUpdate) {
        actions.checkForUpdates = [this] { m_updater.checkForUpdates(); };
    }
    return actions;
}

void CorvaleApp::start(const QStringList& files) {
    m_window.show();
    m_delegate.open(files);
    m_welcome->refresh();
    if (m_canUpdate) {
        startUpdater();
    }
}

void CorvaleApp::startUpdater() {
    if (m_model.sheet()) {
        QObject::connect(&m_model,
                         &AppModel::sheetChanged,
                         &m_controller,
                         &FeedUpdaterController::startUpdater,
                         Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    } else {
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
    m_opener.open(message, *m_help);
}

}  // namespace corvale
