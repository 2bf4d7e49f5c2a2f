#include <QTest>

#include "Corvale/window/Button.h"
#include "Corvale/window/ChipLabel.h"
#include "Corvale/window/SummaryStrip.h"
#include "Corvale/window/SymbolLabel.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;
using Show = DiffFilter::Show;

constexpr auto before = "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n4,Mat,7\n";
constexpr auto after = "ID,Name,Price\n1,Pen,2\n2,Mug,4\n3,Hat,5.00\n5,Ink,1\n6,Jar,2\n";

class SummaryStripTest : public WindowTest {
protected:
    ChipLabel& chip(const std::string& name) { return named<ChipLabel>(name); }
    void click(const std::string& chipName) { QTest::mouseClick(&chip(chipName), Qt::LeftButton); }
    Show shown() const { return m_model.filter().show; }
};

TEST_F(SummaryStripTest, ShowsWhileThereIsAResult) {
    EXPECT_FALSE(shows("Added 2"));
    compare(before, after);
    EXPECT_TRUE(shows("Added 2"));
    m_model.close(Side::after);
    EXPECT_FALSE(shows("Added 2"));
}

TEST_F(SummaryStripTest, ChipsCountTheRowsOfEachKind) {
    compare(before, after);
    for (const auto* name : {"Added 2", "Removed 1", "Changed 2, 3 cells", "Unchanged 1"}) {
        EXPECT_TRUE(shows(name)) << name;
    }
    EXPECT_EQ(chip("Changed 2, 3 cells").symbol(), QStringLiteral("pencil.circle.fill"));
    EXPECT_EQ(chip("Unchanged 1").symbol(), QStringLiteral("equal.circle"));
    EXPECT_FALSE(shows("The files match"));
}

TEST_F(SummaryStripTest, ClickingAChipTwiceReturnsToAllChanges) {
    compare(before, after);
    for (const auto& [name, show] : {std::pair("Added 2", Show::added),
                                     {"Removed 1", Show::removed},
                                     {"Changed 2, 3 cells", Show::changed},
                                     {"Unchanged 1", Show::all}}) {
        EXPECT_FALSE(chip(name).selected());
        click(name);
        EXPECT_EQ(shown(), show) << name;
        EXPECT_TRUE(chip(name).selected());
        click(name);
        EXPECT_EQ(shown(), Show::changes) << name;
        EXPECT_FALSE(chip(name).selected());
    }
}

TEST_F(SummaryStripTest, ChipsKeepTheRestOfTheFilter) {
    compare(before, after);
    m_model.setFilter({.show = Show::changes, .column = 2, .search = "cup"});
    click("Changed 2, 3 cells");
    EXPECT_EQ(m_model.filter(), (DiffFilter{.show = Show::changed, .column = 2, .search = "cup"}));
}

TEST_F(SummaryStripTest, OneChipIsSelectedAtATime) {
    compare(before, after);
    click("Added 2");
    click("Removed 1");
    EXPECT_FALSE(chip("Added 2").selected());
    EXPECT_TRUE(chip("Removed 1").selected());
}

TEST_F(SummaryStripTest, HelpTellsWhatAClickDoes) {
    compare(before, after);
    const auto help = [this](const std::string& name) { return chip(name).accessibleDescription().toStdString(); };
    EXPECT_EQ(help("Added 2"), "Show only these rows");
    EXPECT_EQ(help("Unchanged 1"), "Show every row, changed or not");
    click("Added 2");
    EXPECT_EQ(help("Added 2"), "Show every change again");
    EXPECT_EQ(chip("Added 2").toolTip(), chip("Added 2").accessibleDescription());
    click("Unchanged 1");
    EXPECT_EQ(help("Unchanged 1"), "Show every change again");
    EXPECT_EQ(help("Added 2"), "Show only these rows");
}

TEST_F(SummaryStripTest, EqualFilesMatch) {
    compare(before, before);
    EXPECT_TRUE(shows("The files match"));
    EXPECT_TRUE(shows("Changed 0"));
    EXPECT_TRUE(shows("Unchanged 4"));
}

TEST_F(SummaryStripTest, ANewColumnIsADifference) {
    compare("ID,Name\n1,Pen\n2,Cup\n", "ID,Name,Price\n1,Pen,2\n2,Cup,3\n");
    EXPECT_FALSE(shows("The files match"));
    EXPECT_TRUE(shows("1 new columns"));
}

