#include <gtest/gtest.h>

#include <QTest>

#include "Corvale/window/WindowTracker.h"

namespace corvale {
namespace {

// A view in a window of 400 x 300, and what its tracker tells.
struct WindowTrackerTest : testing::Test {
    WindowTrackerTest() { window.resize(400, 300); }

    void track() {
        tracker = new WindowTracker(
            *view,
            [this](QWidget& found) { windows.append(&found); },
            [this](const QSize& size) { sizes.append(size); });
    }

    QWidget window;
    QWidget* view = new QWidget(&window);
    WindowTracker* tracker = nullptr;
    QList<QWidget*> windows;
    QList<QSize> sizes;
};

TEST_F(WindowTrackerTest, TellsOfTheWindowOnce) {
    track();
    EXPECT_EQ(windows, QList<QWidget*>());
    window.show();
    window.hide();
    window.show();
    EXPECT_EQ(windows, QList<QWidget*>{&window});
}

TEST_F(WindowTrackerTest, TellsOfEachResize) {
    window.show();
    track();
    window.resize(500, 300);
    window.resize(600, 200);
    EXPECT_EQ(sizes, (QList<QSize>{{500, 300}, {600, 200}}));
}

TEST_F(WindowTrackerTest, FollowsOnlyTheWindowThatTheViewIsIn) {
    QWidget other;
    other.resize(100, 100);
    other.show();
    window.show();
    track();
    view->setParent(&other);
    window.resize(500, 300);
    other.resize(200, 200);
    EXPECT_EQ(windows, (QList<QWidget*>{&window, &other}));
    EXPECT_EQ(sizes, (QList<QSize>{{200, 200}}));
}

TEST_F(WindowTrackerTest, IsSilentOnceItIsGone) {
    track();
    tracker->deleteLater();
    const QPointer<QObject> gone(tracker);
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.isNull(); }));
    window.show();
    window.resize(500, 300);
    EXPECT_EQ(windows, QList<QWidget*>());
    EXPECT_EQ(sizes, QList<QSize>());
}

TEST_F(WindowTrackerTest, NeedsNoCallbacks) {
    const WindowTracker silent(*view, {}, {});
    EXPECT_NO_THROW(window.show());
    EXPECT_NO_THROW(window.resize(500, 300));
}

}  // namespace
}  // namespace corvale
