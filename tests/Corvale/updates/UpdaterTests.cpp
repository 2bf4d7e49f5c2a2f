#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include "Corvale/updates/StandardUpdaterController.h"
#include "Corvale/updates/Updater.h"
#include "tests/Corvale/updates/LoopbackServer.h"
#include "tests/Corvale/updates/RecordedWindows.h"

namespace corvale {
namespace {

class CountingController : public StandardUpdaterController {
public:
    void startUpdater() override { ++starts; }
    void checkForUpdates() override { ++checks; }

    int starts = 0;
    int checks = 0;
};

class UpdaterTest : public testing::Test {
protected:
    static constexpr std::chrono::seconds patience{5};

    void check(const QUrl& endpoint, UpdateRequest::Milliseconds timeout = patience) {
        Updater updater(m_controller, m_windows, endpoint, {QStringLiteral("Corvale"), QStringLiteral("1.2")}, timeout);
        updater.checkForUpdates();
        EXPECT_TRUE(updater.checking());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !updater.checking(); }, 10000));
    }

    void expectAnUpdateMayBeThere() const {
        EXPECT_EQ(m_controller.checks, 1);
        EXPECT_EQ(m_windows.told, QStringList());
    }
    void expectUpToDate() const {
        EXPECT_EQ(m_controller.checks, 0);
        EXPECT_EQ(m_windows.told,
                  QStringList(QStringLiteral("You’re up to date: Corvale 1.2 is the newest version. Corvale checks for "
                                             "updates on its own and will let you know when there’s a new one.")));
    }
    void expectCouldNotCheck() const {
        EXPECT_EQ(m_controller.checks, 0);
        EXPECT_EQ(m_windows.told,
                  QStringList(QStringLiteral("Couldn’t check for updates: Check your internet connection and try "
                                             "again. Corvale also checks on its own about once a day.")));
    }

    TestSupport::LoopbackServer m_server;
    TestSupport::RecordedWindows m_windows;
    CountingController m_controller;
};

TEST(UpdateOutlook, FollowsFromTheStatusAlone) {
    for (int status = 0; status < 700; ++status) {
        const bool mayHave = (status >= 200 && status <= 299) || status == 405 || status == 501;
        const bool isUpToDate = status == 404 || status == 410;
        EXPECT_EQ(outlookOf(status),
                  mayHave      ? UpdateOutlook::mayHaveUpdate
                  : isUpToDate ? UpdateOutlook::upToDate
                               : UpdateOutlook::couldNotCheck)
            << status;
    }
    EXPECT_EQ(outlookOf(std::nullopt), UpdateOutlook::couldNotCheck);
}

TEST_F(UpdaterTest, AsksForTheHeadAloneAndPastEveryCache) {
    m_server.answerWithStatus(QStringLiteral("/feed.xml"), 200);
    check(m_server.url());
    ASSERT_EQ(m_server.requests().size(), 1);
    const QByteArray head = m_server.requests().first();
    EXPECT_TRUE(head.startsWith("HEAD /feed.xml HTTP/1.1\r\n")) << head.toStdString();
    EXPECT_TRUE(head.toLower().contains("cache-control: no-cache")) << head.toStdString();
    EXPECT_FALSE(head.toLower().contains("cookie")) << head.toStdString();
    EXPECT_TRUE(head.contains("\r\nUser-Agent: Corvale\r\n")) << head.toStdString();
    EXPECT_TRUE(head.contains("\r\nAccept-Language: *\r\n")) << head.toStdString();
}

TEST_F(UpdaterTest, LooksInEarnestWhereSomethingMayBeThere) {
    for (const int status : {200, 204, 405, 501}) {
        const QString path = QStringLiteral("/%1").arg(status);
        m_server.answerWithStatus(path, status);
        m_controller.checks = 0;
        check(m_server.url(path));
        expectAnUpdateMayBeThere();
    }
}

TEST_F(UpdaterTest, FollowsARedirection) {
    m_server.answerWithStatus(QStringLiteral("/feed.xml"), 301, "Location: /moved.xml\r\n");
    m_server.answerWithStatus(QStringLiteral("/moved.xml"), 200);
    check(m_server.url());
    expectAnUpdateMayBeThere();
    EXPECT_EQ(m_server.requests().size(), 2);
}

TEST_F(UpdaterTest, GivesUpOnARedirectionInACircle) {
    m_server.answerWithStatus(QStringLiteral("/feed.xml"), 302, "Location: /feed.xml\r\n");
    check(m_server.url());
    expectCouldNotCheck();
}

TEST_F(UpdaterTest, IsUpToDateWhereThereIsNoFeed) {
    for (const int status : {404, 410}) {
        const QString path = QStringLiteral("/%1").arg(status);
        m_server.answerWithStatus(path, status);
        m_windows.told.clear();
        check(m_server.url(path));
        expectUpToDate();
    }
}

TEST_F(UpdaterTest, CouldNotCheckAtAnyOtherStatus) {
    for (const int status : {400, 401, 403, 500, 503}) {
        const QString path = QStringLiteral("/%1").arg(status);
        m_server.answerWithStatus(path, status);
        m_windows.told.clear();
        check(m_server.url(path));
        expectCouldNotCheck();
    }
}

TEST_F(UpdaterTest, CouldNotCheckWhenTheServerHangs) {
    check(m_server.url(), std::chrono::milliseconds(50));
    expectCouldNotCheck();
    EXPECT_EQ(UpdateRequest::usualTimeout, std::chrono::seconds(15));
}

TEST_F(UpdaterTest, CouldNotCheckWhenTheConnectionIsRefused) {
    m_server.close();
    check(m_server.url());
    expectCouldNotCheck();
}

TEST_F(UpdaterTest, CouldNotCheckWhereTheServerBreaksTLS) {
    m_server.greet("HTTP/1.1 400 Speak TLS, but I do not\r\n\r\n");
    check(m_server.url(QStringLiteral("/feed.xml"), QStringLiteral("https")), std::chrono::minutes(1));
    expectCouldNotCheck();
}

TEST_F(UpdaterTest, CouldNotCheckWhenTheAnswerIsNoHTTP) {
    m_server.greet("SSH-2.0-whatever\r\n");
    check(m_server.url(), std::chrono::minutes(1));
    expectCouldNotCheck();
    m_windows.told.clear();
    check(QUrl(QStringLiteral("file:///")));
    expectCouldNotCheck();
}

TEST_F(UpdaterTest, AsksOnceHoweverOftenOneClicks) {
    m_server.answerWithStatus(QStringLiteral("/feed.xml"), 404);
    Updater updater(
        m_controller, m_windows, m_server.url(), {QStringLiteral("Corvale"), QStringLiteral("1.2")}, patience);
    const QSignalSpy changes(&updater, &Updater::checkingChanged);
    updater.checkForUpdates();
    updater.checkForUpdates();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !updater.checking(); }, 10000));
    EXPECT_EQ(m_server.requests().size(), 1);
    EXPECT_EQ(changes.size(), 2);
    expectUpToDate();
}

TEST_F(UpdaterTest, LeavesNothingBehindWhenItGoesEarly) {
    {
        Updater updater(m_controller, m_windows, m_server.url(), {}, patience);
        updater.checkForUpdates();
        EXPECT_TRUE(QTest::qWaitFor([&] { return !m_server.requests().isEmpty(); }, 10000));
    }
    EXPECT_EQ(m_windows.told, QStringList());
}

}  // namespace
}  // namespace corvale
