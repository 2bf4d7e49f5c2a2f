#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#if !__has_include(<unistd.h>)
#include <fstream>
#endif

namespace corvale::Cli {

// An open regular file, read from its start. The one place where files are read from the operating system: by POSIX
// calls where there are any, which fill the target without a buffer in between, by the standard library elsewhere.
class FileSource {
public:
    // Never waits, whatever the path turns out to be. Throws std::system_error.
    explicit FileSource(const std::string& path);
    ~FileSource();
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    // In bytes, when the file was opened.
    std::uint64_t size() const { return m_size; }
    // Bytes read, at most `room`; 0 at the end. Throws std::system_error.
    std::size_t read(char* target, std::size_t room);
    // Whether somebody has written to the file since it was opened; false where the system doesn't tell. What comes
    // within a tick of its clock, some milliseconds, may go unseen. Throws std::system_error.
    bool hasChanged() const;

private:
    std::uint64_t m_size = 0;
#if __has_include(<unistd.h>)
    int m_descriptor = -1;
    std::optional<std::pair<std::int64_t, std::int64_t>> m_lastWrite;
#else
    std::ifstream m_file;
#endif
};

}  // namespace corvale::Cli
