#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "MacMenuBaseline/CloseGuard.h"
#include "MacMenuBaseline/MenuBaseline.h"

namespace MacMenuBaseline {
namespace {

TEST(MenuBaseline, AddsCloseWindowWithItsShortcut) {
    QMenu menu;
    QAction* item = MenuBaseline().addCloseTo(menu);
    EXPECT_EQ(menu.actions(), QList<QAction*>{item});
    EXPECT_EQ(item->text(), QStringLiteral("Close Window"));
    EXPECT_EQ(item->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_W));
    EXPECT_EQ(item->shortcuts().count(item->shortcut()), 1);
}

TEST(MenuBaseline, CloseWindowRunsItsCallback) {
    QMenu menu;
    int runs = 0;
    MenuBaseline baseline;
    baseline.close.run = [&runs] { ++runs; };
    baseline.addCloseTo(menu)->trigger();
    EXPECT_EQ(runs, 1);
}

TEST(MenuBaseline, ItemsWithoutACallbackDoNothing) {
    QMenu menu;
    MenuBaseline baseline;
    baseline.help = MenuHelp{};
    baseline.addCloseTo(menu)->trigger();
    baseline.addHelpTo(menu);
    menu.actions().constLast()->trigger();
    EXPECT_EQ(menu.actions().size(), 2);
}

TEST(MenuBaseline, TheHelpItemComesFirstAndCarriesTheNameOfTheApplication) {
    QMenu menu;
    QAction about(QStringLiteral("About"));
    int opened = 0;
    MenuBaseline baseline;
    baseline.help = MenuHelp{QStringLiteral("Abacus"), QKeySequence(Qt::Key_F1), [&opened] { ++opened; }};
    baseline.helpItems = {&about};
    baseline.addHelpTo(menu);
    ASSERT_EQ(menu.actions().size(), 2);
    QAction* item = menu.actions().constFirst();
    EXPECT_EQ(item->text(), QStringLiteral("Abacus Help"));
    EXPECT_EQ(item->shortcut(), QKeySequence(Qt::Key_F1));
    item->trigger();
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(menu.actions().constLast(), &about);
}

TEST(MenuBaseline, F1OpensTheHelpBesidesTheShortcutThatIsShown) {
    const QKeySequence f1(Qt::Key_F1);
    const QKeySequence ofMac(Qt::CTRL | Qt::Key_Question);
    for (const auto& [shown, all] : {std::pair(ofMac, QList{ofMac, f1}), {f1, {f1}}}) {
        QMenu menu;
        MenuBaseline baseline;
        baseline.help = MenuHelp{QStringLiteral("Abacus"), shown, {}};
        baseline.addHelpTo(menu);
        EXPECT_EQ(menu.actions().constFirst()->shortcuts(), all);
    }
}

TEST(MenuBaseline, WithoutHelpTheHelpMenuHoldsOnlyTheFurtherItems) {
    QMenu menu;
    QAction updates(QStringLiteral("Check for Updates…"));
    QAction separator;
    separator.setSeparator(true);
    QAction about(QStringLiteral("About"));
    MenuBaseline baseline;
    baseline.helpItems = {&updates, &separator, &about};
    baseline.addHelpTo(menu);
    EXPECT_EQ(menu.actions(), baseline.helpItems);
}

TEST(MenuBaseline, AnAmpersandInTheNameIsShown) {
    QMenu menu;
    MenuBaseline baseline;
    baseline.help = MenuHelp{QStringLiteral("Salt & Pepper"), {}, {}};
    baseline.addHelpTo(menu);
    EXPECT_EQ(menu.actions().constFirst()->text(), QStringLiteral("Salt && Pepper Help"));
}

// A main window and a second one, both with the close command of one guard.
struct CloseShortcut : testing::Test {
    CloseShortcut() {
        guard.setMain(&main);
        MenuBaseline baseline;
        baseline.close = CloseWindowAction::through(guard);
        second.addAction(baseline.addCloseTo(*main.menuBar()->addMenu(QStringLiteral("File"))));
        main.show();
        second.show();
    }

    static void pressCtrlWIn(QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    }

    QMainWindow main;
    QWidget second;
    CloseGuard guard;
};

TEST_F(CloseShortcut, ClosesTheMainWindow) {
    pressCtrlWIn(main);
    EXPECT_FALSE(main.isVisible());
    EXPECT_TRUE(second.isVisible());
}

TEST_F(CloseShortcut, ClosesTheWindowThatHasTheKeyboard) {
    pressCtrlWIn(second);
    EXPECT_FALSE(second.isVisible());
    EXPECT_TRUE(main.isVisible());
}

TEST_F(CloseShortcut, AsksTheGuard) {
    guard.shouldClose = [](const QWidget&) { return false; };
    pressCtrlWIn(main);
    EXPECT_TRUE(main.isVisible());
}

TEST_F(CloseShortcut, WorksAgainOnAWindowShownAgain) {
    pressCtrlWIn(second);
    second.show();
    pressCtrlWIn(second);
    EXPECT_FALSE(second.isVisible());
}

}  // namespace
}  // namespace MacMenuBaseline
