#pragma once

#include <string>
#include <vector>

#include "tests/support/Process.h"
#include "tests/support/TestFiles.h"

namespace corvale::Cli {

// Runs corvale-cli as a user would.
inline TestSupport::ProcessResult runProgram(std::vector<std::string> arguments,
                                             TestSupport::ProcessSettings settings = {}) {
    return TestSupport::runProcess(TestFiles::program("corvale-cli"), std::move(arguments), std::move(settings));
}

}  // namespace corvale::Cli
