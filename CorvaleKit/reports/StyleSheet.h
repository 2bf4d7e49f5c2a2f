#pragma once

#include <cstddef>
#include <string>

namespace corvale {

// How many cell formats lie between a style and the same style with the next number format: general, then
// "yyyy-mm-dd", then "yyyy-mm-dd hh:mm".
inline constexpr std::size_t styleCount = 8;

// The style sheet part, whose cell formats stand in the order of XLSXWriter::Style. The same text at every call.
const std::string& styleSheet();

}  // namespace corvale