TEST_F(SummaryStripTest, NotesTellWhatElseDiffers) {
    compare("ID,Old,Name,Price\n1,x,Pen,2\n2,x,Cup,3.0\n,x,Hat,5\n2,x,Cap,1\n",
            "ID,Price,Name,New,Newer\n1,2,pen,y,z\n2,3,Cup,y,z\n2,1,Cap,y,z\n");
    m_model.setMatch(MatchChoice::key("ID"));
    m_platform.settle();
    for (const auto* note : {"2 new columns",
                             "1 columns removed",
                             "Column order changed",
                             "1 rows with an empty key",
                             "2 cells differ only in number format, case or spacing",
                             "2 duplicate keys"}) {
        EXPECT_TRUE(shows(note)) << note;
    }
}

TEST_F(SummaryStripTest, NotesOfNothingAreAbsent) {
    compare("ID,Name\n1,Pen\n2,Cup\n", "ID,Name\n1,Pen\n2,Mug\n");
    for (const auto* note : {"0 new columns",
                             "0 columns removed",
                             "Column order changed",
                             "0 rows with an empty key",
                             "0 cells differ only in number format, case or spacing",
                             "0 duplicate keys"}) {
        EXPECT_FALSE(shows(note)) << note;
    }
}

TEST_F(SummaryStripTest, AResultOfAnotherChoiceSaysSoAndLeadsToANewOne) {
    compare("ID,Name\n1,Pen\n2,Cup\n", "ID,Name\n1,Pen\n2,Cup\n");
    EXPECT_TRUE(shows("The files match"));
    EXPECT_FALSE(shows("Results out of date"));
    m_model.setMatch(MatchChoice::key("Name"));
    m_model.cancel();
    EXPECT_TRUE(shows("Results out of date"));
    EXPECT_FALSE(shows("The files match")) << "which nobody knows";
    QTest::mouseClick(&named<Button>("Results out of date"), Qt::LeftButton);
    EXPECT_FALSE(shows("Results out of date"));
    m_platform.settle();
    EXPECT_TRUE(shows("The files match"));
    EXPECT_EQ(m_model.result()->match, RowMatch::key({"Name"}));
}

TEST_F(SummaryStripTest, LargeCountsAreGrouped) {
    std::string rows = "ID,Name\n";
    for (int i = 0; i < 1234; ++i) {
        rows += std::to_string(i) + ",x\n";
    }
    compare("ID,Name\n0,x\n1,x\n", rows);
    EXPECT_TRUE(shows("Added 1,232"));
}

TEST_F(SummaryStripTest, NotesWrapUnderTheChips) {
    compare(before, after);
    const auto& note = named<SymbolLabel>("1 cells differ only in number format, case or spacing");
    const auto& strip = *note.parentWidget()->parentWidget();
    m_window.resize(1600, 800);
    QApplication::processEvents();
    EXPECT_EQ(strip.height(), 48);
    EXPECT_GE(note.width(), note.sizeHint().width());
    m_window.resize(760, 600);
    QApplication::processEvents();
    EXPECT_EQ(strip.height(), 80);
    EXPECT_GE(note.width(), note.sizeHint().width());
}

TEST_F(SummaryStripTest, ArrowKeysMoveAmongTheChips) {
    compare(before, after);
    m_window.activateWindow();
    chip("Added 2").setFocus();
    QTest::keyClick(&chip("Added 2"), Qt::Key_Right);
    EXPECT_TRUE(chip("Removed 1").hasFocus());
    QTest::keyClick(&chip("Removed 1"), Qt::Key_Left);
    QTest::keyClick(&chip("Added 2"), Qt::Key_Left);
    EXPECT_TRUE(chip("Added 2").hasFocus());
    QTest::keyClick(&chip("Added 2"), Qt::Key_Space);
    EXPECT_EQ(shown(), Show::added);
    QTest::keyClick(&chip("Added 2"), Qt::Key_Return);
    EXPECT_EQ(shown(), Show::changes);
}

TEST_F(SummaryStripTest, RefreshFiltersNothing) {
    compare(before, after);
    click("Removed 1");
    m_platform.settle();
    const auto generation = m_model.filterGeneration();
    m_window.findChild<SummaryStrip*>()->refresh();
    m_platform.settle();
    EXPECT_EQ(m_model.filterGeneration(), generation);
    EXPECT_EQ(shown(), Show::removed);
}

}  // namespace
}  // namespace corvale
