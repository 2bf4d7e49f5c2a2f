#pragma once

#include <cstddef>
#include <string_view>

namespace corvale {

// The stretch in which two texts differ: what is left of each between the characters that both begin with and those
// that both end with. Offsets are bytes and fall between characters.
struct TextDifference {
    std::size_t begin = 0;
    std::size_t beforeEnd = 0;
    std::size_t afterEnd = 0;

    // Linear in the texts. In texts longer than any workbook cell, characters are single scalars of Unicode.
    static TextDifference of(std::string_view before, std::string_view after);

    friend bool operator==(const TextDifference&, const TextDifference&) = default;
};

}  // namespace corvale
