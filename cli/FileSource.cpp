#include "cli/FileSource.h"

#include <cerrno>
#include <system_error>

#if __has_include(<unistd.h>)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#else
#include <filesystem>
#endif

#include "CorvaleKit/base/SystemFiles.h"

namespace corvale::Cli {

#if __has_include(<unistd.h>)

namespace {

std::system_error lastError() { return {errno, std::generic_category()}; }

struct stat statusOf(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        throw lastError();
    }
    return status;
}

}  // namespace

FileSource::FileSource(const std::string& path)
    : m_descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)) {
    if (m_descriptor < 0) {
        throw lastError();
    }
    try {
        const struct stat status = statusOf(m_descriptor);
        m_size = static_cast<std::uint64_t>(status.st_size);
        m_lastWrite = SystemFiles::lastWrite(m_descriptor);
    } catch (const std::system_error&) {
        ::close(m_descriptor);
        throw;
    }
}

bool FileSource::hasChanged() const {
    const struct stat status = statusOf(m_descriptor);
    return static_cast<std::uint64_t>(status.st_size) != m_size || SystemFiles::lastWrite(m_descriptor) != m_lastWrite;
}

FileSource::~FileSource() { ::close(m_descriptor); }

// NOLINTNEXTLINE(readability-make-member-function-const): it moves the place in the file
std::size_t FileSource::read(char* target, std::size_t room) {
    ssize_t count = 0;
    do {
        count = ::read(m_descriptor, target, room);
    } while (count < 0 && errno == EINTR);
    if (count < 0) {
        throw lastError();
    }
    return static_cast<std::size_t>(count);
}

#else

FileSource::FileSource(const std::string& path)
    : m_size(std::filesystem::file_size(path)), m_file(path, std::ios::binary) {
    if (!m_file) {
        throw std::system_error(errno, std::generic_category());
    }
}

FileSource::~FileSource() = default;

bool FileSource::hasChanged() const { return false; }

// NOLINTNEXTLINE(readability-make-member-function-const): it moves the place in the file
std::size_t FileSource::read(char* target, std::size_t room) {
    m_file.read(target, static_cast<std::streamsize>(room));
    if (m_file.bad()) {
        throw std::system_error(EIO, std::generic_category());
    }
    return static_cast<std::size_t>(m_file.gcount());
}

#endif

}  // namespace corvale::Cli
