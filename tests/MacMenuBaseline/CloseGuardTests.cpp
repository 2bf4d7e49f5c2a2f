#include <gtest/gtest.h>

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QWindow>
#include <memory>

#include "MacMenuBaseline/CloseGuard.h"

namespace MacMenuBaseline {
namespace {

// A guard of a shown main window, which counts how often it asks.
struct CloseGuardTest : testing::Test {
    CloseGuardTest() {
        main.show();
        guard.setMain(&main);
        guard.shouldClose = [this](const QWidget& window) {
            ++asked;
            closing = &window;
            return answer;
        };
    }

    QMainWindow main;
    CloseGuard guard;
    bool answer = true;
    int asked = 0;
    const QWidget* closing = nullptr;  // that it asked for last
};

TEST(CloseGuard, AllowsClosingByDefault) {
    CloseGuard guard;
    const QWidget window;
    EXPECT_TRUE(guard.shouldClose(window));
}

TEST_F(CloseGuardTest, WithoutASenderClosesTheMainWindow) {
    guard.close(nullptr);
    EXPECT_FALSE(main.isVisible());
    EXPECT_EQ(asked, 1);
}

TEST_F(CloseGuardTest, AnEmptyCallbackAllowsClosing) {
    guard.shouldClose = {};
    guard.close(nullptr);
    EXPECT_FALSE(main.isVisible());
}

TEST_F(CloseGuardTest, LeavesTheWindowOpenWhenItShouldNotClose) {
    answer = false;
    guard.close(nullptr);
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(asked, 1);
}

TEST_F(CloseGuardTest, AsksAgainAfterARefusal) {
    answer = false;
    guard.close(nullptr);
    answer = true;
    guard.close(nullptr);
    EXPECT_FALSE(main.isVisible());
    EXPECT_EQ(asked, 2);
}

TEST_F(CloseGuardTest, ClosesTheWindowOfTheSenderRatherThanTheMainOne) {
    QWidget other;
    auto* sender = new QPushButton(&other);
    other.show();
    guard.close(sender);
    EXPECT_FALSE(other.isVisible());
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(closing, &other);
}

TEST_F(CloseGuardTest, LeavesTheWindowOfTheSenderOpenWhenItShouldNotClose) {
    QWidget other;
    other.show();
    answer = false;
    guard.close(&other);
    EXPECT_TRUE(other.isVisible());
}

TEST_F(CloseGuardTest, ASenderThatIsInNoWindowMeansTheMainOne) {
    const QPushButton lonely;
    guard.close(&lonely);
    EXPECT_FALSE(main.isVisible());
}

TEST_F(CloseGuardTest, TakesAnActionInAMenuForTheWindowOfItsMenuBar) {
    QMainWindow other;
    const QAction* item = other.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Close"));
    other.show();
    guard.close(item);
    EXPECT_FALSE(other.isVisible());
    EXPECT_TRUE(main.isVisible());
}

TEST_F(CloseGuardTest, TakesAMenuWithoutAnOwnerForNoWindow) {
    QMenu menu;
    guard.close(menu.addAction(QStringLiteral("Close")));
    EXPECT_FALSE(main.isVisible());
}

TEST_F(CloseGuardTest, TakesAnObjectForTheWidgetThatOwnsIt) {
    QWidget other;
    const QObject helper(&other);
    other.show();
    guard.close(&helper);
    EXPECT_FALSE(other.isVisible());
    EXPECT_TRUE(main.isVisible());
}

TEST(CloseGuard, DoesNothingWithoutASenderOnceTheMainWindowIsGone) {
    CloseGuard guard;
    int asked = 0;
    guard.shouldClose = [&asked](const QWidget&) { return ++asked > 0; };
    {
        QWidget main;
        main.show();
        guard.setMain(&main);
        EXPECT_EQ(guard.main(), &main);
    }
    EXPECT_EQ(guard.main(), nullptr);
    guard.close(nullptr);
    EXPECT_EQ(asked, 0);
}

TEST_F(CloseGuardTest, AsksWhenTheWindowManagerClosesTheMainWindow) {
    answer = false;
    main.windowHandle()->close();
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(closing, &main);
    answer = true;
    main.windowHandle()->close();
    EXPECT_FALSE(main.isVisible());
    EXPECT_EQ(asked, 2);
}

TEST_F(CloseGuardTest, AsksWhenTheMainWindowIsToldToClose) {
    answer = false;
    EXPECT_FALSE(main.close());
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(asked, 1);
}

TEST_F(CloseGuardTest, LetsGoOfTheFormerMainWindow) {
    QWidget next;
    guard.setMain(&next);
    answer = false;
    EXPECT_TRUE(main.close());
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(guard.main(), &next);
}

TEST_F(CloseGuardTest, RefusesOtherAttemptsWhileItAsks) {
    guard.shouldClose = [this](const QWidget&) {
        ++asked;
        guard.close(nullptr);
        main.windowHandle()->close();
        EXPECT_TRUE(main.isVisible());
        return false;
    };
    guard.close(nullptr);
    EXPECT_TRUE(main.isVisible());
    EXPECT_EQ(asked, 1);
}

TEST(CloseGuard, SurvivesAWindowThatGoesAwayDuringTheQuestion) {
    CloseGuard guard;
    auto main = std::make_unique<QWidget>();
    main->show();
    guard.setMain(main.get());
    guard.shouldClose = [&main](const QWidget&) {
        main.reset();
        return true;
    };
    guard.close(nullptr);
    EXPECT_EQ(guard.main(), nullptr);
}

}  // namespace
}  // namespace MacMenuBaseline
