#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <system_error>

// How much memory this process may take; of use in a process of the test's own.
namespace corvale::MemoryLimit {

// Throws std::system_error.
inline void set(rlim_t addresses) {
    const rlimit limit{addresses, RLIM_INFINITY};
    if (::setrlimit(RLIMIT_AS, &limit) != 0) {
        throw std::system_error(errno, std::generic_category());
    }
}

// That many bytes of address space beyond those that it has.
inline void allowFurther(std::uint64_t bytes) {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    set(pages * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) + bytes);
}

inline void lift() { set(RLIM_INFINITY); }

}  // namespace corvale::MemoryLimit
