#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <string_view>

namespace corvale::Cli {

// One subcommand of the command line. Derived classes add its options and say which command they make.
class Subcommand {
public:
    Subcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer);

    bool isChosen() const { return m_app->parsed(); }

protected:
    // One that has to be given.
    CLI::Option* file(const char* name, const std::string& help);
    // `type` is one of OptionValues' names of values; `group` is the heading that the help lists the option under.
    CLI::Option* option(const char* name, const char* type, const char* group, const std::string& help);
    CLI::Option* flag(const char* name, const char* group, const std::string& help);

private:
    CLI::App* m_app;  // owned by the program
};

}  // namespace corvale::Cli
