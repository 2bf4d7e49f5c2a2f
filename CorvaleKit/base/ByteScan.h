#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// Byte searches that look at a block of 64 bytes at once.
namespace corvale::ByteScan {

inline constexpr std::size_t blockSize = 64;

// Bit i is set when byte i of the block is one of the three. The obvious form, for machines without the fast one and
// for the tests.
inline std::uint64_t plainMatches(const char* block, char a, char b, char c) {
    std::uint64_t matches = 0;
    for (std::size_t i = 0; i < blockSize; ++i) {
        const bool hit = block[i] == a || block[i] == b || block[i] == c;
        matches |= std::uint64_t{hit} << i;
    }
    return matches;
}

#if defined(__SSE2__)
inline std::uint64_t matches(const char* block, char a, char b, char c) {
    const __m128i first = _mm_set1_epi8(a);
    const __m128i second = _mm_set1_epi8(b);
    const __m128i third = _mm_set1_epi8(c);
    std::uint64_t found = 0;
    for (unsigned i = 0; i < blockSize; i += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
        const __m128i hit = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(bytes, first), _mm_cmpeq_epi8(bytes, second)),
                                         _mm_cmpeq_epi8(bytes, third));
        found |= static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(hit))) << i;
    }
    return found;
}
#else
inline std::uint64_t matches(const char* block, char a, char b, char c) { return plainMatches(block, a, b, c); }
#endif

// Walks a text from one of three bytes to the next. The text is followed by at least one readable block, as Bytes is.
// It looks ahead: only bytes at lower offsets than that of the last match given may change meanwhile.
class Finder {
public:
    Finder(const char* text, std::size_t size, char a, char b, char c)
        : m_text(text), m_size(size), m_a(a), m_b(b), m_c(c) {}

    // The first match at or after `from`, or the size. Calls go forward: `from` is greater than the last match given.
    std::size_t next(std::size_t from) {
        if (from >= m_scanned) {
            m_scanned = from & ~(blockSize - 1);
            m_next = m_count = 0;
        }
        std::size_t found = following();
        while (found < from && found < m_size) {
            found = following();
        }
        return found;
    }

    // The first match after the one given last, or the size.
    std::size_t following() {
        if (m_next == m_count) [[unlikely]] {
            lookAhead();
            if (m_count == 0) {
                return m_size;
            }
        }
        return m_found[m_next++];
    }

private:
    static constexpr std::uint32_t capacity = 512;
    // Of most blocks all matches are written without a branch on their number, which nobody could foretell.
    static constexpr std::uint32_t usualMatches = 8;

    void lookAhead() {
        m_next = m_count = 0;
        while (m_scanned < m_size && m_count <= capacity - blockSize) {
            take(matches(m_text + m_scanned, m_a, m_b, m_c));
            m_scanned += blockSize;
        }
        while (m_count > 0 && m_found[m_count - 1] >= m_size) {
            --m_count;
        }
    }

    void take(std::uint64_t block) {
        const auto count = static_cast<std::uint32_t>(std::popcount(block));
        std::size_t* const target = m_found.data() + m_count;
        for (std::uint32_t i = 0; i < usualMatches; ++i) {
            target[i] = m_scanned + firstBit(block);
            block &= block - 1;
        }
        for (std::uint32_t i = usualMatches; i < count; ++i) {
            target[i] = m_scanned + firstBit(block);
            block &= block - 1;
        }
        m_count += count;
    }

    // Any place where there is none.
    static std::size_t firstBit(std::uint64_t bits) {
        return static_cast<std::size_t>(std::countr_zero(bits | std::uint64_t{1} << (blockSize - 1)));
    }

    const char* m_text;
    std::size_t m_size;
    char m_a;
    char m_b;
    char m_c;
    std::size_t m_scanned = 0;  // matches before it are found
    std::uint32_t m_next = 0;   // of those found, the one to give next
    std::uint32_t m_count = 0;  // found
    std::array<std::size_t, capacity> m_found{};
};

}  // namespace corvale::ByteScan
