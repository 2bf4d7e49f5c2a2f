#include <gtest/gtest.h>

#include <QAccessible>

#include "Corvale/grid/GridAccessibility.h"
#include "tests/Corvale/grid/GridScene.h"

namespace corvale {
namespace {

using Show = DiffFilter::Show;

class GridAccessibilityTest : public TestSupport::GridScene {
protected:
    QAccessibleInterface& grid() { return *QAccessible::queryAccessibleInterface(&m_grid); }
    QAccessibleTableInterface& table() { return *grid().tableInterface(); }
    static QString name(QAccessibleInterface* part) {
        return part ? part->text(QAccessible::Name) : QStringLiteral("none");
    }
};

TEST_F(GridAccessibilityTest, TheGridIsATableOfLinesBelowAHeader) {
    openSample();
    EXPECT_EQ(grid().role(), QAccessible::Table);
    EXPECT_EQ(name(&grid()), QStringLiteral("Changes"));
    EXPECT_EQ(table().rowCount(), 10);
    EXPECT_EQ(table().columnCount(), 8);
    ASSERT_EQ(grid().childCount(), 11);
    EXPECT_EQ(grid().child(0)->role(), QAccessible::Row);
    EXPECT_EQ(grid().child(0)->child(0)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(grid().child(3)->role(), QAccessible::Row);
    EXPECT_EQ(grid().child(3)->parent(), &grid());
    EXPECT_EQ(grid().indexOfChild(grid().child(3)), 3);
    EXPECT_EQ(grid().child(11), nullptr);
    EXPECT_EQ(grid().child(-1), nullptr);
}

TEST_F(GridAccessibilityTest, ALineReadsAllThatItSays) {
    openSample();
    EXPECT_EQ(name(grid().child(GridAccessibility::childOfLine(2))),
              QStringLiteral("Changed, Before: 8, After: 8, SKU-1007, Price: 89.00 to 79.00, Qty: 5 to 8"));
    EXPECT_EQ(table().rowDescription(6), QStringLiteral("Removed, Before: 23, After: –, SKU-1022"));
    EXPECT_EQ(table().rowDescription(7), QStringLiteral("Added, Before: –, After: 25, SKU-1025"));
}

TEST_F(GridAccessibilityTest, CellsAndTheirHeadersHaveNames) {
    openSample();
    struct Case {
        int column;
        const char16_t* header;
        const char16_t* cell;
    };
    const Case cases[] = {
        {0, u"Row", u"Before: 8, After: 8"},
        {1, u"Status", u"Changed"},
        {2, u"SKU", u"SKU-1007"},
        {5, u"Price", u"89.00 to 79.00"},
        {7, u"Location", u"B2"},
    };
    for (const Case& c : cases) {
        QAccessibleInterface* cell = table().cellAt(2, c.column);
        EXPECT_EQ(name(cell), QString::fromUtf16(c.cell));
        EXPECT_EQ(cell->role(), QAccessible::Cell);
        EXPECT_EQ(cell->parent(), grid().child(3));
        EXPECT_EQ(grid().child(3)->indexOfChild(cell), c.column);
        ASSERT_NE(cell->tableCellInterface(), nullptr);
        EXPECT_EQ(cell->tableCellInterface()->rowIndex(), 2);
        EXPECT_EQ(cell->tableCellInterface()->columnIndex(), c.column);
        EXPECT_EQ(cell->tableCellInterface()->table(), &grid());
        ASSERT_EQ(cell->tableCellInterface()->columnHeaderCells().size(), 1);
        EXPECT_EQ(name(cell->tableCellInterface()->columnHeaderCells()[0]), QString::fromUtf16(c.header));
        EXPECT_EQ(table().columnDescription(c.column), QString::fromUtf16(c.header));
    }
    EXPECT_EQ(table().cellAt(2, 8), nullptr);
    EXPECT_EQ(table().cellAt(10, 0), nullptr);
}

// As after a lost quote.
TEST_F(GridAccessibilityTest, ARestOfAFileIsNotHandedOut) {
    const std::string text(3'000'000, 'x');
    open("ID,A\n1," + text + "\n", "ID,A\n1," + text + "y\n2," + text + "\n");
    const QString cut = QString(1000, u'x') + u'…';
    EXPECT_EQ(name(table().cellAt(0, 3)), cut + QStringLiteral(" to ") + cut);
    EXPECT_EQ(name(table().cellAt(1, 3)), cut);
    EXPECT_LT(name(grid().child(1)).size(), 200);
}

TEST_F(GridAccessibilityTest, SideBySideEachHalfHasItsCells) {
    openSample();
    setView(ViewMode::sideBySide);
    EXPECT_EQ(table().columnCount(), 14);
    EXPECT_EQ(table().columnDescription(5), QStringLiteral("Before Price"));
    EXPECT_EQ(table().columnDescription(11), QStringLiteral("After Price"));
    EXPECT_EQ(name(table().cellAt(2, 5)), QStringLiteral("89.00"));
    EXPECT_EQ(name(table().cellAt(2, 11)), QStringLiteral("79.00"));
    EXPECT_EQ(name(table().cellAt(6, 11)), QStringLiteral("(not in this file)"));
}

TEST_F(GridAccessibilityTest, TheSelectionGoesBothWays) {
    openSample();
    EXPECT_EQ(table().selectedRowCount(), 0);
    EXPECT_TRUE(table().selectRow(4));
    EXPECT_EQ(m_model.selectedRow(), m_model.visible()[4]);
    EXPECT_EQ(table().selectedRows(), QList<int>{4});
    EXPECT_EQ(table().selectedCells().size(), 8);
    m_grid.selectLine(1);
    EXPECT_TRUE(table().isRowSelected(1));
    EXPECT_FALSE(table().isRowSelected(4));
    EXPECT_TRUE(grid().child(2)->state().selected);
    EXPECT_FALSE(grid().child(5)->state().selected);
    EXPECT_FALSE(table().selectRow(99));
    grid().child(6)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_grid.selectedLine(), 5);
}

TEST_F(GridAccessibilityTest, TheSelectedLineHasTheFocus) {
    openSample();
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_grid.hasFocus(); }));
    EXPECT_EQ(grid().focusChild(), nullptr);
    m_grid.selectLine(2);
    ASSERT_NE(grid().focusChild(), nullptr);
    EXPECT_TRUE(grid().focusChild()->state().focused);
    EXPECT_TRUE(name(grid().focusChild()).startsWith(QStringLiteral("Changed, Before: 8")));
}

