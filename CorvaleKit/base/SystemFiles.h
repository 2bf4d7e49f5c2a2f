#pragma once

#include <cstdint>
#include <optional>
#include <utility>

// What differs from system to system about files.
namespace corvale::SystemFiles {

// Seconds and nanoseconds of when somebody wrote last to the open file with this POSIX descriptor; none where the
// system doesn't tell.
std::optional<std::pair<std::int64_t, std::int64_t>> lastWrite(int descriptor);

// From now on a limit on file sizes is told by the write that meets it, as a full disk is, and ends no process.
void outliveSizeLimit();

}  // namespace corvale::SystemFiles
