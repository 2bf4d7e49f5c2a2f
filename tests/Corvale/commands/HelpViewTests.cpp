#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QSignalSpy>
#include <QTextBrowser>

#include "tests/Corvale/commands/AppTest.h"

namespace corvale {
namespace {

TEST(HelpTopics, StandInOneOrderEachWithItsSymbol) {
    std::vector<std::string> topics;
    QSet<QString> ids;
    for (const Topic& topic : helpTopics()) {
        topics.push_back((topic.title + u'/' + topic.symbol).toStdString());
        ids.insert(topic.id);
        EXPECT_FALSE(topic.paragraphs.isEmpty()) << topic.id.toStdString();
    }
    EXPECT_EQ(topics,
              (std::vector<std::string>{"Getting started/play.circle",
                                        "Matching rows/key",
                                        "What counts as a change/slider.horizontal.3",
                                        "Reading the results/tablecells",
                                        "Reports/square.and.arrow.up",
                                        "Your data and privacy/lock.shield",
                                        "Support/envelope"}));
    EXPECT_EQ(static_cast<std::size_t>(ids.size()), topics.size());
}

TEST(HelpTopics, AreFoundByAnyWordsInThem) {
    const Topic topic{
        .id = {},
        .title = QStringLiteral("Matching rows"),
        .symbol = {},
        .paragraphs = {QStringLiteral("A key column names each row."), QStringLiteral("Duplicate keys.")}};
    for (const QString& search : {QString(),
                                  QStringLiteral("  "),
                                  QStringLiteral("KEY"),
                                  QStringLiteral("rows names"),
                                  QStringLiteral("dup match")}) {
        EXPECT_TRUE(topic.contains(search)) << search.toStdString();
    }
    EXPECT_FALSE(topic.contains(QStringLiteral("key privacy")));
}

class HelpViewTest : public TestSupport::AppTest {
protected:
    HelpViewTest() {
        start();
        trigger("Corvale Help");
    }

    QString text() { return help().findChild<QTextBrowser*>()->toPlainText(); }
    HelpView& help() { return window<HelpView>(); }
    QLineEdit& search() { return *help().findChild<QLineEdit*>(); }
    QListWidget& list() { return *help().findChild<QListWidget*>(); }
    QStringList listed() {
        QStringList titles;
        for (int row = 0; row < list().count(); ++row) {
            if (!list().item(row)->isHidden()) {
                titles.append(list().item(row)->text());
            }
        }
        return titles;
    }
};

TEST_F(HelpViewTest, BeginsAtTheStart) {
    EXPECT_TRUE(help().isVisible());
    EXPECT_EQ(help().selected(), QStringLiteral("start"));
    EXPECT_TRUE(text().startsWith(QStringLiteral("Getting started\nOpen the older file on the left (Before)")));
    EXPECT_EQ(help().windowTitle(), QStringLiteral("Corvale Help"));
}

TEST_F(HelpViewTest, ShowsTheTopicThatIsChosen) {
    for (int row = 0; row < list().count(); ++row) {
        list().setCurrentRow(row);
        const Topic topic = helpTopics()[row];
        EXPECT_EQ(help().selected(), topic.id);
        EXPECT_EQ(text(), topic.title + u'\n' + topic.paragraphs.join(u'\n'));
    }
}

TEST_F(HelpViewTest, ListsTheTopicsThatHaveTheWords) {
    search().setText(QStringLiteral("duplicate"));
    EXPECT_EQ(listed(), QStringList(QStringLiteral("Matching rows")));
    EXPECT_EQ(help().selected(), QStringLiteral("key"));
    search().setText(QStringLiteral("html scripts"));
    EXPECT_EQ(listed(), QStringList(QStringLiteral("Reports")));
    search().clear();
    EXPECT_EQ(listed().size(), 7);
    EXPECT_EQ(help().selected(), QStringLiteral("reports"));
}

TEST_F(HelpViewTest, SaysWhenNoTopicHasThem) {
    search().setText(QStringLiteral("zebra"));
    EXPECT_TRUE(listed().isEmpty());
    EXPECT_TRUE(child<QLabel>(help(), QStringLiteral("No topic has these words.")).isVisible());
    search().clear();
    EXPECT_FALSE(child<QLabel>(help(), QStringLiteral("No topic has these words.")).isVisible());
}

TEST_F(HelpViewTest, LetsOneCopyItsText) {
    auto* const browser = help().findChild<QTextBrowser*>();
    EXPECT_TRUE(browser->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    EXPECT_TRUE(browser->textInteractionFlags().testFlag(Qt::TextSelectableByKeyboard));
}

TEST_F(HelpViewTest, OffersAMessageToSupportUnderSupportAlone) {
    auto& email = child<QPushButton>(help(), QStringLiteral("Email Support"));
    EXPECT_FALSE(email.isVisible());
    help().select(QStringLiteral("support"));
    EXPECT_TRUE(email.isVisible());
}

}  // namespace
}  // namespace corvale
