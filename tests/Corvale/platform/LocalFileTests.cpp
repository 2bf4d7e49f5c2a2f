#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QUrl>
#include <cerrno>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "Corvale/model/ReportExport.h"
#include "Corvale/platform/LocalFile.h"
#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/RestlessFile.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TestFiles.h"

namespace corvale {
namespace {

namespace Files = std::filesystem;

// The system speaks the user's language where Qt has no words of its own.
std::string systemText(int error) { return std::generic_category().message(error) + "."; }

class LocalFileTest : public testing::Test {
protected:
    static QUrl urlOf(const std::string& path) { return QUrl::fromLocalFile(QString::fromStdString(path)); }
    QUrl url(std::string_view name) const { return urlOf(m_folder.at(name)); }

    // The file's bytes, or "failed: " and what the user is told.
    static std::string readUrl(const QUrl& url) {
        try {
            return std::string(LocalFile::read(url).data(), LocalFile::read(url).size());
        } catch (const UserFailure& failure) {
            return "failed: " + failure.message();
        }
    }
    std::string read(std::string_view name) const { return readUrl(url(name)); }

    // "written", or "failed: " and the reason.
    static std::string writeUrl(const QUrl& url, std::string_view bytes = "new") {
        try {
            LocalFile::write(url, bytes);
            return "written";
        } catch (const UserFailure& failure) {
            return "failed: " + failure.message();
        }
    }
    std::string write(std::string_view name, std::string_view bytes = "new") const {
        return writeUrl(url(name), bytes);
    }

    // Files hold what the test wrote, and nobody else's are there.
    void expectOnly(const std::set<std::string>& expected, std::string_view folder = ".") const {
        std::set<std::string> names;
        for (const auto& entry : Files::directory_iterator(m_folder.at(folder))) {
            names.insert(entry.path().filename().string());
        }
        EXPECT_EQ(names, expected);
    }
    // What QSaveFile has begun beside a file; 0 while there is none.
    std::size_t unfinishedSize(std::string_view name) const {
        for (const auto& entry : Files::directory_iterator(m_folder.path())) {
            std::error_code gone;
            const auto size = Files::file_size(entry.path(), gone);
            if (isUnfinished(entry, name) && !gone) {
                return size;
            }
        }
        return 0;
    }
    void forgetUnfinished(std::string_view name) const {
        for (const auto& entry : Files::directory_iterator(m_folder.path())) {
            if (isUnfinished(entry, name)) {
                Files::remove(entry.path());
            }
        }
    }
    static bool isUnfinished(const Files::directory_entry& entry, std::string_view name) {
        const std::string other = entry.path().filename().string();
        return other.starts_with(std::string(name) + ".") && other.size() == name.size() + 7;
    }
    std::string content(std::string_view name) const { return TestFiles::read(m_folder.at(name)); }
    void allow(std::string_view name, mode_t rights) const { ASSERT_EQ(::chmod(m_folder.at(name).c_str(), rights), 0); }

