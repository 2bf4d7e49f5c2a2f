#pragma once

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
class Finder {
public:
    Finder(const char* text, std::size_t size, char a, char b, char c)
        : m_text(text), m_size(size), m_a(a), m_b(b), m_c(c) {
        load(0);
    }

    // The first match at or after `from`, or the size. Calls go forward: `from` never lies before the last block looked
    // at.
    std::size_t next(std::size_t from) {
        if (from - m_block >= blockSize) {
            if (from >= m_size) {
                return m_size;
            }
            load(from & ~(blockSize - 1));
        }
        m_left = m_matches & (~std::uint64_t{0} << (from & (blockSize - 1)));
        return following();
    }

    // The first match after the one given last, or the size.
    std::size_t following() {
        while (m_left == 0) {
            if (m_block + blockSize >= m_size) {
                return m_size;
            }
            load(m_block + blockSize);
        }
        const std::size_t found = m_block + static_cast<std::size_t>(std::countr_zero(m_left));
        m_left &= m_left - 1;
        return found < m_size ? found : m_size;
    }

private:
    void load(std::size_t block) {
        m_block = block;
        m_matches = matches(m_text + block, m_a, m_b, m_c);
        m_left = m_matches;
    }

    const char* m_text;
    std::size_t m_size;
    char m_a;
    char m_b;
    char m_c;
    std::size_t m_block = 0;
    std::uint64_t m_matches = 0;
    std::uint64_t m_left = 0;  // those after the last one given
};

}  // namespace corvale::ByteScan
