#pragma once

#include <cstdint>

// Where the text of a cell lies in a buffer, in 8 bytes: the offset in the upper 40 bits, the length in the lower 24. A
// longer text has all ones as length, and as offset its place in a list of long ones.
namespace corvale::PackedCell {

inline constexpr unsigned lengthBits = 24;
inline constexpr std::uint64_t longLength = (std::uint64_t{1} << lengthBits) - 1;

constexpr std::uint64_t offset(std::uint64_t packed) { return packed >> lengthBits; }
constexpr std::uint64_t length(std::uint64_t packed) { return packed & longLength; }
constexpr bool isLong(std::uint64_t packed) { return length(packed) == longLength; }
// Of one that is not long.
constexpr std::uint64_t end(std::uint64_t packed) { return offset(packed) + length(packed); }
// Whether one byte lies between them; of a long one that is not known.
constexpr bool areOneApart(std::uint64_t left, std::uint64_t right) {
    return offset(right) == end(left) + 1 && !isLong(left) && !isLong(right);
}

}  // namespace corvale::PackedCell
