#include <QAccessible>
#include <QElapsedTimer>
#include <QTableView>
#include <QTest>

#include "Corvale/window/DuplicateKeysTable.h"
#include "Corvale/window/DuplicateList.h"
#include "Corvale/window/SummaryStrip.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;

class DuplicateListTest : public WindowTest {
protected:
    void open() {
        list = window.findChild<DuplicateList*>();
        table = list->findChild<QTableView*>();
        QTest::mouseClick(note, Qt::LeftButton);
    }
    void compareDuplicates() {
        compare("ID,Name\n1,Pen\n2,Cup\n2,Hat\n3,Mat\n", "ID,Name\n1,Pen\n1,Pan\n1,Pin\n2,Cup\n3,Mat\n");
        model.setMatch(MatchChoice::key("ID"));
        platform.settle();
        note = &button("2 duplicate keys");
    }
    std::string cell(int row, int column) const {
        return table->model()->index(row, column).data().toString().toStdString();
    }

    Button* note = nullptr;
    DuplicateList* list = nullptr;
    QTableView* table = nullptr;
};

TEST_F(DuplicateListTest, ListsKeySideAndRows) {
    compareDuplicates();
    open();
    ASSERT_TRUE(list->isVisible());
    EXPECT_TRUE(window.findChild<SummaryStrip*>()->showDuplicates());
    ASSERT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(cell(0, 0) + "|" + cell(0, 1) + "|" + cell(0, 2), "2|Before|rows 3, 4");
    EXPECT_EQ(cell(1, 0) + "|" + cell(1, 1) + "|" + cell(1, 2), "1|After|rows 2, 3, 4");
}

TEST_F(DuplicateListTest, NoteHasItsHelp) {
    compareDuplicates();
    EXPECT_EQ(note->accessibleDescription(),
              QStringLiteral("Keys on more than one row: repeats are paired in order. Click to see them."));
}

TEST_F(DuplicateListTest, EscapeAndAClickElsewhereCloseIt) {
    compareDuplicates();
    open();
    QTest::keyClick(table, Qt::Key_Escape);
    EXPECT_FALSE(list->isVisible());
    EXPECT_FALSE(note->isDown());
    open();
    EXPECT_TRUE(note->isDown());
    QTest::mouseClick(list, Qt::LeftButton, {}, {-20, -20});
    EXPECT_FALSE(list->isVisible());
}

TEST_F(DuplicateListTest, ClosesWhenTheResultGoes) {
    compareDuplicates();
    open();
    model.close(Side::after);
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(table->model()->rowCount(), 0);
}

TEST_F(DuplicateListTest, StaysInsideTheWindow) {
    compareDuplicates();
    window.resize(760, 480);
    QApplication::processEvents();
    open();
    const QRect frame(window.mapToGlobal(QPoint()), window.size());
    EXPECT_GE(list->x(), frame.left());
    EXPECT_LE(list->x() + list->width(), frame.right() + 1);
    EXPECT_EQ(list->width(), 420);
}

TEST_F(DuplicateListTest, ShowsFewerLinesWhereTheWindowIsLow) {
    std::string rows = "ID,Name\n";
    for (int i = 0; i < 40; ++i) {
        rows += "K" + std::to_string(i / 2) + ",x\n";
    }
    compare(rows, rows);
    model.setMatch(MatchChoice::key("ID"));
    platform.settle();
    window.resize(760, 480);
    QApplication::processEvents();
    note = &button("40 duplicate keys");
    open();
    const int bottom = window.mapToGlobal(QPoint()).y() + window.height();
    EXPECT_LE(list->y() + list->height(), bottom);
    EXPECT_GE(table->height(), 3 * table->rowHeight(0));
    EXPECT_EQ(table->height() % table->rowHeight(0), 0);
    list->hide();
    window.resize(760, 800);
    QApplication::processEvents();
    open();
    EXPECT_EQ(table->height(), 10 * table->rowHeight(0));
}

TEST_F(DuplicateListTest, ScrollsAfterTenLines) {
    std::string rows = "ID,Name\n";
    for (int i = 0; i < 200'000; ++i) {
        rows += "K" + std::to_string(i / 2) + ",x\n";
    }
    compare(rows, "ID,Name\nK1,x\nK2,x\n");
    model.setMatch(MatchChoice::key("ID"));
    platform.settle();
    note = &button("100,000 duplicate keys");
    open();
    EXPECT_EQ(table->model()->rowCount(), 100'000);
    EXPECT_EQ(table->height(), 10 * table->rowHeight(0));
    // Nothing is made a line.
    EXPECT_LT(table->findChildren<QWidget*>().size(), 30);
}

TEST_F(DuplicateListTest, BlankKeysAndMillionsOfRowsReadWell) {
    compareDuplicates();
    open();
    const DuplicateKeysTable& keys = dynamic_cast<DuplicateKeysTable&>(*table->model());
    EXPECT_EQ(keys.text({.key = "", .side = DuplicateKey::Side::after, .rowNumbers = {7}}, DuplicateKeysTable::key),
              QStringLiteral("(blank)"));
    const std::vector<std::int64_t> many(1'000'000, 12);
    const QString rows = keys.text({.key = "x", .rowNumbers = many}, DuplicateKeysTable::rows);
    EXPECT_TRUE(rows.endsWith(QStringLiteral("12, …")));
    EXPECT_LT(rows.size(), 1000);
}

TEST_F(DuplicateListTest, IsATableToAScreenReader) {
    compareDuplicates();
    open();
    QAccessibleInterface* const shown = QAccessible::queryAccessibleInterface(table);
    ASSERT_TRUE(shown && shown->tableInterface());
    EXPECT_EQ(shown->text(QAccessible::Name), QStringLiteral("Duplicate keys"));
    EXPECT_EQ(shown->tableInterface()->cellAt(0, 2)->text(QAccessible::Name), QStringLiteral("rows 3, 4"));
}

}  // namespace
}  // namespace corvale