    TestSupport::ScratchFolder m_folder;
};

TEST_F(LocalFileTest, IsReadByteByByte) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    for (const std::string& bytes : {std::string(), std::string("a"), all, std::string(3'000'000, '\0') + all}) {
        m_folder.write("x", bytes);
        EXPECT_TRUE(read("x") == bytes) << bytes.size();
    }
}

TEST_F(LocalFileTest, MayHaveAnyName) {
    for (const char* const name : {"it’s “new”.csv",
                                   "100%.csv",
                                   "a%20b.csv",
                                   "50%25 off.csv",
                                   "Größe 表.csv",
                                   "a#b?c.csv",
                                   "%1.csv",
                                   " .csv",
                                   "a\nb.csv",
                                   "back\\slash.csv"}) {
        m_folder.write(name, name);
        EXPECT_EQ(read(name), name);
        EXPECT_EQ(write(name), "written") << name;
        EXPECT_EQ(content(name), "new") << name;
        Files::remove(m_folder.at(name));
    }
    expectOnly({});
}

TEST_F(LocalFileTest, ThatCannotBeReadIsToldInOneSentence) {
    Files::create_directory(m_folder.at("folder.csv"));
    Files::create_symlink("nowhere", m_folder.at("broken.csv"));
    Files::create_symlink("loop.csv", m_folder.at("loop.csv"));
    m_folder.write("a.csv", "a");
    EXPECT_EQ(read("none.csv"), "failed: “none.csv” couldn’t be opened: No such file or directory.");
    EXPECT_EQ(read("100% “%2”.csv"), "failed: “100% “%2”.csv” couldn’t be opened: No such file or directory.");
    EXPECT_EQ(read("folder.csv"), "failed: “folder.csv” is a folder.");
    EXPECT_EQ(read("folder.csv/"), "failed: “" + m_folder.at("folder.csv/") + "” is a folder.");
    EXPECT_EQ(read("broken.csv"), "failed: “broken.csv” couldn’t be opened: No such file or directory.");
    EXPECT_EQ(read("loop.csv"), "failed: “loop.csv” couldn’t be opened: " + systemText(ELOOP));
    EXPECT_EQ(read("a.csv/b.csv"), "failed: “b.csv” couldn’t be opened: " + systemText(ENOTDIR));
    EXPECT_EQ(read(std::string(300, 'n')),
              "failed: “" + std::string(300, 'n') + "” couldn’t be opened: " + systemText(ENAMETOOLONG));
}

TEST_F(LocalFileTest, OnAnotherComputerIsRefused) {
    for (const char* const address : {"https://example.org/a%20b.csv", "sftp://server/a%20b.csv"}) {
        const QUrl url(QString::fromUtf8(address));
        EXPECT_EQ(readUrl(url), "failed: “a b.csv” isn’t on this computer.");
        EXPECT_EQ(writeUrl(url), "failed: “a b.csv” isn’t on this computer.");
    }
    EXPECT_EQ(readUrl(QUrl()), "failed: “” isn’t on this computer.");
}

// Nobody writes into the pipe: whoever opened it would wait for ever.
TEST_F(LocalFileTest, ThatIsNoFileIsRefusedWithoutOpeningIt) {
    ASSERT_EQ(::mkfifo(m_folder.at("pipe.csv").c_str(), 0600), 0);
    EXPECT_EQ(read("pipe.csv"), "failed: “pipe.csv” isn’t a regular file.");
    EXPECT_EQ(write("pipe.csv"), "failed: “pipe.csv” isn’t a regular file.");
    EXPECT_EQ(readUrl(urlOf("/dev/zero")), "failed: “zero” isn’t a regular file.");
    EXPECT_EQ(writeUrl(urlOf("/dev/full")), "failed: “full” isn’t a regular file.");
    expectOnly({"pipe.csv"});
}

TEST_F(LocalFileTest, ThatTheUserMayNotReadIsToldInOneSentence) {
    Files::create_directory(m_folder.at("sealed"));
    m_folder.write("sealed/a.csv", "a");
    m_folder.write("secret.csv", "a");
    allow("secret.csv", 0000);
    allow("sealed", 0000);
    const std::string told = ChildProcess::run([this] {
        ChildProcess::stepDown();
        return read("secret.csv") + "\n" + read("sealed/a.csv");
    });
    allow("sealed", 0755);
    EXPECT_EQ(told,
              "failed: “secret.csv” couldn’t be opened: Permission denied.\n"
              "failed: “a.csv” couldn’t be opened: Permission denied.");
}

TEST_F(LocalFileTest, ThatIsWrittenToMeanwhileIsNeverReadInTwoStates) {
    constexpr std::size_t size = std::size_t{64} << 20U;
    const TestSupport::RestlessFile file(m_folder.at("restless.csv"), size);
    for (int tries = 0; tries < 5; ++tries) {
        const std::string bytes = read("restless.csv");
        EXPECT_TRUE(TestSupport::RestlessFile::isOfOneMoment(bytes) ||
                    bytes == "failed: “restless.csv” changed while it was being read. Try again.");
    }
}

TEST_F(LocalFileTest, IsReplacedWhole) {
    for (const std::string& bytes :
         {std::string("a longer text"), std::string("x"), std::string(), std::string(3'000'000, 'b') + '\0' + "\r\n"}) {
        EXPECT_EQ(write("r.html", bytes), "written");
        EXPECT_TRUE(content("r.html") == bytes) << bytes.size();
    }
    expectOnly({"r.html"});
}

TEST_F(LocalFileTest, KeepsItsAccessRights) {
    for (const mode_t rights : {0640U, 0604U, 0755U}) {
        m_folder.write("r.html", "old");
        allow("r.html", rights);
        EXPECT_EQ(write("r.html"), "written");
        struct stat status = {};
        ASSERT_EQ(::stat(m_folder.at("r.html").c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, rights);
    }
}

TEST_F(LocalFileTest, ThatIsNewHasTheUsualAccessRights) {
    EXPECT_EQ(write("r.html"), "written");
    struct stat status = {};
    ASSERT_EQ(::stat(m_folder.at("r.html").c_str(), &status), 0);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(status.st_mode & 07777U, 0666U & ~mask);
}

TEST_F(LocalFileTest, ReachedByALinkLeavesTheLink) {
    Files::create_directory(m_folder.at("kept"));
    m_folder.write("kept/real.html", "old");
    Files::create_symlink("kept/real.html", m_folder.at("one.html"));
    Files::create_symlink("one.html", m_folder.at("two.html"));
    Files::create_symlink("kept/new.html", m_folder.at("three.html"));
    for (const auto& [link, target] : {std::pair("one.html", "kept/real.html"),
                                       std::pair("two.html", "kept/real.html"),
                                       std::pair("three.html", "kept/new.html")}) {
        EXPECT_EQ(write(link, link), "written");
        EXPECT_TRUE(Files::is_symlink(m_folder.at(link))) << link;
        EXPECT_EQ(content(target), link);
    }
    expectOnly({"real.html", "new.html"}, "kept");
}

TEST_F(LocalFileTest, ThatCannotBeWrittenIsToldInOneSentence) {
    Files::create_directory(m_folder.at("folder.html"));
    m_folder.write("a.csv", "a");
    EXPECT_EQ(write("folder.html"), "failed: “folder.html” is a folder.");
    EXPECT_EQ(write("none/r.html"), "failed: No such file or directory.");
    EXPECT_EQ(write("a.csv/r.html"), "failed: " + systemText(ENOTDIR));
    EXPECT_EQ(write(std::string(300, 'n')), "failed: " + systemText(ENAMETOOLONG));
    expectOnly({"folder.html", "a.csv"});
}

TEST_F(LocalFileTest, ThatIsWriteProtectedStaysAsItIs) {
    allow(".", 0777);
    m_folder.write("r.html", "old");
    allow("r.html", 0444);
    const std::string told = ChildProcess::run([this] {
        ChildProcess::stepDown();
        return write("r.html");
    });
    EXPECT_EQ(told, "failed: “r.html” is write-protected.");
    EXPECT_EQ(content("r.html"), "old");
    expectOnly({"r.html"});
}

TEST_F(LocalFileTest, InAReadOnlyFolderStaysAsItIs) {
    Files::create_directory(m_folder.at("sealed"));
    m_folder.write("sealed/r.html", "old");
    allow("sealed/r.html", 0666);
    allow("sealed", 0555);
    const std::string told = ChildProcess::run([this] {
        ChildProcess::stepDown();
        return write("sealed/r.html") + "\n" + write("sealed/new.html");
    });
    allow("sealed", 0755);
    EXPECT_EQ(told, "failed: Permission denied.\nfailed: Permission denied.");
    EXPECT_EQ(content("sealed/r.html"), "old");
    expectOnly({"r.html"}, "sealed");
}

// Nobody can tidy up then: what was begun may stay beside it, under the report's name with six letters behind, but the
// report is always a whole one.
TEST_F(LocalFileTest, KilledWhileItIsWrittenIsTheOldOneOrTheWholeNewOne) {
    const auto table = [](int step) {
        std::string csv = "ID,A\n";
        for (int row = 0; row < 40'000; ++row) {
            csv += std::to_string(row) + "," + std::to_string(row % step) + " of something\n";
        }
        return DataLoader::load(Bytes(csv), "a.csv");
    };
    const DiffResult result =
        DiffEngine::compare(table(90), table(91), RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
    std::mt19937 random(7);
    for (const std::string name : {"r.html", "r.xlsx"}) {
        const ReportKind kind = name == "r.html" ? ReportKind::html : ReportKind::excel;
        const std::string whole = ReportExport::bytes(result, kind, true, "en");
        for (int attempt = 0; attempt < 10; ++attempt) {
            m_folder.write(name, "old");
            const std::size_t enough = std::uniform_int_distribution<std::size_t>(0, whole.size())(random);
            ChildProcess::runAndKill([&] { LocalFile::write(url(name), whole); },
                                     [&] { return unfinishedSize(name) >= enough || content(name) != "old"; });
            EXPECT_TRUE(content(name) == "old" || content(name) == whole) << name << " " << enough;
            forgetUnfinished(name);
            EXPECT_EQ(write(name, whole), "written");
            EXPECT_TRUE(content(name) == whole);
            expectOnly({name});
        }
        Files::remove(m_folder.at(name));
    }
}

TEST_F(LocalFileTest, BeyondALimitOnFileSizesStaysAsItIs) {
    m_folder.write("r.html", "old");
    for (const std::size_t size : {101U, 20'000U, 3'000'000U}) {
        const std::string told = ChildProcess::run([this, size] {
            ChildProcess::limitFileSizes(100);
            return write("r.html", std::string(size, 'x'));
        });
        EXPECT_EQ(told, "failed: " + systemText(EFBIG)) << size;
        EXPECT_EQ(content("r.html"), "old");
        expectOnly({"r.html"});
    }
}

TEST_F(LocalFileTest, OnAFullDiskStaysAsItIs) {
    Files::create_directory(m_folder.at("small"));
    for (const std::size_t size : {20'000U, 3'000'000U}) {
        const std::string told = ChildProcess::run([this, size]() -> std::string {
            if (!ChildProcess::mountSmallDisk(m_folder.at("small"), 16384)) {
                return "no disk";
            }
            m_folder.write("small/r.html", "old");
            const std::string outcome = write("small/r.html", std::string(size, 'x'));
            expectOnly({"r.html"}, "small");
            return outcome + " " + content("small/r.html") + (HasFailure() ? " and more" : " alone");
        });
        if (told == "no disk") {
            GTEST_SKIP() << "this system lets nobody mount a small disk";
        }
        EXPECT_EQ(told, "failed: No space left on device. old alone") << size;
    }
}

}  // namespace
}  // namespace corvale
