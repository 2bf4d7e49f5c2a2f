#include <QTest>

#include "Corvale/window/FileCard.h"
#include "Corvale/window/MainToolbar.h"
#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/SearchField.h"
#include "Corvale/window/SymbolLabel.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::itemsOf;
using TestSupport::pick;
using TestSupport::WindowTest;
using Items = std::vector<std::string>;
using Show = DiffFilter::Show;

constexpr auto before = "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n";
constexpr auto after = "ID,Name,Price\n1,Pen,4\n2,Mug,4\n4,Ink,1\n";

class MainToolbarTest : public WindowTest {
protected:
    // The view picker has the name of its label.
    SymbolLabel& label(const std::string& text) {
        for (QWidget* widget : m_window.findChild<MainToolbar*>()->findChildren<QWidget*>()) {
            auto* const found = dynamic_cast<SymbolLabel*>(widget);
            if (found != nullptr && found->text().toStdString() == text) {
                return *found;
            }
        }
        throw std::runtime_error("no label " + text);
    }
};

TEST_F(MainToolbarTest, ViewPickerSetsTheView) {
    auto& unified = button("Unified");
    auto& sideBySide = button("Side by side");
    EXPECT_TRUE(unified.isChecked());
    QTest::mouseClick(&sideBySide, Qt::LeftButton);
    EXPECT_EQ(m_model.settings().view, ViewMode::sideBySide);
    EXPECT_TRUE(sideBySide.isChecked());
    EXPECT_FALSE(unified.isChecked());
    QTest::mouseClick(&sideBySide, Qt::LeftButton);
    EXPECT_TRUE(sideBySide.isChecked());
    const auto help = QStringLiteral(
        "Unified: one row per difference, old and new values together. Side by side: Before and After next to each "
        "other.");
    EXPECT_EQ(unified.toolTip(), help);
    EXPECT_EQ(sideBySide.accessibleDescription(), help);
}

TEST_F(MainToolbarTest, ArrowKeysMoveInsideTheViewPicker) {
    m_window.activateWindow();
    button("Unified").setFocus();
    QTest::keyClick(&button("Unified"), Qt::Key_Right);
    EXPECT_TRUE(button("Side by side").hasFocus());
}

TEST_F(MainToolbarTest, WithoutAResultThereIsNothingToFilterOrExport) {
    for (const auto* name : {"Show: Only Changes", "Any Column", "Export Report", "Row Details"}) {
        EXPECT_FALSE(button(name).isEnabled()) << name;
    }
    EXPECT_FALSE(named<QWidget>("Search rows").isEnabled());
    EXPECT_TRUE(button("Unified").isEnabled());
    compare(before, after);
    for (const auto* name : {"Show: Only Changes", "Any Column", "Export Report", "Row Details"}) {
        EXPECT_TRUE(button(name).isEnabled()) << name;
    }
    EXPECT_TRUE(named<QWidget>("Search rows").isEnabled());
}

TEST_F(MainToolbarTest, ShowMenuPicksWhichRowsAreListed) {
    compare(before, after);
    auto& show = button("Show: Only Changes");
    EXPECT_EQ(show.toolTip(), QStringLiteral("Which rows the list shows"));
    EXPECT_EQ(itemsOf(show), (Items{"All Rows", "✓ Only Changes", "Added", "Removed", "Changed"}));
    pick(show, "All Rows");
    EXPECT_EQ(m_model.filter().show, Show::all);
    EXPECT_EQ(show.label(), QStringLiteral("All Rows"));
    pick(show, "Removed");
    EXPECT_EQ(m_model.filter().show, Show::removed);
    EXPECT_EQ(show.accessibleName(), QStringLiteral("Show: Removed"));
}

TEST_F(MainToolbarTest, ColumnMenuListsColumnsWithChanges) {
    compare(before, after);
    auto& column = button("Any Column");
    EXPECT_EQ(column.toolTip(), QStringLiteral("Only rows with a change in one column"));
    EXPECT_EQ(itemsOf(column), (Items{"✓ Any Column", "Name (1)", "Price (2)"}));
    pick(column, "Price (2)");
    EXPECT_EQ(m_model.filter().column, 2);
    EXPECT_EQ(column.label(), QStringLiteral("Column: Price"));
    EXPECT_EQ(itemsOf(column), (Items{"Any Column", "Name (1)", "✓ Price (2)"}));
    pick(column, "Any Column");
    EXPECT_EQ(m_model.filter().column, std::nullopt);
}

