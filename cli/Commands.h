#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"

namespace corvale::Cli {

// Carries out a command and ends the process with its exit status. Throws UserFailure before anything is printed,
// Cancelled when a comparison was interrupted, and OutputFailure.
[[noreturn]] void run(const Command& command, Output& output);

}  // namespace corvale::Cli
