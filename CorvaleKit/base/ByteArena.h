#pragma once

#include <cstdint>
#include <string_view>

#include "CorvaleKit/base/Bytes.h"

namespace corvale {

// A growing block of bytes that ends as Bytes without another copy. Texts are found again by their offset: growing
// moves them.
class ByteArena {
public:
    // Makes room for that many bytes in all; a generous guess costs address space, not memory.
    void reserve(std::size_t size);

    // Returns the offset of the copy. `text` must not point into the arena.
    std::uint64_t append(std::string_view text);

    std::uint64_t size() const { return m_size; }

    // The arena is empty afterwards.
    Bytes finish();

private:
    Bytes m_bytes;
    std::size_t m_size = 0;
};

}  // namespace corvale
