#include <filesystem>
#include <string>

#include "tests/end-to-end/ProgramTest.h"
#include "tests/end-to-end/User.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace User = TestSupport::User;

const std::string beforeText =
    "ID,Name,Price\n"
    "A1,Cup,4.00\n"
    "A2,Pen,1.20\n"
    "A3,Ink,7.50\n"
    "A4,Map,9.00\n";
const std::string afterText =
    "ID,Name,Price\n"
    "A1,Cup,4.00\n"
    "A2,Pen,1.35\n"
    "A4,Atlas,8.00\n"
    "A5,Bag,20.00\n";

const std::string penRow = "Before\t3\tA2\tPen\t1.20\nAfter\t3\tA2\tPen\t1.35";
const std::string inkRow = "Before\t4\tA3\tInk\t7.50";
const std::string mapRow = "Before\t5\tA4\tMap\t9.00\nAfter\t4\tA4\tAtlas\t8.00";
const std::string bagRow = "After\t5\tA5\tBag\t20.00";

class WindowTest : public TestSupport::ProgramTest {
protected:
    // Has the program and its twin compare a pair that is named when it starts.
    void openPair() {
        const std::string before = m_folder.write("before.csv", beforeText);
        const std::string after = m_folder.write("after.csv", afterText);
        startProgram({before, after});
        ASSERT_TRUE(m_twin->compare(before, after));
        ASSERT_EQ(rowAfter(QStringLiteral("Home"), penRow), penRow);
    }
};

TEST_F(WindowTest, LeadsFromNothingToAComparedPair) {
    const std::string before = m_folder.write("before.csv", beforeText);
    const std::string after = m_folder.write("after.csv", afterText);

    startProgram();
    // The older file by keys, which the toolbar has first, the newer one by mouse.
    User::press(QStringLiteral("Tab space"));
    answerPanel(QStringLiteral("Choose the older file (Before)"), before);
    click(QStringLiteral("Choose the newer file"));
    answerPanel(QStringLiteral("Choose the newer file (After)"), after);

    // The list takes the keys once it is there.
    EXPECT_EQ(rowAfter(QStringLiteral("Home"), penRow), penRow);
    EXPECT_EQ(rowAfter(QStringLiteral("Home Down"), inkRow), inkRow);
    EXPECT_EQ(rowAfter(QStringLiteral("Home Down F8"), mapRow), mapRow);
    EXPECT_EQ(rowAfter(QStringLiteral("End"), bagRow), bagRow);
}

TEST_F(WindowTest, ShowsAndExportsWhatIsClicked) {
    openPair();
    click(m_twin->middleOfLine(2));
    EXPECT_EQ(rowAfter({}, mapRow), mapRow);

    click(QStringLiteral("Added"));
    click(m_twin->middleOfLine(0));
    EXPECT_EQ(rowAfter(QStringLiteral("Home"), bagRow), bagRow);
    click(QStringLiteral("Added"));
    click(m_twin->middleOfLine(0));
    EXPECT_EQ(rowAfter(QStringLiteral("Home"), penRow), penRow);

    click(QStringLiteral("Search rows"));
    User::type(QStringLiteral("atlas 9.00"));
    click(m_twin->middleOfLine(0));
    EXPECT_EQ(rowAfter(QStringLiteral("Home"), mapRow), mapRow);
    EXPECT_EQ(rowAfter(QStringLiteral("End"), mapRow), mapRow);
    click(QStringLiteral("Search rows"));
    User::press(QStringLiteral("Escape"));
    click(m_twin->middleOfLine(0));
    EXPECT_EQ(rowAfter(QStringLiteral("End"), bagRow), bagRow);

    const std::string report = m_folder.at("report.html");
    click(QStringLiteral("Export"));
    waitUntil("the menu opens", [] { return User::windowsOf(QStringLiteral("corvale")) == 2; });
    User::press(QStringLiteral("Up Return"));
    answerPanel(QStringLiteral("Export Report"), report);
    waitUntil("the report is written", [&report] { return std::filesystem::exists(report); });
    EXPECT_NE(TestFiles::read(report).find("Atlas"), std::string::npos);
}

}  // namespace
}  // namespace corvale
