#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTest>
#include <QThread>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <future>
#include <iostream>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Corvale/platform/QtPlatform.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

class QtPlatformTest : public testing::Test {
protected:
    std::unique_ptr<QSettings> settings(std::string_view name = "settings.ini") const {
        return std::make_unique<QSettings>(QString::fromStdString(m_folder.at(name)), QSettings::IniFormat);
    }

    TestSupport::ScratchFolder m_folder;
};

using StoredData = QtPlatformTest;

TEST_F(StoredData, OutlivesThePlatform) {
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) {
        allBytes += static_cast<char>(byte);
    }
    for (const std::string& data : {std::string("{\"view\":\"unified\"}"),
                                    std::string(),
                                    std::string("a, b; \"c\" = [d] %1 \\x41 \\ \n\t@Variant(x)"),
                                    std::string("“Größe” …"),
                                    std::string("@ByteArray(x)"),
                                    std::string("@Invalid()"),
                                    allBytes}) {
        QtPlatform(settings()).storeData("settings", data);
        EXPECT_EQ(QtPlatform(settings()).storedData("settings"), data);
    }
}

TEST_F(StoredData, IsReplaced) {
    QtPlatform platform(settings());
    platform.storeData("settings", "old, and longer");
    platform.storeData("settings", "new");
    EXPECT_EQ(platform.storedData("settings"), "new");
}

TEST_F(StoredData, IsOnTheDiskAtOnce) {
    QtPlatform platform(settings());
    platform.storeData("settings", "kept");
    EXPECT_EQ(QtPlatform(settings()).storedData("settings"), "kept");
}

TEST_F(StoredData, IsNoneWhereNothingIsStored) {
    QtPlatform platform(settings());
    EXPECT_EQ(platform.storedData("settings"), std::nullopt);
    platform.storeData("other", "x");
    EXPECT_EQ(platform.storedData("settings"), std::nullopt);
}

TEST_F(StoredData, IsNoneWhereTheStoreCannotBeRead) {
    m_folder.write("not a store", std::string(5000, '\xff') + std::string(100, '\0'));
    EXPECT_EQ(QtPlatform(settings("not a store")).storedData("settings"), std::nullopt);
    m_folder.write("not a folder", "");
    EXPECT_EQ(QtPlatform(settings("not a folder/settings.ini")).storedData("settings"), std::nullopt);
    EXPECT_EQ(QtPlatform(settings(".")).storedData("settings"), std::nullopt);
    // A list, as somebody may have written by hand.
    m_folder.write("by hand", "[General]\nsettings=a, b\n");
    EXPECT_EQ(QtPlatform(settings("by hand")).storedData("settings"), std::nullopt);
}

TEST_F(StoredData, ThatCannotBeWrittenIsKeptInMemory) {
    m_folder.write("not a folder", "old");
    QtPlatform platform(settings("not a folder/settings.ini"));
    platform.storeData("settings", "new");
    EXPECT_EQ(platform.storedData("settings"), "new");
    EXPECT_EQ(TestFiles::read(m_folder.at("not a folder")), "old");
}

using Work = QtPlatformTest;

// Notes on which thread it is destroyed.
class Token {
public:
    explicit Token(std::atomic<std::thread::id>& destroyedOn) : m_destroyedOn(destroyedOn) {}
    ~Token() { m_destroyedOn = std::this_thread::get_id(); }
    Token(const Token&) = delete;
    Token& operator=(const Token&) = delete;

private:
    std::atomic<std::thread::id>& m_destroyedOn;
};

TEST_F(Work, InTheBackgroundRunsAndDiesOnAnotherThread) {
    QtPlatform platform(settings());
    std::atomic<std::thread::id> ranOn;
    std::atomic<std::thread::id> destroyedOn;
    platform.runInBackground(
        [&ranOn, token = std::make_shared<Token>(destroyedOn)] { ranOn = std::this_thread::get_id(); });
    ASSERT_TRUE(QTest::qWaitFor([&] { return destroyedOn.load() != std::thread::id(); }));
    EXPECT_NE(ranOn.load(), std::this_thread::get_id());
    EXPECT_EQ(destroyedOn.load(), ranOn.load());
}

TEST_F(Work, OnTheMainThreadRunsLaterAndInOrder) {
    QtPlatform platform(settings());
    std::vector<int> ran;
    for (int i = 0; i < 100; ++i) {
        platform.runOnMain([&ran, i] { ran.push_back(i); });
    }
    EXPECT_TRUE(ran.empty());
    ASSERT_TRUE(QTest::qWaitFor([&] { return ran.size() == 100; }));
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
}

TEST_F(Work, OnTheMainThreadKeepsTheOrderOfEachThreadThatAskedForIt) {
    constexpr std::size_t threads = 4;
    constexpr int each = 500;
    QtPlatform platform(settings());
    std::array<std::vector<int>, threads> ran;
    std::atomic<bool> isElsewhere = false;
    for (std::size_t thread = 0; thread < threads; ++thread) {
        platform.runInBackground([&, thread] {
            for (int i = 0; i < each; ++i) {
                platform.runOnMain([&, thread, i] {
                    isElsewhere = isElsewhere || QThread::currentThread() != qApp->thread();
                    ran[thread].push_back(i);
                });
            }
        });
    }
    const auto areAllIn = [&] {
        return std::all_of(ran.begin(), ran.end(), [](const auto& numbers) { return numbers.size() == each; });
    };
    ASSERT_TRUE(QTest::qWaitFor(areAllIn));
    EXPECT_FALSE(isElsewhere);
    for (const auto& numbers : ran) {
        EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
    }
}

