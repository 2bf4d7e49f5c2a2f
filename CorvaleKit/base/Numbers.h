#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

// Numbers written in ASCII, read whole or not at all and the same in every locale.
namespace corvale::Numbers {

// An optional sign and digits, within 64 bits.
std::optional<std::int64_t> integer(std::string_view text);

// An optional sign, digits with an optional point, an optional exponent; no infinities, no hexadecimal. None for a
// number too large for a double; one too small is 0.
std::optional<double> decimal(std::string_view text);

}  // namespace corvale::Numbers
