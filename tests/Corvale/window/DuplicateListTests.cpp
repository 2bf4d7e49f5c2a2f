#include <QAccessible>
#include <QTableView>
#include <QTest>

#include "Corvale/window/DuplicateKeysModel.h"
#include "Corvale/window/DuplicateList.h"
#include "Corvale/window/SummaryStrip.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;

class DuplicateListTest : public WindowTest {
protected:
    void open() {
        m_list = m_window.findChild<DuplicateList*>();
        m_table = m_list->findChild<QTableView*>();
        QTest::mouseClick(m_note, Qt::LeftButton);
    }
    void compareDuplicates() {
        compare("ID,Name\n1,Pen\n2,Cup\n2,Hat\n3,Mat\n", "ID,Name\n1,Pen\n1,Pan\n1,Pin\n2,Cup\n3,Mat\n");
        m_model.setMatch(MatchChoice::key("ID"));
        m_platform.settle();
        m_note = &button("2 duplicate keys");
    }
    std::string cell(int row, int column) const {
        return m_table->model()->index(row, column).data().toString().toStdString();
    }

    Button* m_note = nullptr;
    DuplicateList* m_list = nullptr;
    QTableView* m_table = nullptr;
};

TEST_F(DuplicateListTest, ListsKeySideAndRows) {
    compareDuplicates();
    open();
    ASSERT_TRUE(m_list->isVisible());
    EXPECT_TRUE(m_window.findChild<SummaryStrip*>()->showDuplicates());
    ASSERT_EQ(m_table->model()->rowCount(), 2);
    EXPECT_EQ(cell(0, 0) + "|" + cell(0, 1) + "|" + cell(0, 2), "2|Before|rows 3, 4");
    EXPECT_EQ(cell(1, 0) + "|" + cell(1, 1) + "|" + cell(1, 2), "1|After|rows 2, 3, 4");
}

TEST_F(DuplicateListTest, NoteHasItsHelp) {
    compareDuplicates();
    EXPECT_EQ(m_note->accessibleDescription(),
              QStringLiteral("Keys on more than one row: repeats are paired in order. Click to see them."));
}

TEST_F(DuplicateListTest, EscapeAndAClickElsewhereCloseIt) {
    compareDuplicates();
    open();
    QTest::keyClick(m_table, Qt::Key_Escape);
    EXPECT_FALSE(m_list->isVisible());
    EXPECT_FALSE(m_note->isDown());
    open();
    EXPECT_TRUE(m_note->isDown());
    QTest::mouseClick(m_list, Qt::LeftButton, {}, {-20, -20});
    EXPECT_FALSE(m_list->isVisible());
}

TEST_F(DuplicateListTest, ClosesWhenTheResultGoes) {
    compareDuplicates();
    open();
    m_model.close(Side::after);
    EXPECT_FALSE(m_list->isVisible());
    EXPECT_EQ(m_table->model()->rowCount(), 0);
}

TEST_F(DuplicateListTest, StaysInsideTheWindow) {
    compareDuplicates();
    m_window.resize(760, 480);
    QApplication::processEvents();
    open();
    const QRect frame(m_window.mapToGlobal(QPoint()), m_window.size());
    EXPECT_GE(m_list->x(), frame.left());
    EXPECT_LE(m_list->x() + m_list->width(), frame.right() + 1);
    EXPECT_EQ(m_list->width(), 420);
}

TEST_F(DuplicateListTest, ShowsFewerLinesWhereTheWindowIsLow) {
    std::string rows = "ID,Name\n";
    for (int i = 0; i < 40; ++i) {
        rows += "K" + std::to_string(i / 2) + ",x\n";
    }
    compare(rows, rows);
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    m_window.resize(760, 480);
    QApplication::processEvents();
    m_note = &button("40 duplicate keys");
    open();
    const int bottom = m_window.mapToGlobal(QPoint()).y() + m_window.height();
    EXPECT_LE(m_list->y() + m_list->height(), bottom);
    EXPECT_GE(m_table->height(), 3 * m_table->rowHeight(0));
    EXPECT_EQ(m_table->height() % m_table->rowHeight(0), 0);
    m_list->hide();
    m_window.resize(760, 800);
    QApplication::processEvents();
    open();
    EXPECT_EQ(m_table->height(), 10 * m_table->rowHeight(0));
}

TEST_F(DuplicateListTest, ScrollsAfterTenLines) {
    std::string rows = "ID,Name\n";
    for (int i = 0; i < 200'000; ++i) {
        rows += "K" + std::to_string(i / 2) + ",x\n";
    }
    compare(rows, "ID,Name\nK1,x\nK2,x\n");
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    m_note = &button("100,000 duplicate keys");
    open();
    EXPECT_EQ(m_table->model()->rowCount(), 100'000);
    EXPECT_EQ(m_table->height(), 10 * m_table->rowHeight(0));
    // Nothing is made a line.
    EXPECT_LT(m_table->findChildren<QWidget*>().size(), 30);
}

TEST(DuplicateKeysModel, BlankKeysAndMillionsOfRowsReadWell) {
    EXPECT_EQ(DuplicateKeysModel::text({.key = "", .side = DuplicateKey::Side::after, .rowNumbers = {7}},
                                       DuplicateKeysModel::key),
              QStringLiteral("(blank)"));
    const std::vector<std::int64_t> many(1'000'000, 12);
    const QString rows = DuplicateKeysModel::text({.key = "x", .rowNumbers = many}, DuplicateKeysModel::rows);
    EXPECT_TRUE(rows.endsWith(QStringLiteral("12, …")));
    EXPECT_LT(rows.size(), 1000);
}

TEST_F(DuplicateListTest, IsATableToAScreenReader) {
    compareDuplicates();
    open();
    QAccessibleInterface* const shown = QAccessible::queryAccessibleInterface(m_table);
    ASSERT_TRUE(shown && shown->tableInterface());
    EXPECT_EQ(shown->text(QAccessible::Name), QStringLiteral("Duplicate keys"));
    EXPECT_EQ(shown->tableInterface()->cellAt(0, 2)->text(QAccessible::Name), QStringLiteral("rows 3, 4"));
}

}  // namespace
}  // namespace corvale
