#pragma once

#include <string>
#include <vector>

#include "cli/Arguments.h"

namespace corvale::Cli {

// `arguments` are without the program's name. Throws UsageFailure.
Command parseArguments(std::vector<std::string> arguments);

}  // namespace corvale::Cli
