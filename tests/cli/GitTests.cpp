#include <gtest/gtest.h>

#include <cstdlib>
#include <system_error>

#include "tests/cli/Program.h"
#include "tests/cli/TextWorkbooks.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ProcessResult;
using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

// A repository of two commits, in which a price and a workbook changed; the recipes are those of docs/git.md.
class InARepository : public testing::Test {
protected:
    void SetUp() override {
        try {
            TestSupport::runProcess("git", {"--version"});
        } catch (const std::system_error&) {
            GTEST_SKIP() << "git is not installed";
        }
        git({"init", "-q"});
        commit("9.90", "Ann");
        commit("10.50", "Anna");
    }

    void commit(const std::string& price, const std::string& name) const {
        m_folder.write("prices.csv", "SKU,Product,Price\nA-1,Lamp," + price + "\nA-2,Hose,19.00\n");
        m_folder.write("people.xlsx", textWorkbook({{"People", {{"ID", "Name"}, {"1", name}, {"2", "Bo"}}}}));
        git({"add", "prices.csv", "people.xlsx"});
        git({"commit", "-q", "-m", "Prices"});
    }

    ProcessResult git(std::vector<std::string> arguments) const {
        ProcessSettings settings;
        settings.folder = m_folder.path();
        const std::string programs = TestFiles::program("").string();
        const char* path = std::getenv("PATH");
        settings.environment = {{"PATH", programs + ":" + (path == nullptr ? "/usr/bin:/bin" : path)},
                                {"HOME", m_folder.path().string()},
                                {"GIT_CONFIG_NOSYSTEM", "1"},
                                {"GIT_AUTHOR_NAME", "A"},
                                {"GIT_AUTHOR_EMAIL", "a@example.com"},
                                {"GIT_COMMITTER_NAME", "A"},
                                {"GIT_COMMITTER_EMAIL", "a@example.com"}};
        ProcessResult result = TestSupport::runProcess("git", arguments, settings);
        EXPECT_EQ(result.status, 0) << testing::PrintToString(arguments) << result.error;
        return result;
    }

    ScratchFolder m_folder;
};

TEST_F(InARepository, DifftoolComparesTwoCommits) {
    git({"config", "difftool.corvale.cmd", R"(corvale-cli compare "$LOCAL" "$REMOTE")"});
    for (const auto& tool : {std::vector<std::string>{"--tool", "corvale"}, {"--extcmd", "corvale-cli compare"}}) {
        std::vector<std::string> arguments{"difftool", "--no-prompt", "HEAD~1"};
        arguments.insert(arguments.begin() + 2, tool.begin(), tool.end());
        const std::string output = git(arguments).output;
        EXPECT_NE(output.find("~ A-1  row 2\n    Price: 9.90 → 10.50\n"), std::string::npos) << output;
        EXPECT_NE(output.find("~ 1  row 2\n    Name: Ann → Anna\n"), std::string::npos) << output;
    }
}

TEST_F(InARepository, TextconvShowsWorkbooksARowALine) {
    m_folder.write(".gitattributes", "*.xlsx diff=corvale\n*.csv diff=corvale\n");
    git({"config", "diff.corvale.textconv", "corvale-cli table"});
    const std::string output = git({"diff", "HEAD~1", "--", "people.xlsx"}).output;
    EXPECT_NE(output.find("\n \"rows\":[\n-[\"1\",\"Ann\"],\n+[\"1\",\"Anna\"],\n [\"2\",\"Bo\"]],\n"),
              std::string::npos)
        << output;
    EXPECT_NE(git({"log", "-p"}).output.find("+[\"A-1\",\"Lamp\",\"10.50\"],"), std::string::npos);
}

TEST_F(InARepository, TextconvOfTheRowsAloneShowsNothingElse) {
    m_folder.write(".gitattributes", "*.xlsx diff=corvale\n");
    git({"config", "diff.corvale.textconv", R"(f() { corvale-cli table "$1" | sed "/^\"sourceName\"/,\$d"; }; f)"});
    const std::string output = git({"diff", "-U0", "HEAD~1", "--", "people.xlsx"}).output;
    EXPECT_NE(output.find("\n-[\"1\",\"Ann\"],\n+[\"1\",\"Anna\"],\n"), std::string::npos) << output;
    EXPECT_EQ(output.find("sourceName"), std::string::npos) << output;
    EXPECT_EQ(output.find("topRows"), std::string::npos) << output;
}

TEST_F(InARepository, WordsOfTextconvAreCells) {
    m_folder.write(".gitattributes", "*.xlsx diff=corvale\n");
    git({"config", "diff.corvale.textconv", "corvale-cli table"});
    const std::string output =
        git({"diff", R"(--word-diff-regex="[^"]*")", "--word-diff=plain", "HEAD~1", "--", "people.xlsx"}).output;
    EXPECT_NE(output.find(R"(["1",[-"Ann"-]{+"Anna"+}],)"), std::string::npos) << output;
}

TEST_F(InARepository, AFileThatIsNewStopsNothing) {
    m_folder.write(".gitattributes", "*.csv diff=corvale\n");
    git({"config", "diff.corvale.command", R"(f() { corvale-cli compare "$2" "$5"; :; }; f)"});
    m_folder.write("new.csv", "A\n1\n");
    git({"add", "new.csv"});
    const ProcessResult result = git({"--no-pager", "diff", "HEAD~1"});
    EXPECT_EQ(result.error, "corvale-cli: “/dev/null” is a device, not a file.\n");
    EXPECT_NE(result.output.find("~ A-1  row 2\n"), std::string::npos) << result.output;
}

TEST_F(InARepository, ADiffDriverComparesInGitDiff) {
    m_folder.write(".gitattributes", "*.xlsx diff=corvale\n*.csv diff=corvale\n");
    git({"config", "diff.corvale.command", R"(f() { corvale-cli compare "$2" "$5"; :; }; f)"});
    const std::string output = git({"--no-pager", "diff", "HEAD~1"}).output;
    EXPECT_NE(output.find("~ A-1  row 2\n    Price: 9.90 → 10.50\n"), std::string::npos) << output;
    EXPECT_NE(output.find("~ 1  row 2\n    Name: Ann → Anna\n"), std::string::npos) << output;
}

}  // namespace
}  // namespace corvale::Cli
