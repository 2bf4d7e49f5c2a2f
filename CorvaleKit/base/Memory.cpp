#include "CorvaleKit/base/Memory.h"

#include <cstdint>

#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace corvale::Memory {

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
