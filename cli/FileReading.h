#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "CorvaleKit/base/Bytes.h"
#include "cli/Paths.h"

namespace corvale::Cli {

// Throws a FileFailure where `path` is no regular file, without opening it: opening a pipe may wait for its other end,
// and opening a device may set it off.
void refuseOtherThanFiles(const std::string& path);

// The whole of a regular file. A folder, a pipe or a device is refused without waiting for it, and so is a file that
// is written to while it is read. One that tells no length, as those that a system makes up do, is read to its
// end. Throws FileFailure.
Bytes readFile(const std::string& path);

// Fills a part of `target`, at most `room` bytes, and says how much; 0 at the end of the file.
using ReadPiece = std::function<std::size_t(char* target, std::size_t room)>;

// `size` bytes and then the end, or a FileFailure about `path`.
Bytes readExactly(const std::string& path, std::uint64_t size, const ReadPiece& read);

// All bytes up to the end, or a FileFailure about `path` before more than `limit` bytes of memory, which are at least
// 64 KiB, are held at once.
Bytes readToEnd(const std::string& path, std::uint64_t limit, const ReadPiece& read);

}  // namespace corvale::Cli
