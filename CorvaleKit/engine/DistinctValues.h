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

#include "CorvaleKit/base/Memory.h"

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

// Numbers distinct values in order of first appearance. Open addressing over 8 bytes a slot, so that a column's table
// stays in the cache and the next values' slots can be fetched ahead.
class DistinctValues {
public:
    // Forgets all values and makes room for as many; the memory is used again.
    void reset(std::size_t expected) {
        m_slots.assign(std::bit_ceil(2 * expected), Slot{});
        m_values.clear();
    }

    std::size_t size() const { return m_values.size(); }

    void prefetch(const CellValue& value) const { Memory::prefetch(&m_slots[slotOf(value.hash())]); }

    std::uint32_t insert(const CellValue& value) {
        for (std::size_t i = slotOf(value.hash());; i = (i + 1) & (m_slots.size() - 1)) {
            Slot& slot = m_slots[i];
            if (slot.number == 0) {
                m_values.push_back(value);
                slot = {value.hash(), static_cast<std::uint32_t>(m_values.size())};
                return slot.number - 1;
            }
            if (slot.hash == value.hash() && m_values[slot.number - 1] == value) {
                return slot.number - 1;
            }
        }
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  // 1-based; 0: free
    };

    std::size_t slotOf(std::uint32_t hash) const { return hash & (m_slots.size() - 1); }

    std::vector<Slot> m_slots;  // a power of two, at most half full
    CellValues m_values;
};

}  // namespace corvale
