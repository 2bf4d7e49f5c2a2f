#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "Corvale/commands/UpdateAlerts.h"

namespace corvale {
namespace {

class UpdateAlertsTest : public testing::Test {
protected:
    UpdateAlertsTest() { m_window.show(); }

    QMessageBox& alert() {
        auto* const found = m_window.findChild<QMessageBox*>();
        if (found == nullptr) {
            throw std::runtime_error("no alert");
        }
        return *found;
    }
    void click(const QString& text) {
        for (QAbstractButton* button : alert().buttons()) {
            if (button->text() == text) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << "no button " << text.toStdString();
    }

    QWidget m_window;
    bool m_hasBrowser = true;
    QList<QUrl> m_browsed;
    UpdateAlerts m_alerts{m_window, AddressOpener([this](const QUrl& address) {
                              m_browsed.append(address);
                              return m_hasBrowser;
                          })};
};

TEST_F(UpdateAlertsTest, TellWithOneButton) {
    m_alerts.tell(QStringLiteral("You’re up to date"), QStringLiteral("Nothing new."));
    EXPECT_TRUE(alert().isVisible());
    EXPECT_EQ(alert().text(), QStringLiteral("You’re up to date"));
    EXPECT_EQ(alert().informativeText(), QStringLiteral("Nothing new."));
    ASSERT_EQ(alert().buttons().size(), 1);
    click(QStringLiteral("OK"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.findChild<QMessageBox*>() == nullptr; }));
}

TEST_F(UpdateAlertsTest, AskForConsentAndTakeEitherAnswer) {
    for (const bool wanted : {true, false}) {
        std::optional<bool> answer;
        m_alerts.askForConsent([&](bool mayCheck) { answer = mayCheck; });
        EXPECT_FALSE(answer);
        click(wanted ? QStringLiteral("Check Automatically") : QStringLiteral("Don’t Check"));
        EXPECT_EQ(answer, wanted);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.findChild<QMessageBox*>() == nullptr; }));
    }
}

TEST_F(UpdateAlertsTest, TakeClosingForNo) {
    const std::vector<std::function<void()>> ways{[this] { QTest::keyClick(&alert(), Qt::Key_Escape); },
                                                  [this] { alert().close(); }};
    for (const auto& close : ways) {
        std::vector<bool> answers;
        m_alerts.askForConsent([&](bool mayCheck) { answers.push_back(mayCheck); });
        close();
        EXPECT_EQ(answers, std::vector{false});
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.findChild<QMessageBox*>() == nullptr; }));
    }
}

TEST_F(UpdateAlertsTest, OfferAVersionWithItsNewsAsPlainText) {
    bool isOpened = false;
    m_alerts.offer({.version = QStringLiteral("1.4"),
                    .description = QStringLiteral("<p>Faster <b>search</b><img src='https://example.com/spy.png'></p>"),
                    .releaseNotes = {},
                    .file = {},
                    .page = QUrl(QStringLiteral("https://example.com")),
                    .system = {},
                    .minimumSystem = {}},
                   [&] { isOpened = true; });
    EXPECT_TRUE(alert().informativeText().contains(QStringLiteral("1.4")));
    EXPECT_TRUE(alert().informativeText().contains(QStringLiteral("Faster search")));
    EXPECT_FALSE(alert().informativeText().contains(QStringLiteral("spy")));
    EXPECT_FALSE(alert().informativeText().contains(QChar(QChar::ObjectReplacementCharacter)));
    EXPECT_EQ(alert().textFormat(), Qt::PlainText);
    EXPECT_EQ(alert().buttons().size(), 2) << "no release notes, no button for them";
    click(QStringLiteral("Open Download Page"));
    EXPECT_TRUE(isOpened);
}

TEST_F(UpdateAlertsTest, KeepTheLinesOfNewsThatAreNoHtml) {
    struct Case {
        QString description;
        QString shown;
    };
    for (const Case& each : {Case{QStringLiteral("Faster search\n- 1 < 2 is found\n\n- fewer clicks\n"),
                                  QStringLiteral("Faster search\n- 1 < 2 is found\n\n- fewer clicks")},
                             Case{QStringLiteral("What is new:\n<ul><li>Faster\nsearch</li></ul>"),
                                  QStringLiteral("What is new: \nFaster search")},
                             Case{QStringLiteral("<p>One</p><p>Two</p>"), QStringLiteral("One\nTwo")}}) {
        AppcastItem item;
        item.version = QStringLiteral("1.4");
        item.description = each.description;
        m_alerts.offer(item, [] {});
        EXPECT_EQ(alert().informativeText(),
                  QStringLiteral("Version 1.4 is ready to download from our web page.\n\n") + each.shown);
        click(QStringLiteral("Not Now"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.findChild<QMessageBox*>() == nullptr; }));
    }
}

TEST_F(UpdateAlertsTest, ShowTheReleaseNotesInTheBrowser) {
    AppcastItem item;
    item.releaseNotes = QUrl(QStringLiteral("https://example.com/notes"));
    m_alerts.offer(item, [] {});
    click(QStringLiteral("Release Notes"));
    EXPECT_EQ(m_browsed, QList{item.releaseNotes});
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_window.findChild<QMessageBox*>() == nullptr; }));
}

TEST_F(UpdateAlertsTest, GiveTheAddressWhereThereIsNoBrowser) {
    m_hasBrowser = false;
    m_alerts.browse(QUrl(QStringLiteral("https://example.com/get?a=b%20c")));
    EXPECT_EQ(alert().text(), QStringLiteral("Couldn’t open a browser"));
    EXPECT_EQ(alert().informativeText(), QStringLiteral("The address of the page is https://example.com/get?a=b%20c."));
}

TEST_F(UpdateAlertsTest, KeepLongNewsOnTheScreen) {
    m_alerts.offer({.version = QStringLiteral("1.4"),
                    .description = QStringLiteral("<ul>%1</ul>").arg(QStringLiteral("<li>x</li>").repeated(200)),
                    .releaseNotes = {},
                    .file = {},
                    .page = {},
                    .system = {},
                    .minimumSystem = {}},
                   [] {});
    EXPECT_LT(alert().informativeText().count(u'\n'), 30);
    EXPECT_TRUE(alert().informativeText().endsWith(u'…'));
}

TEST_F(UpdateAlertsTest, LeaveItAtThat) {
    bool isOpened = false;
    m_alerts.offer({.version = QStringLiteral("1.4"),
                    .description = QString(5000, u'x'),
                    .releaseNotes = QUrl(QStringLiteral("https://example.com/notes")),
                    .file = {},
                    .page = {},
                    .system = {},
                    .minimumSystem = {}},
                   [&] { isOpened = true; });
    EXPECT_EQ(alert().buttons().size(), 3);
    EXPECT_LT(alert().informativeText().size(), 2000);
    click(QStringLiteral("Not Now"));
    EXPECT_FALSE(isOpened);
}

}  // namespace
}  // namespace corvale
