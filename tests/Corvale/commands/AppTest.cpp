#include "tests/Corvale/commands/AppTest.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace corvale::TestSupport {

namespace {

QString described(const QAction& action) {
    if (action.isSeparator()) {
        return QStringLiteral("-");
    }
    QString text = action.text();
    if (!action.shortcut().isEmpty()) {
        text += QStringLiteral(" (%1)").arg(action.shortcut().toString(QKeySequence::PortableText));
    }
    text = action.isEnabled() ? text : u'[' + text + u']';
    return action.isChecked() ? QStringLiteral("✓ ") + text : text;
}

}  // namespace

AppTest::AppTest() {
    AppSettings settings;
    settings.onboardingDone = true;
    m_platform.stored["settings"] = settings.encoded();
}

CorvaleApp& AppTest::start(const QStringList& files) {
    m_app = std::make_unique<CorvaleApp>(m_platform, theme(), m_store, m_environment);
    m_app->start(files);
    m_platform.settle();
    return *m_app;
}

void AppTest::openSamples() {
    model().openSamples();
    m_platform.settle();
}

std::vector<std::string> AppTest::menu(const std::string& title) {
    std::vector<std::string> items;
    for (const QAction* entry : m_app->window().menuBar()->actions()) {
        if (entry->text().toStdString() == title) {
            for (const QAction* action : entry->menu()->actions()) {
                items.push_back(described(*action).toStdString());
            }
        }
    }
    return items;
}

QAction& AppTest::item(const std::string& text) {
    for (const QAction* entry : m_app->window().menuBar()->actions()) {
        for (QAction* action : entry->menu()->actions()) {
            if (action->text().toStdString() == text) {
                return *action;
            }
        }
    }
    throw std::runtime_error("no item " + text);
}

void AppTest::trigger(const std::string& text) {
    item(text).trigger();
    m_platform.settle();
}

}  // namespace corvale::TestSupport
