#include "CorvaleKit/base/Memory.h"

#include <cstdint>
#include <limits>

#if defined(__linux__)
#include <sys/mman.h>
#endif
#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace corvale::Memory {

std::uint64_t physicalSize() {
#if __has_include(<unistd.h>)
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageSize = ::sysconf(_SC_PAGESIZE);
    if (pages > 0 && pageSize > 0) {
        return static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageSize);
    }
#endif
    return std::numeric_limits<std::uint64_t>::max();
}

void preferHugePages([[maybe_unused]] const void* start, [[maybe_unused]] std::size_t size) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    constexpr std::size_t worthwhile = std::size_t{8} << 20U;
    if (size < worthwhile) {
        return;
    }
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t first = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + size) / page * page;
    madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#endif
}

}  // namespace corvale::Memory
