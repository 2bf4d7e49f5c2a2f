#include <QSettings>
#include <filesystem>
#include <string>

#include "tests/end-to-end/ProgramTest.h"
#include "tests/end-to-end/User.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace Files = std::filesystem;
namespace User = TestSupport::User;

// The program where its settings are not what it left there: it starts with the usual ones, works, and ends well.
class SpoiltStore : public TestSupport::ProgramTest {
protected:
    // In place of the stored settings.
    void storeText(const std::string& text) const {
        Files::create_directories(Files::path(m_settingsFile.toStdString()).parent_path());
        m_folder.write("config/Corvale/Corvale.conf", text);
    }
    void storeValue(const QString& key, const QByteArray& value) const {
        QSettings(m_settingsFile, QSettings::IniFormat).setValue(key, value);
    }
    QByteArray storedValue(const QString& key) const {
        return QSettings(m_settingsFile, QSettings::IniFormat).value(key).toByteArray();
    }

    void startWithPair() {
        startProgram({m_folder.write("before.csv", "ID,Price\nA1,4.00\nA2,5.00\n"),
                      m_folder.write("after.csv", "ID,Price\nA1,4.00\nA2,6.00\n")});
    }
    void dismissWelcome() {
        turnToWindow(QStringLiteral("Welcome to Corvale"));
        User::press(QStringLiteral("Escape"));
        waitUntil("the sheet is gone", [] { return User::windowTitled(QStringLiteral("Welcome")).isEmpty(); });
        User::turnTo(m_window);
    }
    void expectItCompares() {
        const std::string onlyChange = "Before\t3\tA2\t5.00\nAfter\t3\tA2\t6.00";
        EXPECT_EQ(rowAfter(QStringLiteral("Home"), onlyChange), onlyChange);
    }
    void expectItWorksUnstored() {
        expectItCompares();
        User::press(QStringLiteral("ctrl+2 ctrl+1"));
        expectItCompares();
        quit();
    }
    void changeView() {
        User::press(QStringLiteral("ctrl+2"));
        waitUntil("it is stored", [this] { return settings().view == ViewMode::sideBySide; });
    }
};

TEST_F(SpoiltStore, OfGarbageIsReplaced) {
    std::string bytes;
    for (int i = 0; i < 5000; ++i) {
        bytes += static_cast<char>(i * 7 % 251);
    }
    storeText(bytes);
    startWithPair();
    dismissWelcome();
    expectItCompares();
    changeView();
    quit();
    EXPECT_TRUE(settings().onboardingDone);
}

TEST_F(SpoiltStore, CutOffIsReplacedAndTheRestStays) {
    storeValue(QStringLiteral("settings"), R"({"onboardingDone":true,"view":"sideBy)");
    storeValue(QStringLiteral("somebody/elses"), "kept");
    startWithPair();
    dismissWelcome();
    expectItCompares();
    changeView();
    quit();
    EXPECT_EQ(storedValue(QStringLiteral("somebody/elses")), "kept");
}

TEST_F(SpoiltStore, OfANewerVersionGivesWhatIsKnown) {
    AppSettings known;
    known.onboardingDone = true;
    known.includeUnchangedInReports = true;
    known.options.ignoreNumberFormat = true;
    QByteArray stored = QByteArray::fromStdString(known.encoded());
    stored.replace("\"options\":{", "\"options\":{\"fromTheFuture\":[1,{\"a\":null}],");
    stored.replace(0, 1, R"({"later":{"b":"c"},"alsoLater":7,)");
    storeValue(QStringLiteral("settings"), stored);
    EXPECT_EQ(settings(), known);
    startWithPair();
    expectItCompares();
    changeView();
    quit();
    known.view = ViewMode::sideBySide;
    EXPECT_EQ(settings(), known);
}

TEST_F(SpoiltStore, WithAViewOfANewerVersionStartsAnew) {
    storeValue(QStringLiteral("settings"), R"({"onboardingDone":true,"view":"threeWay"})");
    startWithPair();
    dismissWelcome();
    expectItCompares();
    changeView();
    quit();
}

// Nor written to, whoever runs the tests.
TEST_F(SpoiltStore, ThatCannotBeReadIsNoHindrance) {
    Files::remove(m_settingsFile.toStdString());
    Files::create_directories(m_settingsFile.toStdString());
    startWithPair();
    dismissWelcome();
    expectItWorksUnstored();
    EXPECT_TRUE(Files::is_directory(m_settingsFile.toStdString()));
}

TEST_F(SpoiltStore, WithoutAPlaceIsNoHindrance) {
    Files::remove_all(m_folder.at("config"));
    m_folder.write("config", "a file where the folder should be");
    startWithPair();
    dismissWelcome();
    expectItWorksUnstored();
    EXPECT_EQ(TestFiles::read(m_folder.at("config")), "a file where the folder should be");
}

}  // namespace
}  // namespace corvale
