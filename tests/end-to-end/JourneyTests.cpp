#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/end-to-end/DragSource.h"
#include "tests/end-to-end/ProgramTest.h"
#include "tests/end-to-end/User.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace User = TestSupport::User;

// Rows of the sample lists.
const std::string towel =
    "Before\t4\tSKU-1003\tLinen tea towel, set of 2\tKitchen\t18.50\t17\tA2\n"
    "After\t4\tSKU-1003\tLinen tea towel, set of 2\tKitchen\t18.50\t12\tA2";
const std::string ink =
    "Before\t17\tSKU-1016\tInk bottle, deep teal\tPaper\t11.00\t28\tD2\n"
    "After\t17\tSKU-1016\tInk bottle, deep teal\tPaper\t11\t28\tD2";
const std::string notebook =
    "Before\t14\tSKU-1013\tDot grid notebook\tPaper\t12.00\t7\tD1\n"
    "After\t14\tSKU-1013\tDot grid notebook, A5\tPaper\t12.00\t7\tD1";
const std::string yoyo = "Before\t23\tSKU-1022\tWooden yo-yo\tGifts\t6.00\t30\tF2";
const std::string bowl = "After\t25\tSKU-1025\tStoneware bowl, sky blue\tKitchen\t19.00\t16\tA1";
const std::string can = "After\t27\tSKU-1027\tWatering can, copper\tGarden\t34.00\t9\tC3";

class JourneyTest : public TestSupport::ProgramTest {
protected:
    // The main window as it is on the screen.
    QImage picture() {
        const QRect area = User::areaOf(m_window);
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
            .toImage();
    }

    void exportBy(const QString& keys, const std::string& path) {
        // A file is there a moment before the program takes another export.
        const QString panel = QStringLiteral("Export Report");
        waitUntil("the panel opens", [&] {
            User::press(keys);
            return !User::windowTitled(panel).isEmpty();
        });
        answerPanel(panel, path);
        waitUntil("the report is written", [&path] { return std::filesystem::exists(path); });
    }

    void trySampleFromWelcome() {
        // "Try the Sample" is one before "Get Started", which has the keys.
        turnToWindow(QStringLiteral("Welcome to Corvale"));
        User::press(QStringLiteral("shift+Tab space"));
        waitUntil("the sheet is gone", [] { return User::windowTitled(QStringLiteral("Welcome")).isEmpty(); });
        User::turnTo(m_window);
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), towel), towel);
        m_twin->model().openSamples();
        waitUntil("the twin has compared too", [this] { return m_twin->model().result() != nullptr; });
    }

    void filterAddedRows() {
        click(QStringLiteral("Added"));
        click(m_twin->middleOfLine(0));
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), bowl), bowl);
        EXPECT_EQ(rowAfter(QStringLiteral("End"), can), can);
        User::press(QStringLiteral("ctrl+3"));
    }

    void searchForANotebook() {
        User::press(QStringLiteral("ctrl+f"));
        User::type(QStringLiteral("notebook"));
        click(m_twin->middleOfLine(0));
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), notebook), notebook);
        EXPECT_EQ(rowAfter(QStringLiteral("End"), notebook), notebook);
        User::press(QStringLiteral("ctrl+f Escape"));
    }

    void hideAndShowRowDetails() {
        click(m_twin->middleOfLine(0));
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), towel), towel);
        const QImage withDetails = picture();
        User::press(QStringLiteral("ctrl+alt+i"));
        waitUntil("the details are gone", [&] { return picture() != withDetails; });
        User::press(QStringLiteral("ctrl+alt+i"));
        waitUntil("the details are back", [&] { return picture() == withDetails; });
    }

    void ignoreNumberFormatting() {
        EXPECT_EQ(rowAfter(QStringLiteral("Home Down Down Down Down Down"), ink), ink);
        click(QStringLiteral("Ignoring 2 of 4"));
        waitUntil("the menu opens", [] { return User::windowsOf(QStringLiteral("corvale")) == 2; });
        // It is the third of the menu.
        User::press(QStringLiteral("Down Down Down space Escape"));
        waitUntil("it is stored", [this] { return settings().options.ignoreNumberFormat; });
        click(m_twin->middleOfLine(0));
        EXPECT_EQ(rowAfter(QStringLiteral("Home Down Down Down Down"), notebook), notebook);
        EXPECT_EQ(rowAfter(QStringLiteral("Home Down Down Down Down Down"), yoyo), yoyo);
    }

    void viewSideBySide() {
        User::press(QStringLiteral("ctrl+2"));
        waitUntil("it is stored", [this] { return settings().view == ViewMode::sideBySide; });
    }

    void exportBothReports() {
        const std::string workbook = m_folder.at("report.xlsx");
        exportBy(QStringLiteral("ctrl+e"), workbook);
        EXPECT_TRUE(TestFiles::read(workbook).starts_with("PK\x03\x04"));
        const std::string page = m_folder.at("report.html");
        exportBy(QStringLiteral("ctrl+shift+e"), page);
        EXPECT_NE(TestFiles::read(page).find("Stoneware bowl, sky blue"), std::string::npos);
    }

    void findSettingsStored() {
        const AppSettings kept = settings();
        EXPECT_TRUE(kept.onboardingDone);
        EXPECT_TRUE(kept.options.ignoreNumberFormat);
        EXPECT_EQ(kept.view, ViewMode::sideBySide);
    }

    // No sheet is in the way now, and 4.00 is no change of 4.
    void findSettingsInUse() {
        const std::string onlyChange = "Before\t3\tA2\t5.00\nAfter\t3\tA2\t6.00";
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), onlyChange), onlyChange);
        EXPECT_EQ(rowAfter(QStringLiteral("End"), onlyChange), onlyChange);
        EXPECT_TRUE(User::windowTitled(QStringLiteral("Welcome")).isEmpty());
    }
};

