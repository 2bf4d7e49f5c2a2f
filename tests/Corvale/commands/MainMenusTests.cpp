#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <chrono>

#include "tests/Corvale/commands/AppTest.h"
#include "tests/Corvale/updates/LoopbackServer.h"

namespace corvale {
namespace {

using Items = std::vector<std::string>;

class MainMenusTest : public TestSupport::AppTest {};

TEST_F(MainMenusTest, OfferWhatCanBeDoneWithoutFiles) {
    start();
    EXPECT_EQ(menu("File"),
              (Items{"Open Before… (Ctrl+O)",
                     "Open After… (Ctrl+Shift+O)",
                     "Open the Sample",
                     "-",
                     "[Export Excel Report… (Ctrl+E)]",
                     "[Export HTML Report… (Ctrl+Shift+E)]",
                     "-",
                     "Close Window (Ctrl+W)",
                     "Quit Corvale (Ctrl+Q)"}));
    EXPECT_EQ(menu("Edit"), (Items{"[Search Rows (Ctrl+F)]", "-", "Settings… (Ctrl+,)"}));
    EXPECT_EQ(menu("Compare"),
              (Items{"[Compare Again (Ctrl+R)]",
                     "[Swap Before and After (Ctrl+Alt+S)]",
                     "-",
                     "✓ Unified View (Ctrl+1)",
                     "Side by Side View (Ctrl+2)",
                     "-",
                     "✓ [Show Only Changes (Ctrl+3)]",
                     "[Show All Rows (Ctrl+4)]",
                     "-",
                     "[Hide Row Details (Ctrl+Alt+I)]"}));
    EXPECT_EQ(menu("Help"), (Items{"Corvale Help (F1)", "-", "About Corvale"}));
}

TEST_F(MainMenusTest, OfferTheRestOnceThereIsAResult) {
    start();
    openSamples();
    EXPECT_EQ(menu("File"),
              (Items{"Open Before… (Ctrl+O)",
                     "Open After… (Ctrl+Shift+O)",
                     "Open the Sample",
                     "-",
                     "Export Excel Report… (Ctrl+E)",
                     "Export HTML Report… (Ctrl+Shift+E)",
                     "-",
                     "Close Window (Ctrl+W)",
                     "Quit Corvale (Ctrl+Q)"}));
    EXPECT_EQ(menu("Edit"), (Items{"Search Rows (Ctrl+F)", "-", "Settings… (Ctrl+,)"}));
    EXPECT_EQ(menu("Compare"),
              (Items{"Compare Again (Ctrl+R)",
                     "Swap Before and After (Ctrl+Alt+S)",
                     "-",
                     "✓ Unified View (Ctrl+1)",
                     "Side by Side View (Ctrl+2)",
                     "-",
                     "✓ Show Only Changes (Ctrl+3)",
                     "Show All Rows (Ctrl+4)",
                     "-",
                     "Hide Row Details (Ctrl+Alt+I)"}));
}

TEST_F(MainMenusTest, OpenEitherSide) {
    start();
    trigger("Open Before…");
    trigger("Open After…");
    ASSERT_EQ(m_platform.openPanels.size(), 2U);
    EXPECT_TRUE(m_platform.openPanels[0].allowsSeveral);
    EXPECT_FALSE(m_platform.openPanels[1].allowsSeveral);
}

TEST_F(MainMenusTest, OpenAndSwapTheSample) {
    start();
    trigger("Open the Sample");
    ASSERT_TRUE(model().result());
    const std::string before = model().before()->name;
    trigger("Swap Before and After");
    EXPECT_EQ(model().after()->name, before);
}

TEST_F(MainMenusTest, ExportEitherReport) {
    start();
    openSamples();
    trigger("Export Excel Report…");
    trigger("Export HTML Report…");
    ASSERT_EQ(m_platform.savePanels.size(), 1U) << "one panel at a time";
    m_platform.chooseTarget("");
    m_platform.settle();
    trigger("Export HTML Report…");
    ASSERT_EQ(m_platform.savePanels.size(), 2U);
    EXPECT_EQ(m_platform.savePanels[0].extension, QStringLiteral("xlsx"));
    EXPECT_EQ(m_platform.savePanels[1].extension, QStringLiteral("html"));
}

TEST_F(MainMenusTest, CannotExportWhileAReportIsWritten) {
    start();
    openSamples();
    item("Export Excel Report…").trigger();
    m_platform.chooseTarget("report.xlsx");
    EXPECT_TRUE(model().exporting());
    EXPECT_FALSE(item("Export Excel Report…").isEnabled());
    EXPECT_FALSE(item("Export HTML Report…").isEnabled());
    m_platform.settle();
    EXPECT_TRUE(item("Export Excel Report…").isEnabled());
}

TEST_F(MainMenusTest, CompareAgainReadsBothFilesAnew) {
    m_platform.files["a.csv"] = "id,n\n1,x\n";
    m_platform.files["b.csv"] = "id,n\n1,y\n";
    start();
    model().open({TestSupport::ScriptedPlatform::url("a.csv"), TestSupport::ScriptedPlatform::url("b.csv")},
                 Side::before);
    EXPECT_FALSE(item("Compare Again").isEnabled());
    m_platform.settle();
    const int reads = m_platform.reads;
    trigger("Compare Again");
    EXPECT_EQ(m_platform.reads, reads + 2);
}

TEST_F(MainMenusTest, CheckTheViewThatIsShown) {
    start();
    trigger("Side by Side View");
    EXPECT_EQ(model().settings().view, ViewMode::sideBySide);
    EXPECT_TRUE(item("Side by Side View").isChecked());
    EXPECT_FALSE(item("Unified View").isChecked());
    // Again changes nothing, not even the check mark.
    trigger("Side by Side View");
    EXPECT_TRUE(item("Side by Side View").isChecked());
    trigger("Unified View");
    EXPECT_EQ(model().settings().view, ViewMode::unified);
}

TEST_F(MainMenusTest, CheckTheRowsThatAreShown) {
    start();
    openSamples();
    trigger("Show All Rows");
    EXPECT_EQ(model().filter().show, DiffFilter::Show::all);
    EXPECT_TRUE(item("Show All Rows").isChecked());
    EXPECT_FALSE(item("Show Only Changes").isChecked());
    DiffFilter added;
    added.show = DiffFilter::Show::added;
    model().setFilter(added);
    EXPECT_FALSE(item("Show All Rows").isChecked());
    EXPECT_FALSE(item("Show Only Changes").isChecked());
    trigger("Show Only Changes");
    EXPECT_EQ(model().filter().show, DiffFilter::Show::changes);
}

TEST_F(MainMenusTest, SayWhatHappensToTheRowDetails) {
    start();
    openSamples();
    ASSERT_TRUE(model().showInspector());
    trigger("Hide Row Details");
    EXPECT_FALSE(model().showInspector());
    EXPECT_FALSE(model().inspectorWanted());
    trigger("Show Row Details");
    EXPECT_TRUE(model().showInspector());
}

TEST_F(MainMenusTest, TakeTheKeyboardToTheSearchField) {
    start();
    openSamples();
    m_app->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_app->window()));
    QTest::keyClick(&m_app->window(), Qt::Key_F, Qt::ControlModifier);
    auto* const field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Search rows"));
    EXPECT_FALSE(model().focusSearch());
}

