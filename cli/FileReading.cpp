#include "cli/FileReading.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <limits>
#include <new>
#include <system_error>

#include "CorvaleKit/base/Memory.h"
#include "cli/FileSource.h"

namespace corvale::Cli {

namespace {

// A system call that reads more keeps Ctrl-C waiting.
constexpr std::size_t largestPiece = std::size_t{8} << 20U;

// Holds most of what a system makes up, such as lists of its devices.
constexpr std::size_t firstRoom = std::size_t{64} << 10U;

FileFailure unreadable(const std::string& path, const std::error_code& error) {
    return FileFailure(quotedPath(path) + " can’t be read: " + error.message() + ".");
}

FileFailure changedMeanwhile(const std::string& path) {
    return FileFailure(quotedPath(path) + " changed while it was being read.");
}

FileFailure tooLarge(const std::string& path) {
    return FileFailure(quotedPath(path) + " is too large for this computer’s memory.");
}

Bytes reserve(const std::string& path, std::uint64_t size) {
    // Systems that promise more memory than they have would end the process later, without a word.
    if (size > Memory::physicalSize() || size > std::numeric_limits<std::size_t>::max()) {
        throw tooLarge(path);
    }
    try {
        return Bytes(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
        throw tooLarge(path);
    }
}

// The same bytes with twice the room. Both blocks live while they are copied, so both count.
Bytes grown(const std::string& path, const Bytes& bytes, std::uint64_t limit) {
    if (bytes.size() > limit / 3) {
        throw tooLarge(path);
    }
    Bytes larger = reserve(path, std::uint64_t{2} * bytes.size());
    std::memcpy(larger.data(), bytes.data(), bytes.size());
    return larger;
}

}  // namespace

void refuseOtherThanFiles(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    switch (status.type()) {
        case std::filesystem::file_type::regular:
            return;
        case std::filesystem::file_type::not_found:
            throw FileFailure(quotedPath(path) + " doesn’t exist.");
        case std::filesystem::file_type::directory:
            throw FileFailure(quotedPath(path) + " is a folder, not a file.");
        case std::filesystem::file_type::fifo:
            throw FileFailure(quotedPath(path) + " is a pipe. Save what comes out of it to a file first.");
        case std::filesystem::file_type::block:
        case std::filesystem::file_type::character:
            throw FileFailure(quotedPath(path) + " is a device, not a file.");
        case std::filesystem::file_type::socket:
            throw FileFailure(quotedPath(path) + " is a socket, not a file.");
        case std::filesystem::file_type::none:
        case std::filesystem::file_type::symlink:
        case std::filesystem::file_type::unknown:
            break;
    }
    throw error ? unreadable(path, error) : FileFailure(quotedPath(path) + " is not a file.");
}

Bytes readExactly(const std::string& path, std::uint64_t size, const ReadPiece& read) {
    Bytes bytes = reserve(path, size);
    for (std::size_t filled = 0; filled < bytes.size();) {
        const std::size_t count = read(bytes.data() + filled, std::min(bytes.size() - filled, largestPiece));
        if (count == 0) {
            throw changedMeanwhile(path);
        }
        filled += count;
    }
    char further = 0;
    if (read(&further, 1) != 0) {
        throw changedMeanwhile(path);
    }
    return bytes;
}

Bytes readToEnd(const std::string& path, std::uint64_t limit, const ReadPiece& read) {
    Bytes bytes = reserve(path, firstRoom);
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) {
            bytes = grown(path, bytes, limit);
        }
        const std::size_t count = read(bytes.data() + filled, std::min(bytes.size() - filled, largestPiece));
        if (count == 0) {
            bytes.truncate(filled);
            return bytes;
        }
        filled += count;
    }
}

Bytes readFile(const std::string& path) {
    refuseOtherThanFiles(path);
    try {
        FileSource source(path);
        const auto read = [&](char* target, std::size_t room) { return source.read(target, room); };
        if (source.size() == 0) {
            return readToEnd(path, Memory::physicalSize(), read);
        }
        Bytes bytes = readExactly(path, source.size(), read);
        // Written anew in its place and to the same length, it would be half the old file and half the new one.
        if (source.hasChanged()) {
            throw changedMeanwhile(path);
        }
        return bytes;
    } catch (const std::system_error& failure) {
        throw unreadable(path, failure.code());
    }
}

}  // namespace corvale::Cli