TEST_F(GridAccessibilityTest, PartsKnowWhereTheyAre) {
    openSample();
    QAccessibleInterface* cell = table().cellAt(2, 5);
    const QPoint middle = cell->rect().center();
    EXPECT_EQ(viewport().mapFromGlobal(middle), m_grid.cellArea(2, 3).center());
    QAccessibleInterface* line = grid().childAt(middle.x(), middle.y());
    EXPECT_EQ(line, grid().child(3));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->childAt(middle.x(), middle.y()), cell);
    EXPECT_EQ(line->indexOfChild(cell), 5);
    EXPECT_EQ(grid().child(1)->indexOfChild(cell), -1);
    EXPECT_EQ(line->indexOfChild(line), -1);
    const QPoint inHeader = m_grid.mapToGlobal(QPoint(300, 10));
    EXPECT_EQ(grid().childAt(inHeader.x(), inHeader.y()), grid().child(0));
}

TEST_F(GridAccessibilityTest, AnotherListMakesNewParts) {
    openSample();
    EXPECT_TRUE(name(grid().child(1)).contains(QStringLiteral("SKU-1003")));
    const QAccessible::Id line = QAccessible::uniqueId(grid().child(1));
    const QAccessible::Id cell = QAccessible::uniqueId(table().cellAt(2, 5));
    ASSERT_NE(QAccessible::accessibleInterface(line), nullptr);
    ASSERT_NE(QAccessible::accessibleInterface(cell), nullptr);
    setFilter(Show::all);
    // Without a screen Qt takes no assistive technology to be there, and does not pass the change on by itself.
    QAccessibleTableModelChangeEvent event(&m_grid, QAccessibleTableModelChangeEvent::ModelReset);
    table().modelChange(&event);
    EXPECT_EQ(QAccessible::accessibleInterface(line), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(cell), nullptr);
    EXPECT_EQ(table().rowCount(), 27);
    EXPECT_TRUE(name(grid().child(1)).contains(QStringLiteral("SKU-1001")));
    setFilter(Show::changes, "lamp");
    EXPECT_EQ(table().rowCount(), 0);
    EXPECT_EQ(grid().childCount(), 1);
    EXPECT_EQ(grid().child(1), nullptr);
}

}  // namespace
}  // namespace corvale
