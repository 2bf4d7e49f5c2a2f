#include <gtest/gtest.h>

#include "cli/Terminal.h"
#include "tests/cli/Program.h"
#include "tests/support/ScratchFolder.h"

namespace corvale::Cli {
namespace {

using TestSupport::ProcessSettings;
using TestSupport::ScratchFolder;

class OnATerminal : public testing::Test {
protected:
    OnATerminal() {
        m_folder.write("a.csv", "ID,Name\n1,The quick brown fox jumps over the lazy dog and on\n");
        m_folder.write("b.csv", "ID,Name\n1,The quick brown fox jumps over the busy dog and on\n");
        m_settings.folder = m_folder.path();
        m_settings.output = ProcessSettings::Stream::terminal;
        m_settings.environment = {{"TERM", "xterm"}};
    }

    std::string output() const { return runProgram({"compare", "a.csv", "b.csv"}, m_settings).output; }
    bool isColoured() const { return output().find('\x1b') != std::string::npos; }

    ScratchFolder m_folder;
    ProcessSettings m_settings;
};

TEST_F(OnATerminal, TextIsColoured) { EXPECT_NE(output().find("\x1b[33m~\x1b[0m"), std::string::npos) << output(); }

TEST_F(OnATerminal, ColoursCanBeRefused) {
    const std::pair<const char*, const char*> variables[] = {{"NO_COLOR", "1"}, {"TERM", "dumb"}, {"TERM", ""}};
    for (const auto& variable : variables) {
        m_settings.environment = {{"TERM", "xterm"}};
        m_settings.environment.emplace_back(variable);
        if (std::string_view(variable.first) == "TERM") {
            m_settings.environment.erase(m_settings.environment.begin());
        }
        EXPECT_FALSE(isColoured()) << variable.first << "=" << variable.second;
    }
}

TEST_F(OnATerminal, AnEmptyNoColorRefusesNothing) {
    m_settings.environment.emplace_back("NO_COLOR", "");
    EXPECT_TRUE(isColoured());
}

TEST_F(OnATerminal, WithoutATypeThereIsNoColour) {
    m_settings.environment.clear();
    EXPECT_FALSE(isColoured());
}

TEST_F(OnATerminal, CellsAreShortenedToItsWidth) {
    m_settings.environment = {{"TERM", "dumb"}};
    m_settings.terminalColumns = 60;
    EXPECT_NE(output().find("    Name: …er the lazy dog and on → …ver the busy dog and on\n"), std::string::npos)
        << output();
    m_settings.terminalColumns = 200;
    EXPECT_EQ(output().find("…"), std::string::npos) << output();
}

TEST_F(OnATerminal, ColumnsSaysTheWidthEvenWithoutATerminal) {
    m_settings.output = ProcessSettings::Stream::pipe;
    EXPECT_EQ(output().find("…"), std::string::npos) << output();
    m_settings.environment = {{"COLUMNS", "60"}};
    EXPECT_NE(output().find("…"), std::string::npos) << output();
    for (const char* nonsense : {"", "0", "-5", "wide", "99999999999999999999999"}) {
        m_settings.environment = {{"COLUMNS", nonsense}};
        EXPECT_EQ(output().find("…"), std::string::npos) << nonsense;
    }
}

TEST_F(OnATerminal, APipeGetsNoColour) {
    m_settings.output = ProcessSettings::Stream::pipe;
    EXPECT_FALSE(isColoured());
}

TEST_F(OnATerminal, AnAbsurdWidthIsNotObeyed) {
    m_settings.environment = {{"COLUMNS", "1"}};
    EXPECT_NE(output().find("After    b.csv\n"), std::string::npos) << output();
}

TEST_F(OnATerminal, ShortWorkShowsNoProgress) {
    m_settings.error = ProcessSettings::Stream::terminal;
    EXPECT_EQ(runProgram({"compare", "a.csv", "b.csv"}, m_settings).error, "");
}

}  // namespace
}  // namespace corvale::Cli
