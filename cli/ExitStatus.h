#pragma once

// How the program ends, as diff(1) does it.
namespace corvale::Cli::ExitStatus {

inline constexpr int same = 0;
inline constexpr int different = 1;
inline constexpr int trouble = 2;
inline constexpr int interrupted = 130;  // as a shell tells of a command that Ctrl-C ended: 128 and SIGINT

}  // namespace corvale::Cli::ExitStatus