TEST_F(MainMenusTest, ActOnTheirShortcuts) {
    start();
    openSamples();
    m_app->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_app->window()));
    QTest::keyClick(&m_app->window(), Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(model().settings().view, ViewMode::sideBySide);
    QTest::keyClick(&m_app->window(), Qt::Key_4, Qt::ControlModifier);
    EXPECT_EQ(model().filter().show, DiffFilter::Show::all);
    QTest::keyClick(&m_app->window(), Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_FALSE(model().showInspector());
    QTest::keyClick(&m_app->window(), Qt::Key_F1);
    EXPECT_TRUE(window<HelpView>().isVisible());
}

TEST_F(MainMenusTest, CloseTheWindowThatHasTheKeyboard) {
    start();
    auto& help = window<HelpView>();
    trigger("Corvale Help");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&help, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(help.isVisible());
    EXPECT_TRUE(m_app->window().isVisible());
    m_app->window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_app->window()));
    trigger("Close Window");
    EXPECT_FALSE(m_app->window().isVisible());
}

TEST_F(MainMenusTest, HelpAndQuitFromEveryWindow) {
    for (const char* further : {"Settings…", "About Corvale", "Corvale Help"}) {
        start();
        trigger(further);
        const auto isInFront = [this] { return !m_app->window().isActiveWindow() && QApplication::activeWindow(); };
        ASSERT_TRUE(QTest::qWaitFor(isInFront)) << further;
        QWidget* const shown = QApplication::activeWindow();
        QTest::keyClick(shown, Qt::Key_F1);
        EXPECT_TRUE(window<HelpView>().isVisible()) << further;
        shown->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(shown)) << further;
        QTest::keyClick(shown, Qt::Key_Q, Qt::ControlModifier);
        EXPECT_FALSE(m_app->window().isVisible()) << further;
    }
}

