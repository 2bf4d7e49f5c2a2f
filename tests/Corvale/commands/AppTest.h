#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QList>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Corvale/commands/CorvaleApp.h"
#include "tests/Corvale/model/ScriptedPlatform.h"
#include "tests/support-qt/TestTheme.h"

namespace corvale::TestSupport {

// The whole application over a scripted system. The welcome sheet was seen before.
class AppTest : public testing::Test {
protected:
    AppTest();

    CorvaleApp& start(const QStringList& files = {});
    AppModel& model() { return m_app->model(); }
    // The sample lists, compared.
    void openSamples();

    // "File", then its items: "Open Before… (Ctrl+O)", "-" for a separator, disabled ones as "[item]", checked ones as
    // "✓ item".
    std::vector<std::string> menu(const std::string& title);
    QAction& item(const std::string& text);
    void trigger(const std::string& text);

    // The child with this text (of a button or check box) or object of this class, of a window of the application.
    template <typename Widget>
    Widget& child(QWidget& window, const QString& text) {
        for (Widget* widget : window.findChildren<Widget*>()) {
            if (widget->text() == text) {
                return *widget;
            }
        }
        throw std::runtime_error("nothing says " + text.toStdString());
    }
    template <typename Window>
    Window& window() {
        auto* const found = m_app->window().findChild<Window*>();
        if (found == nullptr) {
            throw std::runtime_error("no such window");
        }
        return *found;
    }

    // The desktop has a program for addresses, unless this says otherwise.
    bool m_opensAddresses = true;
    QList<QUrl> m_opened;
    // No update checks.
    CorvaleApp::Environment m_environment{
        .updateEndpoint = {}, .updateFeed = {}, .opener = AddressOpener([this](const QUrl& address) {
                                                    m_opened.append(address);
                                                    return m_opensAddresses;
                                                })};
    ScriptedPlatform m_platform;
    QTemporaryDir m_folder;
    QSettings m_store{m_folder.filePath(QStringLiteral("store.ini")), QSettings::IniFormat};
    std::unique_ptr<CorvaleApp> m_app;
};

}  // namespace corvale::TestSupport
