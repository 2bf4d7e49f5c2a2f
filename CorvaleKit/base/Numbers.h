#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers written in ASCII, read whole or not at all and the same in every locale.
namespace corvale::Numbers {

// An optional sign and digits, within 64 bits.
std::optional<std::int64_t> integer(std::string_view text);

// An optional sign, digits with an optional point, an optional exponent; no infinities, no hexadecimal. None for a
// number too large for a double; one too small is 0.
std::optional<double> decimal(std::string_view text);

// Appends the number as std::to_chars writes it: an integer, or a double in its shortest form or in a general one of up
// to 17 digits; none takes 32 characters.
template <typename Number, typename... Format>
void append(std::string& target, Number value, Format... format) {
    std::array<char, 32> digits{};
    target.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value, format...).ptr);
}

}  // namespace corvale::Numbers
