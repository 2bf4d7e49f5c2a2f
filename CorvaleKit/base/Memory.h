#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

// The machine's memory. The hints change speed, never results, and do nothing where they are not known.
namespace corvale::Memory {

// Of the machine, in bytes; the largest number there is where the system doesn't tell. A system that promises more
// memory than it has ends the process that takes it at its word, so what could need more than this is refused
// beforehand.
std::uint64_t physicalSize();

// Asks for huge pages under a large block that is about to be filled: fewer page faults, fewer address look-ups.
void preferHugePages(const void* start, std::size_t size);

// Starts fetching the bytes at `address`, which need not be readable.
inline void prefetch(const void* address) {
#if defined(__SSE2__)
    _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
#elif defined(__GNUC__)
    __builtin_prefetch(address);
#else
    static_cast<void>(address);
#endif
}

}  // namespace corvale::Memory
