#include "CorvaleKit/base/SystemFiles.h"

#include <csignal>

#if __has_include(<unistd.h>)
#include <sys/stat.h>
#endif

namespace corvale::SystemFiles {

std::optional<std::pair<std::int64_t, std::int64_t>> lastWrite([[maybe_unused]] int descriptor) {
#if __has_include(<unistd.h>)
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0) {
#if defined(__APPLE__)
        const timespec& time = status.st_mtimespec;
#else
        const timespec& time = status.st_mtim;
#endif
        return std::pair<std::int64_t, std::int64_t>(time.tv_sec, time.tv_nsec);
    }
#endif
    return std::nullopt;
}

void outliveSizeLimit() {
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

}  // namespace corvale::SystemFiles