TEST_F(MainToolbarTest, AMenuOfAThousandColumnsFitsTheScreen) {
    std::string header = "ID";
    std::string old = "1";
    std::string now = "1";
    for (int i = 0; i < 1000; ++i) {
        header += ",Column " + std::to_string(i);
        old += ",a";
        now += ",b";
    }
    compare(header + "\n" + old + "\n2" + old.substr(1) + "\n", header + "\n" + now + "\n2" + now.substr(1) + "\n");
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    PopupMenu& menu = *button("Any Column").menu();
    menu.open();
    ASSERT_EQ(menu.actions().size(), 1001);
    EXPECT_LE(menu.height(), menu.screen()->availableGeometry().height());
    // One column of items, which scrolls.
    EXPECT_LT(menu.width(), 400);
    menu.close();
}

TEST_F(MainToolbarTest, ExportMenuWritesReports) {
    compare(before, after);
    auto& report = button("Export Report");
    EXPECT_EQ(report.toolTip(),
              QStringLiteral("Save the changes as an Excel workbook with highlighted cells, or as a "
                             "web page to share"));
    EXPECT_EQ(itemsOf(report), (Items{"Excel Report (.xlsx)…", "HTML Report…"}));
    pick(report, "HTML Report…");
    ASSERT_EQ(m_platform.savePanels.size(), 1U);
    EXPECT_EQ(m_platform.savePanels[0].extension, QStringLiteral("html"));
    m_platform.chooseTarget("report.html");
    EXPECT_TRUE(m_model.exporting());
    EXPECT_FALSE(report.isEnabled());
    m_platform.settle();
    EXPECT_TRUE(report.isEnabled());
    EXPECT_TRUE(m_platform.files.count("report.html") == 1);
    pick(report, "Excel Report (.xlsx)…");
    EXPECT_EQ(m_platform.savePanels.back().extension, QStringLiteral("xlsx"));
}

TEST_F(MainToolbarTest, RowDetailsShowsAndHidesThePane) {
    compare(before, after);
    auto& details = button("Row Details");
    EXPECT_EQ(details.toolTip(), QStringLiteral("Show or hide the selected row’s details"));
    EXPECT_TRUE(details.isChecked());
    QTest::mouseClick(&details, Qt::LeftButton);
    EXPECT_FALSE(m_model.showInspector());
    EXPECT_FALSE(m_model.inspectorWanted());
    EXPECT_FALSE(details.isChecked());
    QTest::keyClick(&details, Qt::Key_Space);
    EXPECT_TRUE(m_model.showInspector());
}

TEST_F(MainToolbarTest, InANarrowWindowWordsGiveWay) {
    compare(before, after);
    const auto searchWidth = [this] { return named<QWidget>("Search rows").width(); };
    struct Width {
        int window;
        bool hasLabels;
        bool hasExportText;
        int search;
    };
    for (const auto& [width, hasLabels, hasExportText, search] :
         {Width{1300, true, true, 220}, {1170, false, true, 190}, {990, false, false, 170}, {1300, true, true, 220}}) {
        m_window.resize(width, 600);
        QApplication::processEvents();
        const auto& report = button("Export Report");
        EXPECT_EQ(label("View").isVisible(), hasLabels) << width;
        EXPECT_EQ(label("Show").isVisible(), hasLabels) << width;
        EXPECT_EQ(report.width() == report.widthWithText(true), hasExportText) << width;
        EXPECT_EQ(button("Row Details").width() == button("Row Details").widthWithText(true), hasLabels) << width;
        EXPECT_EQ(searchWidth(), search) << width;
        const auto* picker = button("Side by side").parentWidget();
        const auto* show = &button("Show: Only Changes");
        EXPECT_EQ(show->x() - picker->geometry().right() - 1 == 8, !hasLabels) << width;
    }
}

