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
        m_controller = std::make_unique<FeedUpdaterController>(
            FeedUpdaterController::Configuration{.feed = m_server.url(feedPath),
                                                 .program = {QStringLiteral("Corvale"), QStringLiteral("1.2")},
                                                 .system = {QStringLiteral("linux"), QStringLiteral("6.1")},
                                                 .timeout = std::chrono::seconds(5),
                                                 .betweenLooksAtTheClock = m_betweenLooks,
                                                 .now = [this] { return m_now; }},
            m_settings,
            m_windows);
        m_controller->startUpdater();
        return *m_controller;
    }

    // The second start asks, and the user agrees.
    void startWithConsent() {
        start();
        start();
        ASSERT_EQ(m_windows.questions.size(), 1);
        m_windows.questions.takeFirst()(true);
    }

    testing::AssertionResult isAsked(qsizetype times) {
        return QTest::qWaitFor([&] { return m_server.requests().size() >= times; }, 5000)
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << m_server.requests().size() << " requests";
    }
    bool isLooking() const { return m_controller->findChild<UpdateRequest*>() != nullptr; }
    static bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 5000); }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
    TestSupport::LoopbackServer m_server;
    TestSupport::RecordedWindows m_windows;
    std::chrono::milliseconds m_betweenLooks = std::chrono::hours(1);
    QDateTime m_now = QDateTime(QDate(2026, 11, 21), QTime(12, 0), Qt::UTC);
    std::unique_ptr<FeedUpdaterController> m_controller;
};

TEST_F(FeedUpdaterTest, ShowsANewVersionAndOpensItsPageInTheBrowser) {
    m_server.answerWithBody(feedPath, feedWith("1.3"));
    start().checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return !m_windows.offered.isEmpty(); }));
    EXPECT_EQ(m_windows.offered, QStringList(QStringLiteral("1.3")));
    EXPECT_TRUE(m_windows.browsed.isEmpty());
    m_windows.opens.first()();
    EXPECT_EQ(m_windows.browsed, QList{QUrl(QStringLiteral("https://example.com/get"))});
    // The feed, and nothing that it speaks of.
    ASSERT_EQ(m_server.requests().size(), 1);
    EXPECT_TRUE(m_server.requests().first().startsWith("GET /feed.xml "));
}

TEST_F(FeedUpdaterTest, SaysSoWhenTheFeedHasOlderVersionsOnly) {
    m_server.answerWithBody(feedPath, feedWith("1.1"));
    start().checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return !m_windows.told.isEmpty(); }));
    EXPECT_TRUE(m_windows.told.first().startsWith(QStringLiteral("You’re up to date: Corvale 1.2 is the newest")));
    EXPECT_TRUE(m_windows.offered.isEmpty());
}

TEST_F(FeedUpdaterTest, CouldNotCheckWithAFeedThatIsNone) {
    const QByteArray tooLong(5 * 1024 * 1024, ' ');
    const QByteArray cutOff = "HTTP/1.1 200 OK\r\nContent-Length: 9999\r\n\r\n" + feedWith("1.3");
    m_server.answerWithBody(QStringLiteral("/1"), "<rss><channel>");
    m_server.answerWithBody(QStringLiteral("/2"), tooLong + feedWith("1.3"));
    m_server.answer(QStringLiteral("/3"), cutOff);
    m_server.answerWithStatus(QStringLiteral("/4"), 500);
    for (const QString& path :
         {QStringLiteral("/1"), QStringLiteral("/2"), QStringLiteral("/3"), QStringLiteral("/4")}) {
        m_windows.told.clear();
        FeedUpdaterController other(
            {.feed = m_server.url(path), .timeout = std::chrono::seconds(5)}, m_settings, m_windows);
        other.checkForUpdates();
        ASSERT_TRUE(waitFor([&] { return !m_windows.told.isEmpty(); })) << path.toStdString();
        EXPECT_TRUE(m_windows.told.first().startsWith(QStringLiteral("Couldn’t check for updates")))
            << path.toStdString();
    }
    EXPECT_TRUE(m_windows.offered.isEmpty());
}

