#pragma once

#include <string>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "cli/Arguments.h"

namespace corvale::Cli {

// A command line that cannot be carried out as it stands.
class UsageFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// `arguments` are without the program's name. Throws UsageFailure.
Command parseArguments(std::vector<std::string> arguments);

}  // namespace corvale::Cli