TEST_F(MainToolbarTest, NothingIsCutOffInTheNarrowestWindow) {
    compare(before, after);
    m_window.resize(m_window.minimumSize());
    QApplication::processEvents();
    EXPECT_EQ(m_window.width(), 760);
    const auto& search = named<QWidget>("Search rows");
    EXPECT_LE(search.mapTo(&m_window, QPoint(search.width(), 0)).x(), 760);
    EXPECT_GE(search.width(), 140);
}

class SearchFieldTest : public WindowTest {
protected:
    SearchFieldTest() {
        compare(before, after);
        m_window.activateWindow();
    }
    SearchField& field() { return named<SearchField>("Search rows"); }
};

TEST_F(SearchFieldTest, TypingSearches) {
    EXPECT_EQ(field().placeholderText(), QStringLiteral("Search rows"));
    EXPECT_EQ(field().toolTip(), QStringLiteral("Search every cell (⌘F)"));
    EXPECT_EQ(field().accessibleDescription(), field().toolTip());
    QTest::keyClicks(&field(), QStringLiteral("mug"));
    EXPECT_EQ(m_model.filter().search, "mug");
    m_platform.settle();
    EXPECT_EQ(m_model.visible().size(), 1U);
    EXPECT_EQ(field().text(), QStringLiteral("mug"));
}

TEST_F(SearchFieldTest, TheClearButtonAppearsWithText) {
    QAction* const clear = field().actions().at(1);
    EXPECT_EQ(clear->toolTip(), QStringLiteral("Clear the search"));
    EXPECT_FALSE(clear->isVisible());
    QTest::keyClicks(&field(), QStringLiteral("m"));
    EXPECT_TRUE(clear->isVisible());
    clear->trigger();
    EXPECT_EQ(m_model.filter().search, "");
    EXPECT_EQ(field().text(), QString());
    EXPECT_FALSE(clear->isVisible());
}

TEST_F(SearchFieldTest, EscapeClears) {
    QTest::keyClicks(&field(), QStringLiteral("mug"));
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_EQ(m_model.filter().search, "");
    EXPECT_EQ(field().text(), QString());
}

TEST_F(SearchFieldTest, TakesTheKeyboardWhenAskedTo) {
    EXPECT_FALSE(field().focused());
    m_model.setFocusSearch(true);
    EXPECT_TRUE(field().focused());
    EXPECT_FALSE(m_model.focusSearch());
}

TEST_F(SearchFieldTest, ItsPlaceholderIsReadable) {
    const Palette& colors = TestSupport::theme().palette();
    field().ensurePolished();
    EXPECT_EQ(field().palette().color(QPalette::Active, QPalette::PlaceholderText), colors.text3);
    EXPECT_EQ(field().palette().color(QPalette::Disabled, QPalette::PlaceholderText), colors.disabled);
    EXPECT_EQ(field().palette().color(QPalette::Active, QPalette::Text), colors.text);
}

TEST_F(SearchFieldTest, FollowsTheModelWithoutSearchingAnew) {
    m_model.setFilter({.search = "cup"});
    const auto generation = m_model.filterGeneration();
    EXPECT_EQ(field().text(), QStringLiteral("cup"));
    field().refresh();
    EXPECT_EQ(m_model.filterGeneration(), generation);
}

TEST_F(SearchFieldTest, TheCursorStaysWhereTheUserTypes) {
    QTest::keyClicks(&field(), QStringLiteral("cp"));
    field().setCursorPosition(1);
    QTest::keyClicks(&field(), QStringLiteral("u"));
    m_platform.settle();
    EXPECT_EQ(field().text(), QStringLiteral("cup"));
    EXPECT_EQ(field().cursorPosition(), 2);
}

TEST_F(SearchFieldTest, FilesDroppedOnItAreForTheWindow) {
    EXPECT_TRUE(dragInto(field(), {"/other.csv"}));
    EXPECT_TRUE(named<FileCard>("After file").targeted());
}

}  // namespace
}  // namespace corvale
