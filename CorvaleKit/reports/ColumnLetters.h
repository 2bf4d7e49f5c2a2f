#pragma once

#include <cstddef>
#include <string>

namespace corvale {

// The letters of a 0-based column: A to Z, AA to ZZ, AAA and so on.
std::string columnLetters(std::size_t column);

}  // namespace corvale
