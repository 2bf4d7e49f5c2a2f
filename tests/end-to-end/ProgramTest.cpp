#include "tests/end-to-end/ProgramTest.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <filesystem>
#include <memory>
#include <stdexcept>

#include "Corvale/platform/QtPlatform.h"
#include "tests/end-to-end/Screen.h"
#include "tests/end-to-end/User.h"
#include "tests/support/TestFiles.h"

namespace corvale::TestSupport {

void ProgramTest::SetUp() {
    if (const std::string missing = Screen::whatIsMissing(); !missing.empty()) {
        GTEST_SKIP() << missing << "./dev test installs what the tests need.";
    }
    AppSettings welcomed;
    welcomed.onboardingDone = true;
    store(welcomed);
}

void ProgramTest::TearDown() {
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

void ProgramTest::waitUntil(const std::string& what, const std::function<bool()>& holds) {
    const auto isOver = [&] { return m_program.state() == QProcess::NotRunning; };
    if (!User::waitUntil([&] { return holds() || isOver(); }) || !holds()) {
        throw std::runtime_error("waited in vain until " + what);
    }
}

QByteArray ProgramTest::turnToWindow(const QString& title) {
    QByteArray window;
    waitUntil("a window opens that is called " + title.toStdString(),
              [&] { return !(window = User::windowTitled(title)).isEmpty(); });
    User::turnTo(window);
    return window;
}

void ProgramTest::startProgram(const std::vector<std::string>& files) {
    m_twin.reset();
    m_twin.emplace(m_settingsFile);
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
    m_window = turnToWindow(QStringLiteral("Corvale"));
    ASSERT_EQ(User::areaOf(m_window).size(), m_twin->size());
}

void ProgramTest::quit() {
    User::turnTo(m_window);
    User::press(QStringLiteral("ctrl+q"));
    ASSERT_TRUE(User::waitUntil([this] { return m_program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(m_program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_program.exitCode(), 0);
    EXPECT_EQ(m_program.readAllStandardError().toStdString(), "");
}

void ProgramTest::answerPanel(const QString& title, const std::string& path) {
    turnToWindow(title);
    User::press(QStringLiteral("ctrl+a"));
    User::type(QString::fromStdString(path));
    User::press(QStringLiteral("Return"));
    waitUntil("the panel closes", [&title] { return User::windowTitled(title).isEmpty(); });
    User::turnTo(m_window);
}

void ProgramTest::click(QPoint positionInWindow) { User::click(User::areaOf(m_window).topLeft() + positionInWindow); }

std::string ProgramTest::rowAfter(const QString& keys, const std::string& expected) {
    std::string copied;
    User::waitUntil([&] {
        copied = User::copyWith(keys + QStringLiteral(" ctrl+c"));
        return copied == expected || m_program.state() == QProcess::NotRunning;
    });
    return copied;
}

AppSettings ProgramTest::settings() const {
    QtPlatform platform(std::make_unique<QSettings>(m_settingsFile, QSettings::IniFormat));
    return AppSettings::decoded(platform.storedData("settings").value_or("{}"));
}

void ProgramTest::store(const AppSettings& settings) {
    QtPlatform(std::make_unique<QSettings>(m_settingsFile, QSettings::IniFormat))
        .storeData("settings", settings.encoded());
}

// Qt warns of one that others can look into.
QString ProgramTest::privateFolder() const {
    const std::filesystem::path folder = m_folder.path() / "runtime";
    std::filesystem::create_directory(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    return QString::fromStdString(folder.string());
}

}  // namespace corvale::TestSupport