TEST_F(JourneyTest, GoesFromTheWelcomeToReportsAndKeepsItsSettings) {
    store({});
    startProgram();
    trySampleFromWelcome();
    filterAddedRows();
    searchForANotebook();
    hideAndShowRowDetails();
    ignoreNumberFormatting();
    viewSideBySide();
    exportBothReports();
    quit();
    findSettingsStored();

    startProgram({m_folder.write("before.csv", "ID,Price\nA1,4.00\nA2,5.00\n"),
                  m_folder.write("after.csv", "ID,Price\nA1,4\nA2,6.00\n")});
    findSettingsInUse();
    quit();
}

class DropTest : public JourneyTest {
protected:
    static QList<QUrl> urls(const std::vector<std::string>& paths) {
        QList<QUrl> urls;
        for (const std::string& path : paths) {
            urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
        }
        return urls;
    }

    QPoint middle() { return User::areaOf(m_window).center(); }
    QPoint besideTheWindow() { return User::areaOf(m_window).topRight() + QPoint(30, 30); }
};

TEST_F(DropTest, TakesAPairAnywhereOnTheWindow) {
    const std::string before = m_folder.write("old list.csv", "ID,Price\nA1,4\nA2,5\n");
    const std::string after = m_folder.write("new list.csv", "ID,Price\nA1,4\nA2,6\n");
    startProgram();
    TestSupport::DragSource files(besideTheWindow());
    EXPECT_TRUE(files.dragTo(middle(), urls({before, after})));
    User::turnTo(m_window);
    const std::string change = "Before\t3\tA2\t5\nAfter\t3\tA2\t6";
    EXPECT_EQ(rowAfter(QStringLiteral("Home"), change), change);
    quit();
}

TEST_F(DropTest, RefusesAFolderAndThreeFilesAndGoesOn) {
    const std::string file = m_folder.write("list.csv", "ID\n1\n");
    startProgram();
    constexpr int fewMoves = 30;
    TestSupport::DragSource files(besideTheWindow());
    EXPECT_FALSE(files.dragTo(middle(), urls({m_folder.path().string()}), fewMoves));
    EXPECT_FALSE(files.dragTo(middle(), urls({file, file, file}), fewMoves));
    quit();
}

TEST_F(DropTest, ComparesRealFiles) {
    const auto samples = TestFiles::samples();
    if (!samples) {
        GTEST_SKIP() << "no folder of samples: --samples FOLDER names one";
    }
    startProgram();
    TestSupport::DragSource files(besideTheWindow());
    std::string copied;
    for (const std::string_view name : {"dotgov-agencies-2025", "cross-roo-simple"}) {
        std::vector<std::string> pair;
        for (const auto& entry : std::filesystem::directory_iterator(*samples / "pairs" / name)) {
            if (entry.path().has_extension()) {
                pair.push_back(entry.path().string());
            }
        }
        // "before" first.
        std::sort(pair.rbegin(), pair.rend());
        EXPECT_TRUE(files.dragTo(middle(), urls(pair))) << name;
        User::turnTo(m_window);
        const std::string last = copied;
        waitUntil("another row is selected", [&] {
            copied = User::copyWith(QStringLiteral("Home ctrl+c"));
            return !copied.empty() && copied != last;
        });
    }
    quit();
}

}  // namespace
}  // namespace corvale
