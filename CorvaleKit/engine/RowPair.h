#pragma once

#include <cstdint>
#include <limits>

namespace corvale {

// A Before row and an After row that belong together, or one of them alone. Indexes into DataTable::rows().
struct RowPair {
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    std::uint32_t left = none;
    std::uint32_t right = none;

    bool hasLeft() const { return left != none; }
    bool hasRight() const { return right != none; }

    friend bool operator==(const RowPair&, const RowPair&) = default;
};

}  // namespace corvale
