#include "cli/ArgumentParser.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

#include "CorvaleKit/text/Utf8.h"
#include "cli/HelpTexts.h"
#include "cli/OptionSeparation.h"
#include "cli/Subcommands.h"

namespace corvale::Cli {

namespace {

std::string text(std::string_view view) { return std::string(view); }

class Program {
public:
    Program() {
        m_app.set_help_flag("--help,-h", "Print this help and end");
        m_app.set_version_flag("--version", "corvale-cli " CORVALE_VERSION, "Print the version and end");
        m_app.footer(text(HelpTexts::programFooter));
        m_app.get_formatter()->column_width(27);
        // What is no command shall be named as such, and not as an argument too many.
        m_app.prefix_command();
    }

    Command parse(std::vector<std::string> arguments) {
        for (const CLI::App* command : m_app.get_subcommands({})) {
            if (!arguments.empty() && arguments.front() == command->get_name()) {
                arguments = separateOptions(*command, arguments);
            }
        }
        std::reverse(arguments.begin(), arguments.end());
        try {
            m_app.parse(arguments);
        } catch (const CLI::CallForHelp&) {
            return PrintCommand{m_app.help()};
        } catch (const CLI::CallForVersion& version) {
            return PrintCommand{text(version.what()) + "\n"};
        } catch (const CLI::ParseError& error) {
            throw usageFailure(text(error.what()));
        }
        refuseExtras();
        return command();
    }

private:
    Command command() const {
        if (m_sheets.isChosen()) {
            return m_sheets.command();
        }
        if (m_table.isChosen()) {
            return m_table.command();
        }
        if (m_key.isChosen()) {
            return m_key.command();
        }
        if (m_compare.isChosen()) {
            return m_compare.command();
        }
        if (m_report.isChosen()) {
            return m_report.command();
        }
        throw noCommand();
    }

    UsageFailure usageFailure(const std::string& message) const {
        const std::vector<CLI::App*> chosenCommands = m_app.get_subcommands();
        const std::string command = chosenCommands.empty() ? "" : chosenCommands.front()->get_name() + " ";
        return UsageFailure(message + "; see corvale-cli " + command + "--help");
    }

    void refuseExtras() const {
        for (const CLI::App* subcommand : m_app.get_subcommands()) {
            if (subcommand->remaining_size() > 0) {
                throw usageFailure("“" + Utf8::repaired(subcommand->remaining().front()) + "” was not expected");
            }
        }
    }

    UsageFailure noCommand() const {
        const std::vector<std::string> rest = m_app.remaining();
        const std::string given = rest.empty() ? "A command is missing" : "There is no command “" + rest.front() + "”";
        return UsageFailure(given + ": it is one of sheets, table, key, compare and report.");
    }

    CLI::App m_app{text(HelpTexts::program), "corvale-cli"};
    CompareSubcommand m_compare{m_app};
    ReportSubcommand m_report{m_app};
    KeySubcommand m_key{m_app};
    TableSubcommand m_table{m_app};
    SheetsSubcommand m_sheets{m_app};
};

}  // namespace

Command parseArguments(std::vector<std::string> arguments) { return Program().parse(std::move(arguments)); }

}  // namespace corvale::Cli
