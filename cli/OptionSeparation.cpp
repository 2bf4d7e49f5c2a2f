#include "cli/OptionSeparation.h"

#include <CLI/CLI.hpp>

#include <utility>

#include "cli/OptionValues.h"

namespace corvale::Cli {

namespace {

class Separator {
public:
    explicit Separator(const CLI::App& command) : m_command(command) {}

    std::vector<std::string> separated(const std::vector<std::string>& arguments) {
        for (const std::string& argument : arguments) {
            if (m_waiting != nullptr || m_optionsEnded) {
                m_waiting = nullptr;
                m_separated.push_back(argument);
            } else {
                add(argument);
            }
        }
        if (m_waiting != nullptr) {
            throw OptionValues::missingValue(*m_waiting);
        }
        return std::move(m_separated);
    }

private:
    void add(const std::string& argument) {
        const std::size_t mark = argument.find('=');
        const std::string name = argument.substr(0, mark);
        const CLI::Option* option = name.starts_with('-') ? m_command.get_option_no_throw(name) : nullptr;
        m_optionsEnded = argument == "--";
        if (option == nullptr) {
            m_separated.push_back(argument);
            return;
        }
        m_separated.push_back(name);
        const bool takesValue = option->get_items_expected_max() > 0;
        if (mark == std::string::npos) {
            m_waiting = takesValue ? option : nullptr;
        } else if (takesValue) {
            m_separated.push_back(argument.substr(mark + 1));
        } else {
            throw UsageFailure(name + " takes no value.");
        }
    }

    const CLI::App& m_command;
    std::vector<std::string> m_separated;
    const CLI::Option* m_waiting = nullptr;  // its value is the next argument
    bool m_optionsEnded = false;
};

}  // namespace

std::vector<std::string> separateOptions(const CLI::App& command, const std::vector<std::string>& arguments) {
    return Separator(command).separated(arguments);
}

}  // namespace corvale::Cli
