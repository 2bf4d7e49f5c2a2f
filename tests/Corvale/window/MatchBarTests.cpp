#include <QTest>

#include "Corvale/window/MatchBar.h"
#include "Corvale/window/PopupMenu.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::itemsOf;
using TestSupport::pick;
using TestSupport::WindowTest;
using Items = std::vector<std::string>;

constexpr auto before = "ID,Name,Price\n1,Pen,2.50\n2,Cup,3.00\n3,Hat,5.25\n";
constexpr auto after = "id,Name,Price,Note\n1,Pen,2.50,a\n2,Mug,4.00,b\n4,Ink,1.75,c\n";

class MatchBarTest : public WindowTest {
protected:
    const DiffOptions& options() const { return m_model.settings().options; }
    Button& ignore() { return *m_ignore; }
    Button& columns() { return *m_columns; }

    void comparePair() {
        compare(before, after);
        m_ignore = &button("Ignoring 2 of 4");
        m_columns = &button("Ignore Columns");
    }
    std::string ignoreName() const { return m_ignore->label().toStdString(); }

    Button* m_ignore = nullptr;
    Button* m_columns = nullptr;
};

TEST_F(MatchBarTest, ShowsOnceBothSidesAreLoaded) {
    EXPECT_FALSE(shows("Ignoring 2 of 4"));
    open(before, Side::before);
    EXPECT_FALSE(shows("Ignoring 2 of 4"));
    open(after, Side::after, "after.csv");
    EXPECT_TRUE(shows("Ignoring 2 of 4"));
    m_model.close(Side::before);
    EXPECT_FALSE(shows("Ignoring 2 of 4"));
}

TEST_F(MatchBarTest, MatchMenuOffersSharedColumnsAndRowOrder) {
    comparePair();
    Button& match = button("Match rows by: ID (suggested)");
    EXPECT_EQ(match.label(), QStringLiteral("ID (suggested)"));
    EXPECT_EQ(itemsOf(match), (Items{"✓ ID (suggested)", "Name", "Price", "-", "Row order (no key column)"}));
    pick(match, "Name");
    EXPECT_EQ(m_model.match(), MatchChoice::key("Name"));
    EXPECT_EQ(match.label(), QStringLiteral("Name"));
    pick(match, "Row order (no key column)");
    EXPECT_EQ(m_model.match(), MatchChoice::rowOrder());
    EXPECT_EQ(itemsOf(match), (Items{"ID (suggested)", "Name", "Price", "-", "✓ Row order (no key column)"}));
}

TEST_F(MatchBarTest, ColumnNamesAreTakenAsTheyStand) {
    compare("A & B,\"Two\nlines\"\n1,2\n2,3\n", "A & B,\"Two\nlines\"\n1,2\n2,4\n");
    EXPECT_EQ(itemsOf(button("Match rows by: A & B (suggested)")),
              (Items{"✓ A & B (suggested)", "Two lines", "-", "Row order (no key column)"}));
}

TEST_F(MatchBarTest, NumberStyleMenuNamesTheDetectedStyle) {
    comparePair();
    Button& style = button("Automatic (Numbers like 1,234.56)");
    EXPECT_EQ(itemsOf(style),
              (Items{"✓ Automatic (Numbers like 1,234.56)", "Numbers like 1,234.56", "Numbers like 1.234,56"}));
    pick(style, "Numbers like 1.234,56");
    EXPECT_EQ(options().numberStyle, NumberStyle::commaDecimal);
    EXPECT_EQ(style.label(), QStringLiteral("Numbers like 1.234,56"));
    EXPECT_EQ(itemsOf(style),
              (Items{"Automatic (Numbers like 1,234.56)", "Numbers like 1,234.56", "✓ Numbers like 1.234,56"}));
    m_platform.settle();
    // A result that was told the style detected none.
    EXPECT_EQ(itemsOf(style), (Items{"Numbers: automatic", "Numbers like 1,234.56", "✓ Numbers like 1.234,56"}));
}

TEST_F(MatchBarTest, IgnoreMenuCountsWhatIsOn) {
    comparePair();
    EXPECT_EQ(itemsOf(ignore()),
              (Items{"[What doesn’t count as a change]",
                     "Ignore case",
                     "✓ Ignore extra spaces",
                     "Ignore number formatting",
                     "✓ Ignore column order"}));
    pick(ignore(), "Ignore extra spaces");
    EXPECT_EQ(ignoreName(), "Ignoring 1 of 4");
    pick(ignore(), "Ignore column order");
    EXPECT_EQ(ignoreName(), "Ignore");
    EXPECT_FALSE(options().ignoreWhitespace);
    EXPECT_FALSE(options().ignoreColumnOrder);
    for (const auto* item : {"Ignore case", "Ignore extra spaces", "Ignore number formatting", "Ignore column order"}) {
        pick(ignore(), item);
    }
    EXPECT_EQ(ignoreName(), "Ignoring 4 of 4");
    EXPECT_TRUE(options().ignoreCase && options().ignoreNumberFormat);
}

