#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <cstdlib>

#include "tests/Corvale/commands/AppTest.h"

namespace corvale {
namespace {

class WelcomeViewTest : public TestSupport::AppTest {
protected:
    WelcomeViewTest() {
        m_platform.stored.clear();
        start();
    }

    WelcomeView& welcome() { return window<WelcomeView>(); }
    void click(const QString& text) {
        child<QPushButton>(welcome(), text).click();
        m_platform.settle();
    }
};

TEST_F(WelcomeViewTest, GreetsAtTheFirstStart) {
    EXPECT_TRUE(welcome().isVisible());
    QStringList texts;
    for (const QLabel* label : welcome().findChildren<QLabel*>()) {
        if (!label->text().isEmpty()) {
            texts.append(label->text());
        }
    }
    EXPECT_EQ(
        texts,
        (QStringList{
            QStringLiteral("Welcome to Corvale"),
            QStringLiteral("Two files, one key"),
            QStringLiteral("Open the older and newer spreadsheet (.xlsx, CSV or TSV). Corvale suggests the column "
                           "that identifies each row, like an ID or SKU."),
            QStringLiteral("Every change, highlighted"),
            QStringLiteral("Added, removed and changed rows, with the changed cells marked. Ignore case, extra "
                           "spaces, number formatting or column order."),
            QStringLiteral("Private by design"),
            QStringLiteral("Your files stay on this Mac. No account, no tracking, nothing uploaded.")}));
}

TEST_F(WelcomeViewTest, IsSeenOnceItIsClosed) {
    click(QStringLiteral("Get Started"));
    EXPECT_FALSE(welcome().isVisible());
    EXPECT_TRUE(model().settings().onboardingDone);
    EXPECT_TRUE(AppSettings::decoded(m_platform.stored.at("settings")).onboardingDone);
    start();
    EXPECT_FALSE(welcome().isVisible());
}

TEST_F(WelcomeViewTest, IsSeenAlsoWhenEscapeClosesIt) {
    QTest::keyClick(&welcome(), Qt::Key_Escape);
    EXPECT_FALSE(welcome().isVisible());
    EXPECT_TRUE(model().settings().onboardingDone);
}

TEST_F(WelcomeViewTest, OpensTheSample) {
    click(QStringLiteral("Try the Sample"));
    EXPECT_FALSE(welcome().isVisible());
    EXPECT_TRUE(model().result());
    EXPECT_TRUE(model().settings().onboardingDone);
}

TEST_F(WelcomeViewTest, OpensTheHelp) {
    click(QStringLiteral("Help"));
    auto& help = window<HelpView>();
    EXPECT_TRUE(help.isVisible());
    EXPECT_TRUE(welcome().isVisible());
    // By the window, as the system does, since a sheet over the main window keeps others from the keys.
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(help.windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
    EXPECT_TRUE(welcome().isVisible());
}

TEST_F(WelcomeViewTest, LetsOneQuit) {
    ASSERT_TRUE(QTest::qWaitForWindowActive(&welcome()));
    QTest::keyClick(&welcome(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(m_app->window().isVisible());
}

TEST_F(WelcomeViewTest, ComesAgainWhenTheSettingsAskForIt) {
    click(QStringLiteral("Get Started"));
    trigger("Settings…");
    child<QPushButton>(window<SettingsView>(), QStringLiteral("Show the Welcome Screen Again")).click();
    EXPECT_FALSE(model().settings().onboardingDone);
    EXPECT_TRUE(welcome().isVisible());
    EXPECT_FALSE(window<SettingsView>().isVisible()) << "it would cover the sheet, and take no keys";
}

TEST_F(WelcomeViewTest, FollowsTheWindow) {
    QWidget& window = m_app->window();
    const auto isInTheMiddle = [&] {
        const QRect sheet = welcome().geometry();
        return std::abs(sheet.center().x() - window.geometry().center().x()) <= 1 &&
               sheet.top() == window.geometry().y() + std::max(0, (window.height() - sheet.height()) / 3);
    };
    window.setGeometry(20, 30, 800, 700);
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle)) << "resized";
    window.move(90, 70);
    EXPECT_TRUE(QTest::qWaitFor(isInTheMiddle)) << "moved";
}

TEST_F(WelcomeViewTest, IsNotInterruptedByTheQuestionAboutUpdates) {
    m_environment.updateEndpoint = m_environment.updateFeed = QUrl(QStringLiteral("http://127.0.0.1:9/"));
    m_store.setValue(QStringLiteral("updates/hasStarted"), true);
    start();
    const auto question = [this] { return m_app->window().findChild<QMessageBox*>(); };
    QApplication::processEvents();
    EXPECT_EQ(question(), nullptr);
    EXPECT_TRUE(item("Check for Updates…").isEnabled());
    click(QStringLiteral("Get Started"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return question() != nullptr; }));
    EXPECT_EQ(question()->text(), QStringLiteral("Check for updates automatically?"));
}

}  // namespace
}  // namespace corvale
