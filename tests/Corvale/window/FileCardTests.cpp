#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>
#include <algorithm>
#include <stdexcept>

#include "Corvale/style/Typography.h"
#include "Corvale/window/Drawing.h"
#include "Corvale/window/ElidedLabel.h"
#include "Corvale/window/FileCard.h"
#include "Corvale/window/FilesBar.h"
#include "Corvale/window/PopupMenu.h"
#include "tests/Corvale/window/WindowFixture.h"
#include "tests/support/Workbooks.h"

namespace corvale {
namespace {

using TestSupport::itemsOf;
using TestSupport::pick;
using TestSupport::ScriptedPlatform;
using TestSupport::WindowTest;
using Items = std::vector<std::string>;

std::string workbookOfTwoSheets() {
    const std::string row = "<row><c t=\"str\"><v>ID</v></c><c t=\"str\"><v>Name</v></c></row>";
    return Workbooks::package(
        {{"xl/workbook.xml",
          "<workbook xmlns:r=\"r\"><sheets><sheet name=\"Stock\" sheetId=\"1\" r:id=\"a\"/><sheet name=\"Old "
          "stock\" sheetId=\"2\" r:id=\"b\"/></sheets></workbook>"},
         {"xl/_rels/workbook.xml.rels",
          "<Relationships><Relationship Id=\"a\" Target=\"worksheets/sheet1.xml\"/><Relationship Id=\"b\" "
          "Target=\"worksheets/sheet2.xml\"/></Relationships>"},
         {"xl/worksheets/sheet1.xml", Workbooks::worksheet(row + row)},
         {"xl/worksheets/sheet2.xml", Workbooks::worksheet(row + row + row)}});
}

class FileCardTest : public WindowTest {
protected:
    FileCard& card(Side side) { return *m_window.findChild<FilesBar*>()->card(side); }
    template <typename Widget>
    Widget& inCard(Side side, const std::string& name) {
        for (auto* widget : card(side).findChildren<QWidget*>()) {
            auto* const found = dynamic_cast<Widget*>(widget);
            if (found != nullptr && widget->accessibleName() == QString::fromStdString(name)) {
                return *found;
            }
        }
        throw std::runtime_error("nothing named " + name);
    }
    bool showsSheetMenu(Side side) {
        const auto buttons = card(side).findChildren<Button*>();
        return std::any_of(buttons.begin(), buttons.end(), [](const Button* button) {
            return button->toolTip() == QStringLiteral("The sheet to compare") && button->isVisible();
        });
    }
    bool cardShows(Side side, const std::string& name) {
        const auto widgets = card(side).findChildren<QWidget*>();
        return std::any_of(widgets.begin(), widgets.end(), [&name](const QWidget* widget) {
            return widget->accessibleName() == QString::fromStdString(name) && widget->isVisible();
        });
    }
};

TEST_F(FileCardTest, AnEmptyCardInvites) {
    for (const Side side : {Side::before, Side::after}) {
        EXPECT_EQ(card(side).accessibleName(),
                  side == Side::before ? QStringLiteral("Before file") : QStringLiteral("After file"));
        EXPECT_TRUE(cardShows(side, "Drop a file here"));
        EXPECT_TRUE(cardShows(side, "Excel (.xlsx), CSV or TSV"));
    }
    auto& choose = inCard<Button>(Side::before, "Choose…");
    EXPECT_EQ(choose.toolTip(), QStringLiteral("Choose the older file"));
    EXPECT_EQ(inCard<Button>(Side::after, "Choose…").accessibleDescription(), QStringLiteral("Choose the newer file"));
    QTest::mouseClick(&choose, Qt::LeftButton);
    ASSERT_EQ(m_platform.openPanels.size(), 1U);
    EXPECT_TRUE(m_platform.openPanels[0].allowsSeveral);
}

TEST_F(FileCardTest, ALoadingCardIsBusy) {
    m_platform.files["before.csv"] = "a,b\n1,2\n";
    m_model.load(ScriptedPlatform::url("before.csv"), Side::before);
    EXPECT_TRUE(cardShows(Side::before, "Opening…"));
    EXPECT_FALSE(cardShows(Side::before, "Drop a file here"));
    EXPECT_FALSE(cardShows(Side::after, "Opening…"));
    m_platform.settle();
    EXPECT_FALSE(cardShows(Side::before, "Opening…"));
}

TEST_F(FileCardTest, ALoadedCardTellsNameAndSize) {
    open("a,b\n1,2\n3,4\n", Side::before);
    EXPECT_TRUE(cardShows(Side::before, "before.csv"));
    EXPECT_TRUE(cardShows(Side::before, "2 rows · 2 columns"));
    EXPECT_FALSE(cardShows(Side::before, "Drop a file here"));
    EXPECT_FALSE(showsSheetMenu(Side::before));
    open("a\n1\n", Side::after, "after.csv");
    EXPECT_TRUE(cardShows(Side::after, "1 row · 1 column"));
}

TEST_F(FileCardTest, TheCloseButtonEmptiesTheSide) {
    open("a,b\n1,2\n", Side::after, "after.csv");
    auto& close = inCard<Button>(Side::after, "Close this file");
    EXPECT_EQ(close.toolTip(), QStringLiteral("Close the After file"));
    EXPECT_EQ(inCard<Button>(Side::before, "Close this file").toolTip(), QStringLiteral("Close the Before file"));
    QTest::mouseClick(&close, Qt::LeftButton);
    EXPECT_FALSE(m_model.after());
    EXPECT_TRUE(cardShows(Side::after, "Drop a file here"));
}

TEST_F(FileCardTest, AWorkbookHasASheetMenu) {
    open(workbookOfTwoSheets(), Side::before, "stock.xlsx");
    auto& sheet = inCard<Button>(Side::before, "Sheet: Stock");
    EXPECT_EQ(sheet.accessibleDescription(), QStringLiteral("The sheet to compare"));
    EXPECT_TRUE(showsSheetMenu(Side::before));
    EXPECT_FALSE(showsSheetMenu(Side::after));
    EXPECT_EQ(itemsOf(sheet), (Items{"✓ Stock", "Old stock"}));
    pick(sheet, "Old stock");
    m_platform.settle();
    EXPECT_EQ(m_model.before()->sheet, 1);
    EXPECT_EQ(sheet.accessibleName(), QStringLiteral("Sheet: Old stock"));
    EXPECT_TRUE(cardShows(Side::before, "2 rows · 2 columns"));
}

TEST_F(FileCardTest, TheHeaderRowMenuOffersTheFirstRows) {
    open("Stock in October\n\nID,Name\n1,Pen\n", Side::before);
    auto& menu = inCard<Button>(Side::before, "Header row of the Before file");
    EXPECT_EQ(menu.label(), QStringLiteral("headers in row 3"));
    EXPECT_EQ(menu.toolTip(),
              QStringLiteral("Choose the row with the column names (when the file has a title above its table)"));
    EXPECT_EQ(itemsOf(menu),
              (Items{"[Column names are in]",
                     "✓ Automatic (row 3)",
                     "Row 1: Stock in October",
                     "Row 3: ID, Name",
                     "Row 4: 1, Pen"}));
    pick(menu, "Row 4: 1, Pen");
    m_platform.settle();
    EXPECT_EQ(m_model.before()->headerRow, 4);
    EXPECT_EQ(menu.label(), QStringLiteral("headers in row 4"));
    EXPECT_EQ(itemsOf(menu),
              (Items{"[Column names are in]",
                     "Automatic (row 3)",
                     "Row 1: Stock in October",
                     "Row 3: ID, Name",
                     "✓ Row 4: 1, Pen"}));
    pick(menu, "Automatic (row 3)");
    m_platform.settle();
    EXPECT_EQ(m_model.before()->headerRow, std::nullopt);
    EXPECT_EQ(menu.label(), QStringLiteral("headers in row 3"));
    EXPECT_EQ(inCard<Button>(Side::after, "Header row of the After file").toolTip(), menu.toolTip());
}

TEST_F(FileCardTest, ItsMenusGoWithTheFileThatTheyList) {
    open(workbookOfTwoSheets(), Side::before, "stock.xlsx");
    open("ID,Name\n1,Pen\n", Side::after, "after.csv");
    PopupMenu& sheets = *inCard<Button>(Side::before, "Sheet: Stock").menu();
    PopupMenu& rows = *inCard<Button>(Side::after, "Header row of the After file").menu();
    sheets.open();
    m_model.close(Side::before);
    EXPECT_FALSE(sheets.isVisible());
    rows.open();
    open("ID\n2\n", Side::after, "after.csv");
    EXPECT_FALSE(rows.isVisible());
}

TEST_F(FileCardTest, ALongNameLosesItsMiddle) {
    const std::string name = std::string(200, 'x') + " November.csv";
    open("a,b\n1,2\n", Side::before, name);
    const auto& label = inCard<ElidedLabel>(Side::before, name);
    EXPECT_LT(label.width(), label.sizeHint().width());
    EXPECT_LE(label.geometry().right(), card(Side::before).width());
}

TEST_F(FileCardTest, TheToolTipOfALongNameIsThatName) {
    const std::string name = "R&D <draft> " + std::string(40, 'x') + ' ' + std::string(40, 'y') + " November.csv";
    open("a,b\n1,2\n", Side::before, name);
    m_window.resize(m_window.minimumSize());
    QApplication::processEvents();
    auto& label = inCard<ElidedLabel>(Side::before, name);
    ASSERT_LT(label.width(), label.sizeHint().width());
    QHelpEvent help(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
    QApplication::sendEvent(&label, &help);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().toStdString(), name);
    QToolTip::hideText();
}

TEST_F(FileCardTest, OneDroppedFileFillsTheCardsSide) {
    m_platform.files["after.csv"] = "a,b\n1,2\n";
    EXPECT_TRUE(dragInto(card(Side::after), {"/after.csv"}));
    EXPECT_TRUE(card(Side::after).targeted());
    EXPECT_FALSE(card(Side::before).targeted());
    EXPECT_TRUE(drop(card(Side::after), {"/after.csv"}));
    EXPECT_FALSE(card(Side::after).targeted());
    m_platform.settle();
    EXPECT_EQ(m_model.after()->name, "after.csv");
    EXPECT_FALSE(m_model.before());
}

TEST_F(FileCardTest, TwoDroppedFilesFillBothSidesTheFirstBecomingBefore) {
    m_platform.files = {{"one.csv", "a,b\n1,2\n"}, {"two.csv", "a,b\n1,3\n"}};
    for (const Side side : {Side::before, Side::after}) {
        EXPECT_TRUE(drop(card(side), {"/one.csv", "/two.csv"}));
        m_platform.settle();
        EXPECT_EQ(m_model.before()->name, "one.csv");
        EXPECT_EQ(m_model.after()->name, "two.csv");
        m_model.close(Side::before);
        m_model.close(Side::after);
    }
}

TEST_F(FileCardTest, TwoFilesOverACardHighlightBoth) {
    for (const Side side : {Side::before, Side::after}) {
        EXPECT_TRUE(dragInto(card(side), {"/one.csv", "/two.csv"}));
        EXPECT_TRUE(card(Side::before).targeted());
        EXPECT_TRUE(card(Side::after).targeted());
        dragOutOf(card(side));
        EXPECT_FALSE(card(Side::before).targeted());
        EXPECT_FALSE(card(Side::after).targeted());
    }
}

TEST_F(FileCardTest, ADragThatLeavesLeavesNoTrace) {
    dragInto(card(Side::before), {"/one.csv"});
    dragOutOf(card(Side::before));
    EXPECT_FALSE(card(Side::before).targeted());
}

TEST_F(FileCardTest, AFolderAndThreeFilesAreRefused) {
    const QTemporaryDir folder;
    for (const std::vector<std::string>& paths : {std::vector<std::string>{folder.path().toStdString()},
                                                  {"/one.csv", folder.path().toStdString()},
                                                  {"/one.csv", "/two.csv", "/three.csv"},
                                                  {}}) {
        EXPECT_FALSE(drop(card(Side::before), paths));
        EXPECT_FALSE(card(Side::before).targeted());
    }
    EXPECT_TRUE(m_model.loading().empty());
}

TEST_F(FileCardTest, SwapExchangesTheFiles) {
    auto& swap = button("Swap Before and After");
    EXPECT_EQ(swap.toolTip(), QStringLiteral("Swap Before and After"));
    EXPECT_FALSE(swap.isEnabled());
    open("a,b\n1,2\n", Side::before);
    EXPECT_TRUE(swap.isEnabled());
    QTest::mouseClick(&swap, Qt::LeftButton);
    EXPECT_FALSE(m_model.before());
    EXPECT_EQ(m_model.after()->name, "before.csv");
}

TEST_F(FileCardTest, InANarrowWindowWordsGiveWayBeforeTheCounts) {
    open(workbookOfTwoSheets(), Side::before, "stock.xlsx");
    auto& sheet = inCard<Button>(Side::before, "Sheet: Stock");
    const auto& size = inCard<ElidedLabel>(Side::before, "1 row · 2 columns");
    m_window.resize(1280, 800);
    QApplication::processEvents();
    const int wide = sheet.width();
    m_window.resize(900, 600);
    QApplication::processEvents();
    EXPECT_LT(sheet.width(), wide);
    EXPECT_EQ(sheet.accessibleName(), QStringLiteral("Sheet: Stock"));
    EXPECT_EQ(size.width(), size.sizeHint().width());
}

TEST_F(FileCardTest, ALargerSystemFontMakesALargerCard) {
    open("a,b\n1,2\n", Side::before);
    const auto& name = inCard<ElidedLabel>(Side::before, "before.csv");
    const auto& menu = inCard<Button>(Side::before, "Header row of the Before file");
    const int usualHeight = card(Side::before).height();
    const QFont font = QApplication::font();
    QFont larger = font;
    larger.setPixelSize(26);
    QApplication::setFont(larger);
    EXPECT_TRUE(QTest::qWaitFor([&] { return card(Side::before).height() > usualHeight; }));
    EXPECT_GE(name.height(), QFontMetrics(fontFor(TextRole::cardName)).height());
    EXPECT_GE(menu.height(), QFontMetrics(fontFor(TextRole::secondary)).height());
    EXPECT_GE(menu.width(), Drawing::textWidth(fontFor(TextRole::secondary), menu.label()));
    EXPECT_LE(menu.mapTo(&card(Side::before), menu.rect().bottomLeft()).y(), card(Side::before).height());
    QApplication::setFont(font);
}

}  // namespace
}  // namespace corvale
