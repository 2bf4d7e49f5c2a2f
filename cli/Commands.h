#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"

namespace corvale::Cli {

// How the program ends, as diff(1) does it.
namespace ExitStatus {
inline constexpr int same = 0;
inline constexpr int different = 1;
inline constexpr int trouble = 2;
}  // namespace ExitStatus

// Carries out a command and ends the process with its exit status. Throws UserFailure before anything is printed,
// Cancelled when a comparison was interrupted, and OutputFailure.
[[noreturn]] void run(const Command& command, Output& output);

}  // namespace corvale::Cli
