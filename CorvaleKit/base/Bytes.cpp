#include "CorvaleKit/base/Bytes.h"

#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/base/Require.h"

namespace corvale {

Bytes::Bytes(std::size_t size) : m_size(size) {
    if (size > std::numeric_limits<std::size_t>::max() - padding) {
        throw std::bad_alloc();
    }
    m_memory = std::make_unique_for_overwrite<char[]>(size + padding);
    Memory::preferHugePages(m_memory.get(), size);
    std::memset(m_memory.get() + size, 0, padding);
}

Bytes::Bytes(std::string_view copied) : Bytes(copied.size()) {
    if (!copied.empty()) {
        std::memcpy(data(), copied.data(), copied.size());
    }
}

Bytes::Bytes(Bytes&& other) noexcept
    : m_memory(std::move(other.m_memory)),
      m_start(std::exchange(other.m_start, 0)),
      m_size(std::exchange(other.m_size, 0)) {}

Bytes& Bytes::operator=(Bytes&& other) noexcept {
    m_memory = std::move(other.m_memory);
    m_start = std::exchange(other.m_start, 0);
    m_size = std::exchange(other.m_size, 0);
    return *this;
}

void Bytes::removePrefix(std::size_t count) {
    CORVALE_REQUIRE(count <= m_size, "a prefix longer than the bytes was dropped");
    m_start += count;
    m_size -= count;
}

void Bytes::truncate(std::size_t size) {
    CORVALE_REQUIRE(size <= m_size, "bytes were truncated to more than their size");
    if (size < m_size) {  // else nothing changes, and bytes that were moved from have no memory
        m_size = size;
        std::memset(data() + size, 0, padding);
    }
}

}  // namespace corvale
