#pragma once

#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/HashTables.h"

namespace corvale {

// A filled cell, trimmed. A text of up to 16 bytes is held itself, so that equal ones are told without a look at the
// cells; of a longer one its place.
class CellValue {
public:
    // Reads 16 bytes from the start of the text on, which every cell of a table allows.
    explicit CellValue(std::string_view text) {
        if (text.size() > sizeof m_words) {
            m_words = std::bit_cast<Words>(text);
            m_hash = truncated(absl::HashOf(absl::string_view(text.data(), text.size())));
            return;
        }
        // A window over this keeps as many bytes as the text has.
        static constexpr auto masks = [] {
            std::array<unsigned char, 2 * sizeof(Words)> bytes{};
            std::fill_n(bytes.begin(), sizeof(Words), static_cast<unsigned char>(0xFF));
            return bytes;
        }();
        Words mask{};
        std::memcpy(mask.data(), masks.data() + sizeof mask - text.size(), sizeof mask);
        std::memcpy(m_words.data(), text.data(), sizeof m_words);
        m_words[0] &= mask[0];
        m_words[1] &= mask[1];
        m_size = static_cast<std::uint32_t>(text.size());
        m_hash = truncated(absl::HashOf(m_words[0], m_words[1], m_size));
    }

    std::uint32_t hash() const { return m_hash; }

    friend bool operator==(const CellValue& a, const CellValue& b) {
        return a.m_size == b.m_size && (a.m_words == b.m_words || (a.m_size == isLong && a.longText() == b.longText()));
    }

private:
    using Words = std::array<std::uint64_t, 2>;
    static_assert(sizeof(Words) == sizeof(std::string_view));
    static constexpr std::uint32_t isLong = ~std::uint32_t{0};

    static std::uint32_t truncated(std::size_t hash) { return static_cast<std::uint32_t>(hash); }
    std::string_view longText() const { return std::bit_cast<std::string_view>(m_words); }

    Words m_words{};
    std::uint32_t m_size = isLong;
    std::uint32_t m_hash = 0;
};

using CellValues = std::vector<CellValue>;

// Numbers distinct values in order of first appearance.
class DistinctValues {
public:
    // Forgets all values and makes room for as many; the memory is used again.
    void reset(std::size_t expected) {
        m_numbers.clear();
        m_numbers.reserve(expected);
    }

    std::size_t size() const { return m_numbers.size(); }

    // Starts fetching what insert(value) will look at.
    void prefetch(const CellValue& value) const { m_numbers.prefetch(value); }

    std::uint32_t insert(const CellValue& value) {
        return m_numbers.try_emplace(value, static_cast<std::uint32_t>(m_numbers.size())).first->second;
    }

private:
    struct StoredHash {
        std::size_t operator()(const CellValue& value) const { return absl::HashOf(value.hash()); }
    };

    HashMap<CellValue, std::uint32_t, StoredHash> m_numbers;
};

}  // namespace corvale
