#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <set>
#include <string>
#include <system_error>

#include "CorvaleKit/loading/DataLoader.h"
#include "tests/cli/Program.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::Process;
using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

// Runs in the folder of two small tables, so that names are short.
class Report : public testing::Test {
protected:
    Report() {
        m_folder.write("a.csv", "ID,Name\n1,Ann\n2,Bo\n");
        m_folder.write("b.csv", "ID,Name\n1,Ann\n2,Bob\n");
    }

    ProcessSettings settings() const {
        ProcessSettings settings;
        settings.folder = m_folder.path();
        return settings;
    }
    ProcessResult report(std::vector<std::string> options) const {
        options.insert(options.begin(), {"report", "a.csv", "b.csv"});
        return runProgram(std::move(options), settings());
    }
    // Runs a shell script whose $0 is the program.
    ProcessResult shell(const std::string& script) const {
        return TestSupport::runProcess("bash", {"-c", script, TestFiles::program("corvale-cli").string()}, settings());
    }
    // Root is kept from nothing, unless it has no rights beyond those of an owner.
    ProcessResult reportWithoutPrivileges(const std::string& target) const {
        const std::string wrapper = ::geteuid() == 0 ? "exec unshare --user " : "exec ";
        return shell(wrapper + "\"$0\" report a.csv b.csv -o " + target);
    }
    void expectTrouble(const ProcessResult& result, const std::string& message) const {
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error, "corvale-cli: " + message + "\n");
    }
    std::string content(const std::string& name) const { return TestFiles::read(m_folder.at(name)); }
    std::set<std::string> names() const {
        std::set<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            all.insert(entry.path().filename().string());
        }
        return all;
    }

    ScratchFolder m_folder;
};

