#include "CorvaleKit/base/ByteArena.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace corvale {

void ByteArena::reserve(std::size_t size) {
    if (size <= m_bytes.size()) {
        return;
    }
    Bytes larger(size);
    std::memcpy(larger.data(), m_bytes.data(), m_size);
    m_bytes = std::move(larger);
}

std::uint64_t ByteArena::append(std::string_view text) {
    const std::size_t offset = m_size;
    if (text.size() > m_bytes.size() - m_size) {
        reserve(std::max(m_size + text.size(), 2 * m_bytes.size()));
    }
    if (!text.empty()) {
        std::memcpy(m_bytes.data() + offset, text.data(), text.size());
    }
    m_size += text.size();
    return offset;
}

Bytes ByteArena::finish() {
    m_bytes.truncate(std::exchange(m_size, 0));
    return std::exchange(m_bytes, Bytes());
}

}  // namespace corvale