TEST_F(FeedUpdaterTest, MakesNoRequestBeforeTheUserAgrees) {
    m_server.answerWithBody(feedPath, feedWith("1.3"));
    start();
    EXPECT_TRUE(m_windows.questions.isEmpty()) << "at the first start";
    EXPECT_FALSE(isLooking());
    start();
    ASSERT_EQ(m_windows.questions.size(), 1) << "at the second";
    EXPECT_FALSE(isLooking());
    m_windows.questions.takeFirst()(false);
    EXPECT_FALSE(isLooking());
    start();
    EXPECT_TRUE(m_windows.questions.isEmpty()) << "after an answer";
    EXPECT_FALSE(isLooking());
}

TEST_F(FeedUpdaterTest, LooksOnceADayByItself) {
    m_server.answerWithBody(feedPath, feedWith("1.1"));
    startWithConsent();
    ASSERT_TRUE(isAsked(1));
    ASSERT_TRUE(waitFor([&] { return m_settings.contains(QStringLiteral("updates/lastCheck")); }));
    m_now = m_now.addSecs(23 * 60 * 60);
    start();
    EXPECT_FALSE(isLooking());
    m_now = m_now.addSecs(60 * 60);
    start();
    EXPECT_TRUE(isLooking());
    ASSERT_TRUE(isAsked(2));
    EXPECT_TRUE(m_windows.told.isEmpty()) << "nothing new is no news";
}

TEST_F(FeedUpdaterTest, LooksAgainADayLaterWithoutBeingStartedAnew) {
    EXPECT_EQ(FeedUpdaterController::Configuration().betweenLooksAtTheClock, std::chrono::hours(1));
    m_server.answerWithBody(feedPath, feedWith("1.1"));
    m_betweenLooks = std::chrono::milliseconds(1);
    startWithConsent();
    const auto lastCheck = [this] { return m_settings.value(QStringLiteral("updates/lastCheck")).toDateTime(); };
    ASSERT_TRUE(waitFor([&] { return lastCheck() == m_now; }));
    m_now = m_now.addDays(1);
    ASSERT_TRUE(waitFor([&] { return lastCheck() == m_now; }));
    EXPECT_EQ(m_server.requests().size(), 2) << "once a day, however often it looks at the clock";
}

TEST_F(FeedUpdaterTest, LooksAgainWhenTheClockHasGoneBack) {
    m_server.answerWithBody(feedPath, feedWith("1.1"));
    startWithConsent();
    ASSERT_TRUE(isAsked(1));
    ASSERT_TRUE(waitFor([&] { return m_settings.contains(QStringLiteral("updates/lastCheck")); }));
    m_now = m_now.addDays(-400);
    start();
    EXPECT_TRUE(isAsked(2));
}

TEST_F(FeedUpdaterTest, SpeaksOfAVersionOnceUnlessAsked) {
    m_server.answerWithBody(feedPath, feedWith("1.3"));
    startWithConsent();
    ASSERT_TRUE(waitFor([&] { return m_windows.offered.size() == 1; }));
    m_now = m_now.addDays(2);
    const QVariant before = m_settings.value(QStringLiteral("updates/lastCheck"));
    FeedUpdaterController& again = start();
    ASSERT_TRUE(waitFor([&] { return m_settings.value(QStringLiteral("updates/lastCheck")) != before; }));
    EXPECT_EQ(m_windows.offered.size(), 1);
    again.checkForUpdates();
    ASSERT_TRUE(waitFor([&] { return m_windows.offered.size() == 2; }));
}

TEST_F(FeedUpdaterTest, KeepsQuietByItselfWithoutANetwork) {
    m_server.close();
    startWithConsent();
    ASSERT_TRUE(waitFor([&] { return m_settings.contains(QStringLiteral("updates/lastCheck")); }));
    EXPECT_TRUE(m_windows.told.isEmpty());
}

TEST_F(FeedUpdaterTest, TakesAnAnswerThatComesAfterItsEnd) {
    start();
    start();
    m_controller.reset();
    ASSERT_EQ(m_windows.questions.size(), 1);
    m_windows.questions.takeFirst()(true);
    EXPECT_TRUE(m_server.requests().isEmpty());
}

}  // namespace
}  // namespace corvale
