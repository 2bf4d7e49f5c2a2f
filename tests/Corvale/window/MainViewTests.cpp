#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>

#include "Corvale/grid/DiffGrid.h"
#include "Corvale/grid/RowInspector.h"
#include "Corvale/grid/ValueText.h"
#include "Corvale/window/EmptyState.h"
#include "Corvale/window/FileCard.h"
#include "Corvale/window/FilesBar.h"
#include "Corvale/window/MainView.h"
#include "Corvale/window/ProblemAlert.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;

constexpr auto before = "ID,Name\n1,Pen\n2,Cup\n3,Hat\n";
constexpr auto after = "ID,Name\n1,Pen\n2,Mug\n4,Ink\n";

class MainViewTest : public WindowTest {
protected:
    FileCard& card(Side side) { return *m_window.findChild<FilesBar*>()->card(side); }
    // The texts of the labels and buttons that show in the empty state.
    std::vector<std::string> stateTexts() const {
        std::vector<std::string> texts;
        for (const QWidget* widget : m_empty.findChildren<QWidget*>()) {
            const auto* const label = qobject_cast<const QLabel*>(widget);
            const auto* const pushButton = qobject_cast<const QPushButton*>(widget);
            if (widget->isVisible() && (label != nullptr || pushButton != nullptr)) {
                texts.push_back((label != nullptr ? label->text() : pushButton->text()).toStdString());
            }
        }
        return texts;
    }
    QPushButton& stateButton(const std::string& text) const {
        for (auto* candidate : m_empty.findChildren<QPushButton*>()) {
            if (candidate->isVisible() && candidate->text() == QString::fromStdString(text)) {
                return *candidate;
            }
        }
        throw std::runtime_error("no button " + text);
    }

    EmptyState& m_empty = *m_window.findChild<EmptyState*>();
    DiffGrid& m_grid = m_window.view().grid();
};

TEST_F(MainViewTest, AnEmptyWindowSaysWhatToDo) {
    EXPECT_EQ(
        stateTexts(),
        (std::vector<std::string>{
            "Pick two spreadsheets to compare",
            "Open the older file on the left and the newer one on the right (Excel .xlsx, CSV or TSV), or drop them "
            "on the window. Corvale suggests a key column and shows every added, removed and changed row.",
            "Choose Files…",
            "Try the Sample"}));
    QTest::mouseClick(&stateButton("Choose Files…"), Qt::LeftButton);
    ASSERT_EQ(m_platform.openPanels.size(), 1U);
    EXPECT_TRUE(m_platform.openPanels[0].allowsSeveral);
    QTest::mouseClick(&stateButton("Try the Sample"), Qt::LeftButton);
    m_platform.settle();
    EXPECT_TRUE(m_model.result());
    EXPECT_FALSE(m_empty.isVisible());
}

TEST_F(MainViewTest, WithOneFileItAsksForTheOther) {
    open(before, Side::before);
    EXPECT_EQ(stateTexts(), (std::vector<std::string>{"Choose the newer file (After).", "Choose…"}));
    QTest::mouseClick(&stateButton("Choose…"), Qt::LeftButton);
    EXPECT_FALSE(m_platform.openPanels.back().allowsSeveral);
    m_model.swap();
    EXPECT_EQ(stateTexts(), (std::vector<std::string>{"Choose the older file (Before).", "Choose…"}));
    QTest::mouseClick(&stateButton("Choose…"), Qt::LeftButton);
    EXPECT_TRUE(m_platform.openPanels.back().allowsSeveral);
}

TEST_F(MainViewTest, AComparisonCancelledBeforeItsFirstResultCanBeStartedAgain) {
    open(before, Side::before);
    m_platform.files["after.csv"] = after;
    m_model.load(TestSupport::ScriptedPlatform::url("after.csv"), Side::after);
    while (!m_model.progress()) {
        m_platform.work();
        m_platform.deliver();
    }
    EXPECT_TRUE(stateTexts().empty());
    m_model.cancel();
    m_platform.settle();
    EXPECT_EQ(stateTexts(), (std::vector<std::string>{"Not compared yet", "Compare"}));
    QTest::mouseClick(&stateButton("Compare"), Qt::LeftButton);
    m_platform.settle();
    EXPECT_TRUE(m_grid.isVisible());
}