TEST_F(MatchBarTest, IgnoreMenuStaysOpenWhileTicking) {
    comparePair();
    PopupMenu& menu = *ignore().menu();
    menu.open();
    const QAction* const ignoreCase = menu.actions().at(1);
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().at(1)).center());
    EXPECT_TRUE(menu.isVisible());
    EXPECT_TRUE(ignoreCase->isChecked());
    EXPECT_TRUE(options().ignoreCase);
    m_platform.settle();
    EXPECT_TRUE(menu.isVisible());
    menu.setActiveAction(menu.actions().at(1));
    QTest::keyClick(&menu, Qt::Key_Space);
    EXPECT_FALSE(ignoreCase->isChecked());
    EXPECT_FALSE(options().ignoreCase);
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_TRUE(options().ignoreCase);
    EXPECT_TRUE(menu.isVisible());
    QTest::keyClick(&menu, Qt::Key_Escape);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(MatchBarTest, IgnoredColumnsAreCounted) {
    comparePair();
    EXPECT_EQ(itemsOf(columns()), (Items{"ID", "Name", "Price", "Note", "-", "(Compare Every Column)"}));
    pick(columns(), "Price");
    EXPECT_EQ(columns().label(), QStringLiteral("Ignoring 1 columns"));
    pick(columns(), "Note");
    EXPECT_EQ(columns().label(), QStringLiteral("Ignoring 2 columns"));
    EXPECT_EQ(itemsOf(columns()), (Items{"ID", "Name", "✓ Price", "✓ Note", "-", "Compare Every Column"}));
    pick(columns(), "Price");
    EXPECT_EQ(options().ignoredColumns, (std::set<std::string>{"Note"}));
    pick(columns(), "Compare Every Column");
    EXPECT_EQ(options().ignoredColumns, (std::set<std::string>{}));
    EXPECT_EQ(columns().label(), QStringLiteral("Ignore Columns"));
}

TEST_F(MatchBarTest, TickingAColumnEnablesComparingEveryColumnAtOnce) {
    comparePair();
    PopupMenu& menu = *columns().menu();
    menu.open();
    const QAction* const everyColumn = menu.actions().last();
    EXPECT_FALSE(everyColumn->isEnabled());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(menu.actions().first()).center());
    EXPECT_TRUE(everyColumn->isEnabled());
}

TEST_F(MatchBarTest, ColumnsIgnoredInOtherFilesAreNotCounted) {
    AppSettings settings = m_model.settings();
    settings.options.ignoredColumns = {"Elsewhere"};
    m_model.setSettings(settings);
    comparePair();
    EXPECT_EQ(columns().label(), QStringLiteral("Ignore Columns"));
    EXPECT_EQ(itemsOf(columns()).back(), "Compare Every Column");
}

TEST_F(MatchBarTest, AColumnIsIgnoredWhateverItsLetterCase) {
    AppSettings settings = m_model.settings();
    settings.options.ignoredColumns = {"PRICE"};
    m_model.setSettings(settings);
    compare(before, after);
    Button& menu = button("Ignoring 1 columns");
    EXPECT_EQ(itemsOf(menu).at(2), "✓ Price");
    pick(menu, "Price");
    EXPECT_EQ(options().ignoredColumns, (std::set<std::string>{}));
}

TEST_F(MatchBarTest, EveryMenuHasItsHelp) {
    comparePair();
    EXPECT_EQ(button("Match rows by: ID (suggested)").accessibleDescription(),
              QStringLiteral("Rows with the same value in this column are compared with each other. Pick Row order for "
                             "files without an ID column."));
    EXPECT_EQ(
        button("Automatic (Numbers like 1,234.56)").accessibleDescription(),
        QStringLiteral("How the files write numbers: 1,234.56 or 1.234,56. Automatic follows the files (else this "
                       "Mac’s region)."));
    EXPECT_EQ(columns().accessibleDescription(),
              QStringLiteral("Leave columns such as “Last updated” out of the comparison"));
    ignore().menu()->open();
    EXPECT_EQ(ignore().menu()->actions().at(3)->toolTip(),
              QStringLiteral("1,250.00, $1250 and 1250 count as the same; so do 50% and 0.5, and 007 and 7."));
    EXPECT_EQ(ignore().menu()->actions().at(4)->toolTip(),
              QStringLiteral("On: columns are matched by their names wherever they are. Off: by position (A with A, B "
                             "with B)."));
}

TEST_F(MatchBarTest, AMenuGoesWithItsButton) {
    for (const auto* const name : {"Automatic (Numbers like 1,234.56)", "Ignoring 2 of 4"}) {
        comparePair();
        const PopupMenu& menu = *button(name).menu();
        button(name).menu()->open();
        ASSERT_TRUE(menu.isVisible());
        m_model.close(Side::after);
        EXPECT_FALSE(menu.isVisible()) << name;
    }
}

TEST_F(MatchBarTest, ChangesComeFromTheUserAlone) {
    comparePair();
    const int stores = m_platform.stores;
    const auto generation = m_model.compareGeneration();
    named<MatchBar>("Matching").refresh();
    itemsOf(ignore());
    itemsOf(columns());
    EXPECT_EQ(m_platform.stores, stores);
    EXPECT_EQ(m_model.compareGeneration(), generation);
}

TEST_F(MatchBarTest, ItsMenusGoWithTheFilesThatTheyListTheColumnsOf) {
    comparePair();
    PopupMenu& menu = *button("Match rows by: ID (suggested)").menu();
    menu.open();
    m_model.close(Side::after);
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(MatchBarTest, NumberStyleGivesWayFirst) {
    const std::string longName(60, 'x');
    compare(longName + ",Price\n1,2\n2,3\n", longName + ",Price\n1,2\n2,4\n");
    m_window.resize(760, 480);
    QApplication::processEvents();
    const Button& style = button("Automatic (Numbers like 1,234.56)");
    EXPECT_LT(style.width(), style.sizeHint().width());
    EXPECT_GE(style.width(), 96);
    const Button& match = button("Match rows by: " + longName + " (suggested)");
    EXPECT_EQ(match.width(), match.sizeHint().width());
}

}  // namespace
}  // namespace corvale
