#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QSettings>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Corvale/model/AppSettings.h"
#include "Corvale/platform/QtPlatform.h"
#include "tests/end-to-end/Screen.h"
#include "tests/end-to-end/Twin.h"
#include "tests/end-to-end/User.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace User = TestSupport::User;
using TestSupport::ScratchFolder;
using TestSupport::Screen;
using TestSupport::Twin;

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

// The program on its screen, used by a user who has nothing stored but to have been welcomed.
class WindowTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string missing = Screen::whatIsMissing(); !missing.empty()) {
            GTEST_SKIP() << missing << "./dev test installs what the tests need.";
        }
        prepareSettings();
        m_twin.emplace(m_settingsFile);
    }

    void TearDown() override {
        if (m_program.state() == QProcess::NotRunning) {
            return;
        }
        if (HasFailure()) {
            const char* const test = testing::UnitTest::GetInstance()->current_test_info()->name();
            QGuiApplication::primaryScreen()->grabWindow(0).save(QLatin1String(test) + QStringLiteral(".png"));
        }
        m_program.terminate();
        EXPECT_TRUE(m_program.waitForFinished());
        EXPECT_EQ(m_program.readAllStandardError().toStdString(), "");
    }

    // Throws when it takes too long, since what comes next would too.
    void waitUntil(const std::string& what, const std::function<bool()>& holds) {
        const auto isOver = [&] { return m_program.state() == QProcess::NotRunning; };
        if (!User::waitUntil([&] { return holds() || isOver(); }) || isOver()) {
            throw std::runtime_error("waited in vain until " + what);
        }
    }

    void startProgram(const std::vector<std::string>& files = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), QString::fromStdString(m_folder.path().string()));
        environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), privateFolder());
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(m_folder.at("config")));
        m_program.setProcessEnvironment(environment);
        m_program.setWorkingDirectory(QString::fromStdString(m_folder.path().string()));
        QStringList arguments;
        for (const std::string& file : files) {
            arguments.append(QString::fromStdString(file));
        }
        m_program.start(QString::fromStdString(TestFiles::program("corvale").string()), arguments);
        waitUntil("a window opens",
                  [this] { return !(m_window = User::windowTitled(QStringLiteral("Corvale"))).isEmpty(); });
        User::turnTo(m_window);
        ASSERT_EQ(User::areaOf(m_window).size(), m_twin->size());
    }

    // Has the program's panel, whose title begins so, take a file.
    void answerPanel(const QString& title, const std::string& path) {
        QByteArray panel;
        waitUntil("a panel opens", [&] { return !(panel = User::windowTitled(title)).isEmpty(); });
        User::turnTo(panel);
        User::press(QStringLiteral("ctrl+a"));
        User::type(QString::fromStdString(path));
        User::press(QStringLiteral("Return"));
        waitUntil("the panel closes", [&title] { return User::windowTitled(title).isEmpty(); });
        User::turnTo(m_window);
    }

    // Has the program and its twin compare a pair that is named when it starts.
    void openPair() {
        const std::string before = m_folder.write("before.csv", beforeText);
        const std::string after = m_folder.write("after.csv", afterText);
        startProgram({before, after});
        ASSERT_TRUE(m_twin->compare(before, after));
        ASSERT_EQ(rowAfter(QStringLiteral("Home"), penRow), penRow);
    }

    void click(QPoint positionInWindow) { User::click(User::areaOf(m_window).topLeft() + positionInWindow); }
    void click(const QString& control) { click(m_twin->middleOf(control)); }

    // Goes on with pressing the keys and copying until the selected row is that one; gives the last that it was. The
    // keys lead to the same row however often they are pressed.
    std::string rowAfter(const QString& keys, const std::string& expected) {
        std::string copied;
        User::waitUntil([&] {
            copied = User::copyWith(keys + QStringLiteral(" ctrl+c"));
            return copied == expected || m_program.state() == QProcess::NotRunning;
        });
        return copied;
    }

    ScratchFolder m_folder;
    QString m_settingsFile = QString::fromStdString(m_folder.at("config/Corvale/Corvale.conf"));
    std::optional<Twin> m_twin;
    QProcess m_program;
    QByteArray m_window;

private:
    // Qt warns of one that others can look into.
    QString privateFolder() const {
        const std::filesystem::path folder = m_folder.path() / "runtime";
        std::filesystem::create_directory(folder);
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
        return QString::fromStdString(folder.string());
    }

    void prepareSettings() {
        AppSettings settings;
        settings.onboardingDone = true;
        QtPlatform(std::make_unique<QSettings>(m_settingsFile, QSettings::IniFormat))
            .storeData("settings", settings.encoded());
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