TEST_F(Report, APageIsSavedWithoutAWord) {
    const ProcessResult result = report({"-o", "r.html"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "");
    EXPECT_NE(content("r.html").find("<del>Bo</del> <ins>Bob</ins>"), std::string::npos);
    EXPECT_EQ(names(), (std::set<std::string>{"a.csv", "b.csv", "r.html"}));
}

TEST_F(Report, AWorkbookListsTheRowsThatDifferAndOthersWhenAsked) {
    const auto rows = [&](const std::vector<std::string>& options) {
        EXPECT_EQ(report(options).status, 0);
        const DataTable changes = DataLoader::load(Bytes(content("r.xlsx")), "r.xlsx", 1);
        return changes.rows().size();
    };
    EXPECT_EQ(rows({"-o", "r.xlsx"}), 1U);
    EXPECT_EQ(rows({"-o", "r.xlsx", "--include-unchanged"}), 2U);
}

TEST_F(Report, SpeaksSpanishWhenAsked) {
    EXPECT_EQ(report({"-o", "r.html", "--lang", "es"}).status, 0);
    EXPECT_NE(content("r.html").find("<html lang=\"es\">"), std::string::npos);
    EXPECT_NE(content("r.html").find("Filas modificadas<b>1</b>"), std::string::npos);
}

TEST_F(Report, FollowsTheComparisonOptions) {
    EXPECT_EQ(report({"-o", "r.html", "--ignore-column", "Name"}).status, 0);
    EXPECT_NE(content("r.html").find("No differences."), std::string::npos);
}

TEST_F(Report, AnOldFileIsReplacedAndKeepsItsAccessRights) {
    m_folder.write("r.html", std::string(1 << 20, 'x'));
    ASSERT_EQ(::chmod(m_folder.at("r.html").c_str(), 0640), 0);
    EXPECT_EQ(report({"-o", "r.html"}).status, 0);
    EXPECT_TRUE(content("r.html").starts_with("<!doctype html>"));
    struct stat status = {};
    ASSERT_EQ(::stat(m_folder.at("r.html").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(Report, ALinkStaysALink) {
    std::filesystem::create_directory(m_folder.path() / "kept");
    m_folder.write("kept/real.html", "old");
    std::filesystem::create_symlink("kept/real.html", m_folder.path() / "r.html");
    EXPECT_EQ(report({"-o", "r.html"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path() / "r.html"));
    EXPECT_TRUE(content("kept/real.html").starts_with("<!doctype html>"));
}

TEST_F(Report, ALinkToNoFileYetMakesThatFile) {
    std::filesystem::create_directory(m_folder.path() / "kept");
    std::filesystem::create_symlink("kept/real.html", m_folder.path() / "r.html");
    EXPECT_EQ(report({"-o", "r.html"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder.path() / "r.html"));
    EXPECT_TRUE(content("kept/real.html").starts_with("<!doctype html>"));
}

TEST_F(Report, ALinkThatLeadsNowhereIsToldInOneLine) {
    std::filesystem::create_symlink("none/real.html", m_folder.path() / "r.html");
    expectTrouble(report({"-o", "r.html"}), "The folder “none” doesn’t exist.");
    std::filesystem::create_symlink("loop.html", m_folder.path() / "loop.html");
    expectTrouble(report({"-o", "loop.html"}), "“loop.html” can’t be written: Too many levels of symbolic links.");
}

TEST_F(Report, ALinkToAFileOfTheComparisonIsRefused) {
    std::filesystem::create_symlink("a.csv", m_folder.path() / "r.html");
    expectTrouble(report({"-o", "r.html"}), "“r.html” is one of the files to compare.");
    std::filesystem::create_hard_link(m_folder.path() / "b.csv", m_folder.path() / "s.html");
    expectTrouble(report({"-o", "s.html"}), "“s.html” is one of the files to compare.");
}

TEST_F(Report, WhereItCannotGoIsToldInOneLine) {
    std::filesystem::create_directory(m_folder.path() / "folder.html");
    expectTrouble(report({"-o", "folder.html"}), "“folder.html” is a folder, not a file.");
    expectTrouble(report({"-o", "none/r.html"}), "The folder “none” doesn’t exist.");
    expectTrouble(report({"-o", "r.pdf"}), "A report is a file .xlsx or .html, which “r.pdf” is not.");
    expectTrouble(report({"-o", "a.csv/r.html"}), "“a.csv/r.html” can’t be written: Not a directory.");
    ASSERT_EQ(::mkfifo(m_folder.at("pipe.html").c_str(), 0600), 0);
    expectTrouble(report({"-o", "pipe.html"}), "“pipe.html” is not a file.");
}

TEST_F(Report, NeitherFileOfTheComparisonIsOverwritten) {
    m_folder.write("old.html", content("a.csv"));
    const ProcessResult result = runProgram({"report", "old.html", "b.csv", "-o", "./old.html"}, settings());
    expectTrouble(result, "“./old.html” is one of the files to compare.");
    EXPECT_EQ(content("old.html"), content("a.csv"));
}

TEST_F(Report, AReadOnlyFolderKeepsTheOldFile) {
    std::filesystem::create_directory(m_folder.path() / "sealed");
    m_folder.write("sealed/r.html", "old");
    ASSERT_EQ(::chmod(m_folder.at("sealed").c_str(), 0555), 0);
    const ProcessResult result = reportWithoutPrivileges("sealed/r.html");
    ASSERT_EQ(::chmod(m_folder.at("sealed").c_str(), 0755), 0);
    if (result.error.starts_with("unshare")) {
        GTEST_SKIP() << "this system lets root not step down";
    }
    expectTrouble(result, "“sealed/r.html” can’t be written: Permission denied.");
    EXPECT_EQ(content("sealed/r.html"), "old");
}

TEST_F(Report, AReadOnlyFileStaysAsItIs) {
    m_folder.write("r.html", "old");
    ASSERT_EQ(::chmod(m_folder.at("r.html").c_str(), 0444), 0);
    const ProcessResult result = reportWithoutPrivileges("r.html");
    if (result.error.starts_with("unshare")) {
        GTEST_SKIP() << "this system lets root not step down";
    }
    expectTrouble(result, "“r.html” can’t be written: Permission denied.");
    EXPECT_EQ(content("r.html"), "old");
}

TEST_F(Report, ANameMayBeAsLongAsAnyCanBe) {
    const std::string name = std::string(250, 'r') + ".html";
    EXPECT_EQ(report({"-o", name}).status, 0);
    EXPECT_TRUE(content(name).starts_with("<!doctype html>"));
}

TEST_F(Report, ALimitOnFileSizesKeepsTheOldFile) {
    m_folder.write("r.html", "old");
    expectTrouble(shell("ulimit -f 1; exec \"$0\" report a.csv b.csv -o r.html"),
                  "“r.html” can’t be written: File too large.");
    EXPECT_EQ(content("r.html"), "old");
    EXPECT_EQ(names(), (std::set<std::string>{"a.csv", "b.csv", "r.html"}));
}

TEST_F(Report, AFullDiskKeepsTheOldFile) {
    std::filesystem::create_directory(m_folder.path() / "small");
    const ProcessResult result = shell(
        "exec unshare --user --map-root-user --mount bash -c '"
        "mount -t tmpfs -o size=4k tmpfs small 2>&- || exit 99; printf %s old >small/r.html;"
        "\"$0\" report a.csv b.csv -o small/r.html; code=$?; cat small/r.html; ls -A small | wc -l; exit $code' "
        "\"$0\"");
    if (result.status == 99 || result.error.starts_with("unshare")) {
        GTEST_SKIP() << "this system lets nobody mount a small disk";
    }
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.error, "corvale-cli: “small/r.html” can’t be written: No space left on device.\n");
    EXPECT_EQ(result.output, "old1\n");
}

// Tells when something happens to the files of a folder.
class FolderWatch {
public:
    explicit FolderWatch(const std::filesystem::path& folder) : m_descriptor(::inotify_init1(IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(m_descriptor, folder.c_str(), IN_CREATE | IN_MODIFY | IN_MOVED_TO), 0);
    }
    ~FolderWatch() { ::close(m_descriptor); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    // A write of megabytes is told when it is over, so this waits a millisecond at most.
    void wait() const {
        pollfd waiting{m_descriptor, POLLIN, 0};
        if (::poll(&waiting, 1, 1) == 1) {
            std::array<char, 4096> events{};
            EXPECT_GT(::read(m_descriptor, events.data(), events.size()), 0);
        }
    }

private:
    int m_descriptor;
};

// Saving takes long enough to be stopped in the middle.
class InterruptedReport : public Report {
protected:
    InterruptedReport() { writePair(300'000); }

    void writePair(int rows) const {
        std::string before = "ID,A,B,C\n";
        std::string after = before;
        for (int i = 0; i < rows; ++i) {
            const std::string id = std::to_string(i);
            before += id + "," + id + "0,text,x\n";
            after += id + "," + id + "1,text,y\n";
        }
        m_folder.write("a.csv", before);
        m_folder.write("b.csv", after);
    }

    // An empty one is the trial whether the folder can be written to, which comes before anything is read.
    bool hasUnfinishedFile() const {
        const std::set<std::string> all = names();
        return std::any_of(all.begin(), all.end(), [this](const std::string& name) {
            std::error_code gone;
            const auto size = std::filesystem::file_size(m_folder.path() / name, gone);
            return name.starts_with(".corvale-") && !gone && size > 0;
        });
    }
    // 0 while there is none.
    std::size_t unfinishedSize() const {
        for (const std::string& name : names()) {
            std::error_code gone;
            const auto size = std::filesystem::file_size(m_folder.at(name), gone);
            if (name.starts_with(".corvale-") && !gone) {
                return size;
            }
        }
        return 0;
    }
    void forgetUnfinishedFiles() const {
        for (const std::string& name : names()) {
            if (name.starts_with(".corvale-")) {
                std::filesystem::remove(m_folder.at(name));
            }
        }
    }
    // True when the signal came while the file was written.
    bool stopWith(int signal, int expectedStatus) {
        m_folder.write("r.html", "old");
        const FolderWatch watch(m_folder.path());
        Process process(
            TestFiles::program("corvale-cli"), {"report", "a.csv", "b.csv", "--key", "ID", "-o", "r.html"}, settings());
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!hasUnfinishedFile() && std::chrono::steady_clock::now() < deadline) {
            watch.wait();
            if (content("r.html") != "old") {
                process.finish();
                return false;
            }
        }
        process.send(signal);
        const ProcessResult result = process.finish();
        if (result.status == 0) {
            return false;
        }
        EXPECT_EQ(expectedStatus == 0 ? result.signal : result.status, expectedStatus == 0 ? signal : expectedStatus);
        EXPECT_EQ(content("r.html"), "old");
        EXPECT_EQ(names(), (std::set<std::string>{"a.csv", "b.csv", "r.html"}));
        return true;
    }
    void expectNoTraceOf(int signal, int expectedStatus) {
        for (int attempt = 0; attempt < 20; ++attempt) {
            if (stopWith(signal, expectedStatus)) {
                return;
            }
        }
        FAIL() << "the signal never came in time";
    }
};

// Nobody can tidy up after this signal: a hidden file may stay, but the report itself is always a whole one.
TEST_F(InterruptedReport, AKilledOneLeavesTheOldFileOrTheWholeNewOne) {
    writePair(20'000);
    for (const std::string name : {"r.html", "r.xlsx"}) {
        const std::vector<std::string> arguments = {"report", "a.csv", "b.csv", "--key", "ID", "-o", name};
        ASSERT_EQ(runProgram(arguments, settings()).status, 0);
        const std::string whole = content(name);
        std::mt19937 random(7);
        for (int attempt = 0; attempt < 6; ++attempt) {
            m_folder.write(name, "old");
            Process process(TestFiles::program("corvale-cli"), arguments, settings());
            const std::size_t enough = std::uniform_int_distribution<std::size_t>(0, whole.size())(random);
            while (unfinishedSize() < enough && content(name) == "old" && !process.hasEnded()) {
                std::this_thread::yield();
            }
            process.send(SIGKILL);
            process.finish();
            EXPECT_TRUE(content(name) == "old" || content(name) == whole) << name << " " << enough;
            for (const std::string& left : names()) {
                EXPECT_TRUE(left.starts_with(".corvale-") || left.find('.') == 1U) << left;
            }
            forgetUnfinishedFiles();
        }
        // The next one is none the worse for it.
        EXPECT_EQ(runProgram(arguments, settings()).status, 0);
        EXPECT_TRUE(content(name) == whole);
    }
}

TEST_F(InterruptedReport, CtrlCLeavesTheOldFileAndNothingElse) { expectNoTraceOf(SIGINT, 130); }
TEST_F(InterruptedReport, ATerminationLeavesTheOldFileAndNothingElse) { expectNoTraceOf(SIGTERM, 0); }
TEST_F(InterruptedReport, AClosedTerminalLeavesTheOldFileAndNothingElse) { expectNoTraceOf(SIGHUP, 0); }

}  // namespace
}  // namespace corvale::Cli
