#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace corvale {

// An owned block of bytes that scanners may over-read: `padding` zero bytes follow the last one.
// Move-only; a fresh block is not filled, since a file or an inflater writes all of it anyway.
class Bytes {
public:
    static constexpr std::size_t padding = 64;

    Bytes() : Bytes(0) {}
    // Uninitialised but for the padding. Throws std::bad_alloc.
    explicit Bytes(std::size_t size);
    explicit Bytes(std::string_view copied);

    Bytes(Bytes&& other) noexcept;
    Bytes& operator=(Bytes&& other) noexcept;
    Bytes(const Bytes&) = delete;
    Bytes& operator=(const Bytes&) = delete;
    ~Bytes() = default;

    char* data() { return m_memory.get() + m_start; }
    const char* data() const { return m_memory.get() + m_start; }
    std::size_t size() const { return m_size; }
    // Valid while this object lives, unless it is moved from and the target dies.
    std::string_view view() const& { return {data(), m_size}; }
    std::string_view view() && = delete;

    // Drops `count` bytes at the start without moving the rest; `count` is at most size().
    void removePrefix(std::size_t count);
    // Keeps the first `size` bytes and zeroes the padding after them; `size` is at most size().
    void truncate(std::size_t size);

private:
    std::unique_ptr<char[]> m_memory;
    std::size_t m_start = 0;
    std::size_t m_size = 0;
};

}  // namespace corvale