TEST_F(MainViewTest, AResultShowsTheGridAndTheDetails) {
    auto& details = *m_window.findChild<RowInspector*>();
    EXPECT_FALSE(m_grid.isVisible());
    m_window.resize(1280, 800);
    compare(before, after);
    QApplication::processEvents();
    EXPECT_TRUE(m_grid.isVisible());
    EXPECT_TRUE(details.isVisible());
    EXPECT_EQ(details.width(), 264);
    m_model.toggleInspector();
    EXPECT_FALSE(details.isVisible());
    m_model.toggleInspector();
    EXPECT_TRUE(details.isVisible());
    QApplication::processEvents();
    EXPECT_EQ(details.width(), 264);
    m_model.close(Side::before);
    EXPECT_FALSE(m_grid.isVisible());
}

TEST_F(MainViewTest, DetailsAreNarrowerInANarrowWindow) {
    compare(before, after);
    auto& details = *m_window.findChild<RowInspector*>();
    for (const auto& [width, wanted] : {std::pair(900, 240), {760, 220}, {1280, 264}}) {
        m_window.resize(width, 600);
        QApplication::processEvents();
        EXPECT_EQ(details.width(), wanted) << width;
    }
}

TEST_F(MainViewTest, AResultTakesTheKeyboardToTheGrid) {
    compare(before, after);
    EXPECT_EQ(m_window.focusWidget(), &m_grid);
}

TEST_F(MainViewTest, AResultLeavesTheKeyboardToWhoIsTyping) {
    compare(before, after);
    m_model.setFocusSearch(true);
    m_model.compare();
    m_platform.settle();
    EXPECT_TRUE(named<QWidget>("Search rows").hasFocus());
}

TEST_F(MainViewTest, F8GoesToTheNextChangeFromAnywhere) {
    compare(before, after);
    for (const char* name : {"Search rows", "Unified", "Close this file"}) {
        auto& control = named<QWidget>(name);
        m_model.select(std::nullopt);
        control.setFocus();
        QTest::keyClick(&control, Qt::Key_F8);
        EXPECT_EQ(m_grid.selectedLine(), 0) << name;
        EXPECT_TRUE(control.hasFocus()) << name;
    }
}

TEST_F(MainViewTest, AProblemIsShownUntilItIsRead) {
    auto& alert = *m_window.findChild<ProblemAlert*>();
    EXPECT_FALSE(alert.isVisible());
    open("\x01\x02\x03", Side::before, "photo.jpg");
    ASSERT_TRUE(m_model.problem());
    EXPECT_TRUE(alert.isVisible());
    EXPECT_TRUE(alert.isModal());
    EXPECT_EQ(alert.windowTitle(), QStringLiteral("Something went wrong"));
    EXPECT_EQ(alert.findChild<ValueText*>()->toPlainText(),
              QStringLiteral("“photo.jpg” doesn’t look like a CSV or Excel file."));
    auto& ok = *alert.findChild<QPushButton*>();
    EXPECT_EQ(ok.text(), QStringLiteral("OK"));
    EXPECT_EQ(alert.focusWidget(), &ok);
    QTest::mouseClick(&ok, Qt::LeftButton);
    EXPECT_FALSE(m_model.problem());
    EXPECT_FALSE(alert.isVisible());
    open("\x01\x02\x03", Side::before, "photo.jpg");
    EXPECT_TRUE(alert.isVisible());
    QTest::keyClick(&alert, Qt::Key_Escape);
    EXPECT_FALSE(m_model.problem());
}

TEST_F(MainViewTest, AProblemWithALongFileNameIsReadWhole) {
    auto& text = *m_window.findChild<ProblemAlert*>()->findChild<ValueText*>();
    open("\x01", Side::before, "photo.jpg");
    const int usual = text.height();
    m_model.dismissProblem();
    open("\x01", Side::before, std::string(240, 'm') + ".jpg");
    EXPECT_GT(text.height(), 4 * usual);
    EXPECT_LE(text.document()->size().height(), text.height());
    EXPECT_LE(text.document()->idealWidth(), text.width());
}