TEST_F(MainMenusTest, EndTheProgramWithTheHelpOpen) {
    start();
    trigger("Corvale Help");
    ASSERT_TRUE(window<HelpView>().isVisible());
    QTimer::singleShot(0, &m_app->window(), [this] { m_app->window().close(); });
    QTimer::singleShot(std::chrono::seconds(10), &m_app->window(), [] { QApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(MainMenusTest, DoNotQuitInTheMiddleOfAReport) {
    start();
    openSamples();
    item("Export Excel Report…").trigger();
    m_platform.chooseTarget("report.xlsx");
    item("Quit Corvale").trigger();
    EXPECT_TRUE(m_app->window().isVisible());
    m_platform.settle();
    EXPECT_FALSE(m_app->window().isVisible()) << "as soon as the report is there";
    EXPECT_TRUE(m_platform.files.contains("report.xlsx"));
}

TEST_F(MainMenusTest, CloseTheHelpWhileAReportIsWritten) {
    start();
    openSamples();
    item("Export Excel Report…").trigger();
    m_platform.chooseTarget("report.xlsx");
    ASSERT_TRUE(model().exporting());
    auto& help = window<HelpView>();
    help.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&help));
    QTest::keyClick(&help, Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(help.isVisible());
    m_platform.settle();
    EXPECT_FALSE(model().exporting());
    EXPECT_TRUE(m_app->window().isVisible());
}

TEST_F(MainMenusTest, OfferUpdateChecksOnlyWhereThereIsSomewhereToLook) {
    struct Case {
        QUrl endpoint;
        QUrl feed;
        bool isOffered;
    };
    const QUrl somewhere(QStringLiteral("http://127.0.0.1:9/"));
    for (const auto& [endpoint, feed, isOffered] : {Case{{}, {}, false},
                                                    Case{somewhere, {}, false},
                                                    Case{{}, somewhere, false},
                                                    Case{somewhere, somewhere, true}}) {
        m_environment.updateEndpoint = endpoint;
        m_environment.updateFeed = feed;
        start();
        EXPECT_EQ(menu("Help"),
                  isOffered ? (Items{"Corvale Help (F1)", "Check for Updates…", "-", "About Corvale"})
                            : (Items{"Corvale Help (F1)", "-", "About Corvale"}));
    }
    EXPECT_EQ(item("Check for Updates…").menuRole(), QAction::ApplicationSpecificRole);
}

TEST_F(MainMenusTest, CheckForUpdatesOnceAtATime) {
    TestSupport::LoopbackServer server;
    server.answerWithStatus(QStringLiteral("/feed.xml"), 404);
    m_environment.updateEndpoint = m_environment.updateFeed = server.url();
    start();
    item("Check for Updates…").trigger();
    EXPECT_FALSE(item("Check for Updates…").isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([this] { return item("Check for Updates…").isEnabled(); }, 10000));
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_TRUE(server.requests().first().startsWith("HEAD /feed.xml ")) << server.requests().first().toStdString();
    EXPECT_EQ(window<QMessageBox>().text(), QStringLiteral("You’re up to date"));
}

TEST_F(MainMenusTest, StandWhereTheSystemWantsThem) {
    start();
    EXPECT_EQ(item("Quit Corvale").menuRole(), QAction::QuitRole);
    EXPECT_EQ(item("Settings…").menuRole(), QAction::PreferencesRole);
    EXPECT_EQ(item("About Corvale").menuRole(), QAction::AboutRole);
}

}  // namespace
}  // namespace corvale
