#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace corvale::Cli {

// Writes each "--option=value" as two arguments. The parser does so by itself, but it takes the argument after
// "--option=" for the value, drops the value of an option that takes none, and words a missing value in its own way.
// `command` is the subcommand that the arguments are for. Throws UsageFailure.
std::vector<std::string> separateOptions(const CLI::App& command, const std::vector<std::string>& arguments);

}  // namespace corvale::Cli
