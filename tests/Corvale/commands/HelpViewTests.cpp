#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QSignalSpy>
#include <QTextBrowser>

#include "Corvale/style/Theme.h"
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

TEST(HelpTopics, SayTheirParagraphs) {
    const std::vector<QStringList> texts = {
        {QStringLiteral(
             "Open the older file on the left (Before) and the newer one on the right (After): click Choose…, drop the "
             "files on the window, or choose File › Open Before… (⌘O). Select two files at once to fill both sides."),
         QStringLiteral(
             "Corvale reads Excel workbooks (.xlsx), CSV and TSV. For a workbook with several sheets, pick the sheet "
             "from the menu under its name. The first row with something in it is the header row."),
         QStringLiteral("Numbers files: in Numbers, choose File › Export To › Excel… (or CSV…) and open the exported "
                        "file. Older .xls files: save them as .xlsx first.")},
        {QStringLiteral("A key column is a column that names each row once, such as an order number, SKU, employee ID "
                        "or email. Rows with the same key are compared with each other, wherever they are in the file, "
                        "so sorting or inserting rows doesn't matter."),
         QStringLiteral("Corvale suggests the column that's filled in on every row, unique, and shared by both files. "
                        "Pick another one under Match rows by."),
         QStringLiteral("Duplicate keys: when a key is on more than one row, the repeats are paired in order (first "
                        "with first) and listed under the counts. Rows with an empty key are compared the same way."),
         QStringLiteral("No key column? Choose Row order: Corvale lines up identical rows and compares the ones in "
                        "between, so one inserted row doesn't mark everything after it as changed.")},
        {QStringLiteral("Ignore case: Apple and APPLE match. Ignore extra spaces: spaces at the ends and doubled "
                        "spaces don't count. Ignore number formatting: 1,250.00, $1250 and 1250 match, and so do 50% "
                        "and 0.5, and 007 and 7. Ignore column order: columns are matched by name wherever they are; "
                        "turn it off to compare column A with A, B with B."),
         QStringLiteral("Ignore Columns leaves columns such as Last updated out of the comparison."),
         QStringLiteral("Cells that differ only in number format, case or spacing are marked in blue and counted "
                        "separately, so you can see them before deciding to ignore them.")},
        {QStringLiteral("The counts at the top are filters: click Added, Removed or Changed to list only those rows; "
                        "click again to go back to all changes. Unchanged shows every row."),
         QStringLiteral(
             "Unified view: one line per row, with each changed cell showing the old value struck through and the new "
             "one in bold. Side by side: the Before cells on the left and the After cells on the right."),
         QStringLiteral("Show (in the toolbar) picks the rows, the column menu lists only rows with a change in one "
                        "column, and Search finds words in any cell. Click a row, or use the arrow keys, to see all of "
                        "its cells in Row Details."),
         QStringLiteral("Comparisons run in the background with a progress bar; 100,000-row files take a few seconds. "
                        "Compare › Compare Again (⌘R) reads both files again after you edit them.")},
        {QStringLiteral(
             "File › Export Excel Report (⌘E) saves a workbook with three sheets: Summary, Changes (added rows green, "
             "removed rows red, changed cells yellow) and Cell changes (every changed cell, before and after)."),
         QStringLiteral("File › Export HTML Report (⇧⌘E) saves one web page you can email or print. It has no scripts "
                        "and loads nothing from the internet.")},
        {QStringLiteral("Corvale reads your spreadsheets on this Mac and keeps nothing from them after you quit. "
                        "There's no account and no tracking, and your files are never uploaded.")},
    };
    const QList<Topic> topics = helpTopics();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(topics[static_cast<qsizetype>(i)].paragraphs, texts[i]);
    }
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

TEST_F(HelpViewTest, FitsOnTheScreen) {
    const QSize room = help().screen()->availableSize();
    ASSERT_LT(room.width(), 820) << "this screen shows nothing";
    EXPECT_EQ(help().size(), help().size().boundedTo(room));
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

TEST_F(HelpViewTest, BeginsAMessageToSupport) {
    help().select(QStringLiteral("support"));
    child<QPushButton>(help(), QStringLiteral("Email Support")).click();
    ASSERT_EQ(m_opened.size(), 1);
    EXPECT_EQ(m_opened.front().scheme(), QStringLiteral("mailto"));
    EXPECT_TRUE(text().contains(m_opened.front().path())) << "for those whose mail is elsewhere";
    EXPECT_EQ(help().findChild<QMessageBox*>(), nullptr);
}

TEST_F(HelpViewTest, GivesTheAddressOfSupportWhereThereIsNoMailProgram) {
    m_opensAddresses = false;
    help().select(QStringLiteral("support"));
    child<QPushButton>(help(), QStringLiteral("Email Support")).click();
    auto* const alert = help().findChild<QMessageBox*>();
    ASSERT_NE(alert, nullptr);
    const QString address = m_opened.front().path();
    EXPECT_EQ(alert->text(), QStringLiteral("Couldn’t open a mail program"));
    EXPECT_EQ(alert->informativeText(), QStringLiteral("The address to write to is %1.").arg(address));
    EXPECT_TRUE(alert->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    child<QPushButton>(*alert, QStringLiteral("Copy Address")).click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), address);
}

TEST_F(HelpViewTest, ListsAllTopicsWhenItIsOpenedAgain) {
    search().setText(QStringLiteral("duplicate"));
    trigger("Corvale Help");
    EXPECT_EQ(listed().size(), 1) << "it was open all the time";
    help().close();
    trigger("Corvale Help");
    EXPECT_EQ(listed().size(), 7);
    EXPECT_EQ(search().text(), QString());
    EXPECT_EQ(help().selected(), QStringLiteral("key"));
}

TEST_F(HelpViewTest, DrawsATopicOnce) {
    const QSignalSpy drawn(help().findChild<QTextBrowser*>()->document(), &QTextDocument::contentsChanged);
    help().select(QStringLiteral("read"));
    EXPECT_EQ(drawn.size(), 1);
    help().select(QStringLiteral("read"));
    EXPECT_EQ(drawn.size(), 1);
}

TEST_F(HelpViewTest, HasAnEdgeBetweenTopicsAndTextFromTopToBottom) {
    help().resize(600, 400);
    const QImage picture = help().grab().toImage();
    const int edge = list().mapTo(&help(), list().rect().topRight()).x() + 1;
    for (int y = 0; y < picture.height(); ++y) {
        ASSERT_EQ(picture.pixelColor(edge, y), TestSupport::theme().palette().border) << y;
    }
}

}  // namespace
}  // namespace corvale
