#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <system_error>

#include "tests/cli/Program.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

// Runs the program under locales, among them one that writes 1,5 and is made for the test, since a bare system has
// none.
class UnderALocale : public testing::Test {
protected:
    void SetUp() override {
        m_folder.write("a.csv", "ID,Price,Name\n1,1.250,Ann\n2,x,Bo\n3,7,Cy\n");
        m_folder.write("b.csv", "ID,Price,Name\n1,1.250,ann\n2,y,Bo\n4,7,Cy\n");
        m_folder.write("comma", "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \".\"\ngrouping 3;3\nEND LC_NUMERIC\n");
        try {
            // Forced, since the source leaves everything else out.
            TestSupport::runProcess(
                "localedef",
                {"--force", "--inputfile", m_folder.at("comma"), "--charmap", "ANSI_X3.4-1968", m_folder.at("xx_XX")});
        } catch (const std::system_error& error) {
            GTEST_SKIP() << "no locale can be made: " << error.what();
        }
        if (!std::filesystem::exists(m_folder.at("xx_XX/LC_NUMERIC"))) {
            GTEST_SKIP() << "no locale can be made; the package locales is missing";
        }
    }

    std::string output(std::vector<std::string> arguments, const char* locale) const {
        ProcessSettings settings;
        settings.folder = m_folder.path();
        settings.environment = {{"LOCPATH", m_folder.path().string()}, {"LC_ALL", locale}};
        return runProgram(std::move(arguments), settings).output;
    }

    ScratchFolder m_folder;
};

TEST_F(UnderALocale, ADecimalCommaChangesOnlyTheNumberStyle) {
    auto dot = nlohmann::json::parse(output({"compare", "a.csv", "b.csv", "--format", "json"}, "C"));
    auto comma = nlohmann::json::parse(output({"compare", "a.csv", "b.csv", "--format", "json"}, "xx_XX"));
    EXPECT_EQ(dot["numberStyle"], "dotDecimal");
    EXPECT_EQ(comma["numberStyle"], "commaDecimal");
    for (auto* document : {&dot, &comma}) {
        document->erase("numberStyle");
        document->erase("duration");
    }
    EXPECT_EQ(dot, comma);
}

TEST_F(UnderALocale, OutputIsTheSame) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"compare", "a.csv", "b.csv"}, {"key", "a.csv", "b.csv"}, {"table", "a.csv"}}) {
        EXPECT_EQ(output(arguments, "C"), output(arguments, "xx_XX"));
        EXPECT_EQ(output(arguments, "C"), output(arguments, "no_SUCH"));
    }
}

}  // namespace
}  // namespace corvale::Cli
