#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

// The byte scan behind Normalizer::needsWhitespaceNormalization. It is inline because it runs on every cell of every
// comparison and most cells are shorter than one block.
namespace corvale::WhitespaceScan {

inline constexpr std::size_t blockSize = 16;

// True when 16 bytes hold two spaces in a row, a tab, a line feed, a carriage return or the byte C2.
inline bool blockIsUncleanPlain(const char* block) {
    bool unclean = false;
    bool afterSpace = false;
    for (std::size_t i = 0; i < blockSize; ++i) {
        const char c = block[i];
        const bool isSpace = c == ' ';
        unclean |= (isSpace && afterSpace) || c == '\t' || c == '\n' || c == '\r' || c == '\xC2';
        afterSpace = isSpace;
    }
    return unclean;
}

#if defined(__SSE2__)

inline bool blockIsUnclean(__m128i bytes) {
    const auto equals = [bytes](char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    // Bytes 1 to 20 (hexadecimal) and C2: without any, the block is clean. The zeros that pad it must not count.
    const __m128i lessOne = _mm_sub_epi8(bytes, _mm_set1_epi8(1));
    const __m128i controlOrSpace = _mm_cmpeq_epi8(_mm_min_epu8(lessOne, _mm_set1_epi8(0x1F)), lessOne);
    if (_mm_movemask_epi8(_mm_or_si128(controlOrSpace, equals('\xC2'))) == 0) {
        return false;
    }
    const __m128i unclean =
        _mm_or_si128(_mm_or_si128(equals('\t'), equals('\n')), _mm_or_si128(equals('\r'), equals('\xC2')));
    const __m128i spaces = equals(' ');
    const __m128i doubled = _mm_and_si128(spaces, _mm_slli_si128(spaces, 1));
    return _mm_movemask_epi8(_mm_or_si128(unclean, doubled)) != 0;
}

inline bool blockIsUnclean(const char* block) {
    return blockIsUnclean(_mm_loadu_si128(reinterpret_cast<const __m128i*>(block)));
}

inline bool blockIsUnclean(std::uint64_t low, std::uint64_t high) {
    return blockIsUnclean(_mm_set_epi64x(static_cast<std::int64_t>(high), static_cast<std::int64_t>(low)));
}

#else

inline bool blockIsUnclean(const char* block) { return blockIsUncleanPlain(block); }

#endif

// The texts below 16 bytes, padded with zeros. Overlapping loads stay inside the text, which may end at the end of a
// page.
inline bool shortTextIsUnclean(std::string_view text) {
#if defined(__SSE2__)
    const auto load = [&text](std::size_t position, auto word) {
        std::memcpy(&word, text.data() + position, sizeof word);
        return std::uint64_t{word};
    };
    const std::size_t size = text.size();
    if (size >= 8) {
        const std::uint64_t tail = load(size - 8, std::uint64_t{});
        return blockIsUnclean(load(0, std::uint64_t{}), (tail >> 8U) >> (8 * (15 - size)));
    }
    if (size >= 4) {
        return blockIsUnclean(load(0, std::uint32_t{}) | load(size - 4, std::uint32_t{}) << (8 * (size - 4)), 0);
    }
    const std::size_t middle = size / 2;
    return blockIsUnclean(load(0, std::uint8_t{}) | load(middle, std::uint8_t{}) << (8 * middle) |
                              load(size - 1, std::uint8_t{}) << (8 * (size - 1)),
                          0);
#else
    char block[blockSize] = {};
    std::memcpy(block, text.data(), text.size());
    return blockIsUnclean(block);
#endif
}

// The texts from 16 bytes. Blocks overlap by a byte, so that every pair of neighbours lies within one.
inline bool longTextIsUnclean(std::string_view text) {
    const std::size_t last = text.size() - blockSize;
    for (std::size_t i = 0; i < last; i += blockSize - 1) {
        if (blockIsUnclean(text.data() + i)) {
            return true;
        }
    }
    return blockIsUnclean(text.data() + last);
}

inline bool needsNormalization(std::string_view text) {
    if (text.empty()) {
        return false;
    }
    if (text.front() == ' ' || text.back() == ' ') {
        return true;
    }
    return text.size() < blockSize ? shortTextIsUnclean(text) : longTextIsUnclean(text);
}

// The same for a text that 16 readable bytes follow from its start on, as every cell of a grid: one load, no branches
// on the length.
inline bool paddedNeedsNormalization(std::string_view text) {
#if defined(__SSE2__)
    if (text.size() > blockSize) {
        return needsNormalization(text);
    }
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data()));
    const auto equals = [bytes](char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    const auto mask = [](__m128i hits) { return static_cast<std::uint32_t>(_mm_movemask_epi8(hits)); };
    const std::uint32_t inText = (std::uint32_t{1} << text.size()) - 1;
    const std::uint32_t unclean =
        mask(_mm_or_si128(_mm_or_si128(equals('\t'), equals('\n')), _mm_or_si128(equals('\r'), equals('\xC2'))));
    const std::uint32_t spaces = mask(equals(' ')) & inText;
    const std::uint32_t ends = (inText ^ (inText >> 1U)) | 1U;
    return ((unclean & inText) | (spaces & (spaces << 1U)) | (spaces & ends)) != 0;
#else
    return needsNormalization(text);
#endif
}

// True when no cell of a stretch of cells needs normalization, told without looking for the cells: there is no tab, no
// byte C2 and no space beside another, beside a delimiter or at an end. The stretch has no line breaks; 16 readable
// bytes follow it.
inline bool areTidyCellsPlain(std::string_view cells, char delimiter) {
    bool tidy = true;
    char before = delimiter;
    for (const char c : cells) {
        const bool isEdge = c == ' ' || c == delimiter;
        const bool wasEdge = before == ' ' || before == delimiter;
        tidy &= !(isEdge && wasEdge && (c == ' ' || before == ' ')) && (c != '\t' || c == delimiter) && c != '\xC2';
        before = c;
    }
    return tidy && before != ' ';
}

#if defined(__SSE2__)
inline bool areTidyCells(std::string_view cells, char delimiter) {
    if (cells.empty()) {
        return true;
    }
    const auto equals = [](__m128i bytes, char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    const auto load = [](const char* at) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at)); };
    const auto untidyAt = [&](const char* at) {
        const __m128i bytes = load(at);
        const __m128i next = load(at + 1);
        const __m128i spaces = equals(bytes, ' ');
        const __m128i nextSpaces = equals(next, ' ');
        const __m128i delimiters = equals(bytes, delimiter);
        const __m128i besides = _mm_or_si128(_mm_and_si128(spaces, _mm_or_si128(nextSpaces, equals(next, delimiter))),
                                             _mm_and_si128(delimiters, nextSpaces));
        const __m128i never = _mm_or_si128(_mm_andnot_si128(delimiters, equals(bytes, '\t')), equals(bytes, '\xC2'));
        return _mm_or_si128(besides, never);
    };
    // Of the last byte there is no pair; its neighbour is not one of ours.
    const char* at = cells.data();
    const char* const last = at + cells.size() - 1;
    __m128i untidy = _mm_setzero_si128();
    for (; last - at >= static_cast<std::ptrdiff_t>(blockSize); at += blockSize) {
        untidy = _mm_or_si128(untidy, untidyAt(at));
    }
    const auto left = static_cast<unsigned>(last - at);
    const auto tail = static_cast<unsigned>(_mm_movemask_epi8(untidyAt(at))) & ((1U << left) - 1);
    const bool endsUntidily = *last == ' ' || *last == '\xC2' || (*last == '\t' && delimiter != '\t');
    return _mm_movemask_epi8(untidy) == 0 && tail == 0 && !endsUntidily && cells.front() != ' ';
}
#else
inline bool areTidyCells(std::string_view cells, char delimiter) { return areTidyCellsPlain(cells, delimiter); }
#endif

}  // namespace corvale::WhitespaceScan