TEST_F(MainViewTest, AFileDroppedOnTheWindowFillsTheFirstEmptySide) {
    m_platform.files = {{"one.csv", before}, {"two.csv", after}, {"three.csv", after}};
    EXPECT_TRUE(dragInto(m_grid, {"/one.csv"}));
    EXPECT_TRUE(card(Side::before).targeted());
    EXPECT_FALSE(card(Side::after).targeted());
    dragOutOf(m_window.view());
    EXPECT_FALSE(card(Side::before).targeted());
    EXPECT_TRUE(drop(m_window.view(), {"/one.csv"}));
    EXPECT_FALSE(card(Side::before).targeted());
    m_platform.settle();
    EXPECT_EQ(m_model.before()->name, "one.csv");
    dragInto(m_window.view(), {"/two.csv"});
    EXPECT_TRUE(card(Side::after).targeted());
    EXPECT_TRUE(drop(m_window.view(), {"/two.csv"}));
    m_platform.settle();
    EXPECT_EQ(m_model.after()->name, "two.csv");
    EXPECT_TRUE(drop(m_window.view(), {"/three.csv"}));
    m_platform.settle();
    EXPECT_EQ(m_model.before()->name, "one.csv");
    EXPECT_EQ(m_model.after()->name, "three.csv");
}

TEST_F(MainViewTest, TwoFilesDroppedOnTheWindowFillBothSides) {
    m_platform.files = {{"one.csv", before}, {"two.csv", after}};
    dragInto(m_window.view(), {"/one.csv", "/two.csv"});
    EXPECT_TRUE(card(Side::before).targeted());
    EXPECT_TRUE(card(Side::after).targeted());
    EXPECT_TRUE(drop(m_window.view(), {"/one.csv", "/two.csv"}));
    m_platform.settle();
    EXPECT_EQ(m_model.before()->name, "one.csv");
    EXPECT_EQ(m_model.after()->name, "two.csv");
}

TEST_F(MainViewTest, AFolderAndThreeFilesDroppedOnTheWindowAreRefused) {
    const QTemporaryDir folder;
    EXPECT_FALSE(drop(m_window.view(), {folder.path().toStdString()}));
    EXPECT_FALSE(drop(m_window.view(), {"/one.csv", "/two.csv", "/three.csv"}));
    EXPECT_FALSE(card(Side::before).targeted());
    EXPECT_TRUE(m_model.loading().empty());
}

TEST_F(MainViewTest, TabGoesInReadingOrder) {
    compare("ID,Name,Price\n1,Pen,2\n2,Cup,3.0\n2,Cup,3\n", "ID,Name,Price\n1,Pin,2\n2,Cup,3\n2,Cup,3\n");
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    button("Unified").setFocus();
    std::vector<std::string> names;
    for (const QWidget* focused = m_window.focusWidget(); names.size() < 30; focused = m_window.focusWidget()) {
        names.push_back(focused == &m_grid ? "grid" : focused->accessibleName().toStdString());
        if (focused == &m_grid) {
            break;
        }
        QTest::keyClick(m_window.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"Unified",
                                        "Show: Only Changes",
                                        "Any Column",
                                        "Export Report",
                                        "Row Details",
                                        "Search rows",
                                        "Header row of the Before file",
                                        "Close this file",
                                        "Swap Before and After",
                                        "Header row of the After file",
                                        "Close this file",
                                        "Match rows by: ID",
                                        "Automatic (Numbers like 1,234.56)",
                                        "Ignoring 2 of 4",
                                        "Ignore Columns",
                                        "Added 0",
                                        "Removed 0",
                                        "Changed 2, 2 cells",
                                        "Unchanged 1",
                                        "2 duplicate keys",
                                        "grid"}));
}

TEST_F(MainViewTest, TabReachesTheEmptyCards) {
    button("Unified").setFocus();
    std::vector<std::string> names;
    for (int i = 0; i < 5; ++i) {
        const auto* const pushButton = qobject_cast<QPushButton*>(m_window.focusWidget());
        names.push_back(
            (pushButton != nullptr ? pushButton->text() : m_window.focusWidget()->accessibleName()).toStdString());
        QTest::keyClick(m_window.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Unified", "Choose…", "Choose…", "Choose Files…", "Try the Sample"}));
}

}  // namespace
}  // namespace corvale
