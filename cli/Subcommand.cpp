#include "cli/Subcommand.h"

namespace corvale::Cli {

Subcommand::Subcommand(CLI::App& program, const char* name, std::string_view help, std::string_view footer)
    : m_app(program.add_subcommand(name, std::string(help))) {
    m_app->footer(std::string(footer));
    m_app->set_help_flag("--help,-h", "Print this help and end");
    // The parser's own message about them gives them in the wrong order.
    m_app->allow_extras();
}

CLI::Option* Subcommand::file(const char* name, const std::string& help) {
    return m_app->add_option(name, help)->required()->type_name("");
}

// The parser takes it several times, whether or not it may be: its own message would be no sentence.
CLI::Option* Subcommand::option(const char* name, const char* type, const char* group, const std::string& help) {
    return m_app->add_option(name, help)
        ->type_name(type)
        ->group(group)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option* Subcommand::flag(const char* name, const char* group, const std::string& help) {
    return m_app->add_flag(name, help)->group(group);
}

}  // namespace corvale::Cli
