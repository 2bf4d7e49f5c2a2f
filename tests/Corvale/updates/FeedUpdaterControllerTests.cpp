#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "Corvale/updates/FeedUpdaterController.h"
#include "tests/Corvale/updates/LoopbackServer.h"
#include "tests/Corvale/updates/RecordedWindows.h"

namespace corvale {
namespace {

const QString feedPath = QStringLiteral("/feed.xml");

QByteArray feedWith(const QByteArray& version) {
    return "<rss><channel><link>https://example.com/get</link><item><shortVersionString>" + version +
           "</shortVersionString></item></channel></rss>";
}

class FeedUpdaterTest : public testing::Test {
protected:
    // A start of the program; what it kept from the one before stays in the settings.
    FeedUpdaterController& start() {
        controller = std::make_unique<FeedUpdaterController>(
            FeedUpdaterController::Configuration{.feed = server.url(feedPath),
                                                 .program = {QStringLiteral("Corvale"), QStringLiteral("1.2")},
                                                 .system = {QStringLiteral("linux"), QStringLiteral("6.1")},
                                                 .timeout = std::chrono::seconds(5),
                                                 .betweenLooksAtTheClock = betweenLooks,
                                                 .now = [this] { return now; }},
            settings,
            windows);
        controller->startUpdater();
        return *controller;
    }

    // The second start asks, and the user agrees.
    void startWithConsent() {
        start();
        start();
        ASSERT_EQ(windows.questions.size(), 1);
        windows.questions.takeFirst()(true);
    }

    testing::AssertionResult isAsked(qsizetype times) {
        return QTest::qWaitFor([&] { return server.requests().size() >= times; }, 5000)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << server.requests().size() << " requests";
    }
    bool isLooking() const { return controller->findChild<UpdateRequest*>() != nullptr; }
    bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }

    QTemporaryDir folder;
    QSettings settings{folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    TestSupport::LoopbackServer server;
    TestSupport::RecordedWindows windows;
    std::chrono::milliseconds betweenLooks = std::chrono::hours(1);
    QDateTime now = QDateTime(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC);
    std::unique_ptr<FeedUpdaterController> controller;
};

TEST_F(FeedUpdaterTest, ShowsANewVersionAndOpensItsPageInTheBrowser) {
    server.answerWithBody(feedPath, feedWith("1.3"));
    start().checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return !windows.offered.isEmpty(); }));
    EXPECT_EQ(windows.offered, QStringList(QStringLiteral("1.3")));
    EXPECT_TRUE(windows.browsed.isEmpty());
    windows.opens.first()();
    EXPECT_EQ(windows.browsed, QList{QUrl(QStringLiteral("https://example.com/get"))});
    // The feed, and nothing that it speaks of.
    ASSERT_EQ(server.requests().size(), 1);
    EXPECT_TRUE(server.requests().first().startsWith("GET /feed.xml "));
}

TEST_F(FeedUpdaterTest, SaysSoWhenTheFeedHasOlderVersionsOnly) {
    server.answerWithBody(feedPath, feedWith("1.1"));
    start().checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return !windows.told.isEmpty(); }));
    EXPECT_TRUE(windows.told.first().startsWith(QStringLiteral("You’re up to date: Corvale 1.2 is the newest")));
    EXPECT_TRUE(windows.offered.isEmpty());
}

TEST_F(FeedUpdaterTest, CouldNotCheckWithAFeedThatIsNone) {
    const QByteArray tooLong(5 * 1024 * 1024, ' ');
    const QByteArray cutOff = "HTTP/1.1 200 OK\r\nContent-Length: 9999\r\n\r\n" + feedWith("1.3");
    server.answerWithBody(QStringLiteral("/1"), "<rss><channel>");
    server.answerWithBody(QStringLiteral("/2"), tooLong + feedWith("1.3"));
    server.answer(QStringLiteral("/3"), cutOff);
    server.answerWithStatus(QStringLiteral("/4"), 500);
    for (const QString& path :
         {QStringLiteral("/1"), QStringLiteral("/2"), QStringLiteral("/3"), QStringLiteral("/4")}) {
        windows.told.clear();
        FeedUpdaterController other({.feed = server.url(path), .timeout = std::chrono::seconds(5)}, settings, windows);
        other.checkForUpdates();
        ASSERT_TRUE(waitFor([&] { return !windows.told.isEmpty(); })) << path.toStdString();
        EXPECT_TRUE(windows.told.first().startsWith(QStringLiteral("Couldn’t check for updates")))
            << path.toStdString();
    }
    EXPECT_TRUE(windows.offered.isEmpty());
}