// A comparison, a filtering and a report at once leave room for the destruction of what they replace.
TEST_F(Work, OfFourKindsRunsAtTheSameTimeOnAnyMachine) {
    QtPlatform platform(settings());
    std::atomic<int> begun = 0;
    std::promise<void> end;
    const std::shared_future<void> ended = end.get_future().share();
    for (int i = 0; i < 4; ++i) {
        platform.runInBackground([&begun, ended] {
            ++begun;
            ended.wait();
        });
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return begun == 4; }));
    end.set_value();
}

// How much of what a platform was asked to do is begun, and dropped.
class Ledger {
public:
    void begin() {
        note(m_begun);
        m_settling.wait();
        ++m_ended;
    }
    void drop() { note(m_dropped); }

    static constexpr int asked = 200;
    int begun() const { return m_begun; }
    int ended() const { return m_ended; }
    int dropped() const { return m_dropped; }

private:
    // Once all is dropped that has not begun, what has begun may end.
    void note(std::atomic<int>& count) {
        const std::lock_guard guard(m_lock);
        if (++count; m_begun + m_dropped == asked) {
            m_settled.set_value();
        }
    }

    std::mutex m_lock;
    std::atomic<int> m_begun = 0;
    std::atomic<int> m_ended = 0;
    std::atomic<int> m_dropped = 0;
    std::promise<void> m_settled;
    std::shared_future<void> m_settling = m_settled.get_future().share();
};

// One entry of it.
class Request {
public:
    explicit Request(Ledger& ledger) : m_ledger(ledger) {}
    ~Request() {
        if (!m_hasBegun) {
            m_ledger.drop();
        }
    }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    void begin() {
        m_hasBegun = true;
        m_ledger.begin();
    }

private:
    Ledger& m_ledger;
    std::atomic<bool> m_hasBegun = false;
};

TEST_F(Work, ThatHasBegunIsWaitedForAndTheRestIsDropped) {
    Ledger ledger;
    std::atomic<int> delivered = 0;
    auto platform = std::make_unique<QtPlatform>(settings());
    for (int i = 0; i < Ledger::asked; ++i) {
        platform->runInBackground([&, &system = *platform, request = std::make_shared<Request>(ledger)] {
            request->begin();
            system.runOnMain([&delivered] { ++delivered; });
        });
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return ledger.begun() >= 4; }));
    platform.reset();
    EXPECT_GE(ledger.begun(), 4);
    EXPECT_EQ(ledger.ended(), ledger.begun());
    EXPECT_EQ(ledger.dropped(), Ledger::asked - ledger.begun());
    EXPECT_GT(ledger.dropped(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(delivered, 0);
}

TEST_F(Work, ForTheMainThreadIsDestroyedWithThePlatformThatDidNotDeliverIt) {
    const auto token = std::make_shared<int>();
    bool isDelivered = false;
    {
        QtPlatform platform(settings());
        platform.runOnMain([&isDelivered, token] { isDelivered = true; });
    }
    EXPECT_EQ(token.use_count(), 1);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isDelivered);
}

// A variable of the environment that has another value while this object lives; none: it is not set.
class Variable {
public:
    Variable(const char* name, std::optional<std::string> value) : m_name(name) {
        if (const char* const old = std::getenv(name)) {
            m_old = old;
        }
        set(value);
    }
    ~Variable() { set(m_old); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const std::optional<std::string>& value) const {
        value ? ::setenv(m_name, value->c_str(), 1) : ::unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_old;
};

struct LocaleCase {
    std::optional<std::string> lang;
    std::optional<std::string> messages;
    std::optional<std::string> numeric;
    std::optional<std::string> language;
    std::string expected;
};

class UserLocale : public QtPlatformTest {
protected:
    // The test program is started anew for it, because Qt reads the locale once.
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

std::string described(const QtPlatform& platform) {
    return platform.language() + " " + std::string(rawValue(platform.numberStyle()));
}

TEST_F(UserLocale, GivesTheLanguageOfTextsAndTheStyleOfNumbers) {
    const std::vector<LocaleCase> cases = {
        {"en_US.UTF-8", {}, {}, {}, "en dotDecimal"},
        {"es_ES.UTF-8", {}, {}, {}, "es commaDecimal"},
        {"es_MX.UTF-8", {}, {}, {}, "es dotDecimal"},
        {"de_DE.UTF-8@euro", {}, {}, {}, "de commaDecimal"},
        {"de_CH.UTF-8", {}, {}, {}, "de dotDecimal"},
        {"fa_IR.UTF-8", {}, {}, {}, "fa dotDecimal"},
        {"en_US.UTF-8", "es_ES.UTF-8", {}, {}, "es dotDecimal"},
        {"en_US.UTF-8", {}, "de_DE.UTF-8", {}, "en commaDecimal"},
        {"en_US.UTF-8", {}, {}, "es:en", "es dotDecimal"},
        {"C.UTF-8", {}, {}, {}, "en dotDecimal"},
        {{}, {}, {}, {}, "en dotDecimal"},
    };
    for (const LocaleCase& each : cases) {
        const Variable all("LC_ALL", std::nullopt);
        const Variable lang("LANG", each.lang);
        const Variable messages("LC_MESSAGES", each.messages);
        const Variable numeric("LC_NUMERIC", each.numeric);
        const Variable language("LANGUAGE", each.language);
        EXPECT_EXIT((std::cerr << "is " << described(QtPlatform(settings())), std::exit(0)),
                    testing::ExitedWithCode(0),
                    "is " + each.expected + "$")
            << each.lang.value_or("none");
    }
}

}  // namespace
}  // namespace corvale