TEST_F(FeedUpdaterTest, MakesNoRequestBeforeTheUserAgrees) {
    server.answerWithBody(feedPath, feedWith("1.3"));
    start();
    EXPECT_TRUE(windows.questions.isEmpty()) << "at the first start";
    EXPECT_FALSE(isLooking());
    start();
    ASSERT_EQ(windows.questions.size(), 1) << "at the second";
    EXPECT_FALSE(isLooking());
    windows.questions.takeFirst()(false);
    EXPECT_FALSE(isLooking());
    start();
    EXPECT_TRUE(windows.questions.isEmpty()) << "after an answer";
    EXPECT_FALSE(isLooking());
}

TEST_F(FeedUpdaterTest, LooksOnceADayByItself) {
    server.answerWithBody(feedPath, feedWith("1.1"));
    startWithConsent();
    ASSERT_TRUE(isAsked(1));
    ASSERT_TRUE(waitFor([&] { return settings.contains(QStringLiteral("updates/lastCheck")); }));
    now = now.addSecs(23 * 60 * 60);
    start();
    EXPECT_FALSE(isLooking());
    now = now.addSecs(60 * 60);
    start();
    EXPECT_TRUE(isLooking());
    ASSERT_TRUE(isAsked(2));
    EXPECT_TRUE(windows.told.isEmpty()) << "nothing new is no news";
}

TEST_F(FeedUpdaterTest, LooksAgainADayLaterWithoutBeingStartedAnew) {
    EXPECT_EQ(FeedUpdaterController::Configuration().betweenLooksAtTheClock, std::chrono::hours(1));
    server.answerWithBody(feedPath, feedWith("1.1"));
    betweenLooks = std::chrono::milliseconds(1);
    startWithConsent();
    const auto lastCheck = [this] { return settings.value(QStringLiteral("updates/lastCheck")).toDateTime(); };
    ASSERT_TRUE(waitFor([&] { return lastCheck() == now; }));
    now = now.addDays(1);
    ASSERT_TRUE(waitFor([&] { return lastCheck() == now; }));
    EXPECT_EQ(server.requests().size(), 2) << "once a day, however often it looks at the clock";
}

TEST_F(FeedUpdaterTest, LooksAgainWhenTheClockHasGoneBack) {
    server.answerWithBody(feedPath, feedWith("1.1"));
    startWithConsent();
    ASSERT_TRUE(isAsked(1));
    ASSERT_TRUE(waitFor([&] { return settings.contains(QStringLiteral("updates/lastCheck")); }));
    now = now.addDays(-400);
    start();
    EXPECT_TRUE(isAsked(2));
}

TEST_F(FeedUpdaterTest, SpeaksOfAVersionOnceUnlessAsked) {
    server.answerWithBody(feedPath, feedWith("1.3"));
    startWithConsent();
    ASSERT_TRUE(waitFor([&] { return windows.offered.size() == 1; }));
    now = now.addDays(2);
    const QVariant before = settings.value(QStringLiteral("updates/lastCheck"));
    FeedUpdaterController& again = start();
    ASSERT_TRUE(waitFor([&] { return settings.value(QStringLiteral("updates/lastCheck")) != before; }));
    EXPECT_EQ(windows.offered.size(), 1);
    again.checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return windows.offered.size() == 2; }));
}

TEST_F(FeedUpdaterTest, KeepsQuietByItselfWithoutANetwork) {
    server.close();
    startWithConsent();
    ASSERT_TRUE(waitFor([&] { return settings.contains(QStringLiteral("updates/lastCheck")); }));
    EXPECT_TRUE(windows.told.isEmpty());
}

TEST_F(FeedUpdaterTest, TakesAnAnswerThatComesAfterItsEnd) {
    start();
    start();
    controller.reset();
    ASSERT_EQ(windows.questions.size(), 1);
    windows.questions.takeFirst()(true);
    EXPECT_TRUE(server.requests().isEmpty());
}

}  // namespace
}  // namespace corvale
