#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// UTF-8 (RFC 3629): checking, repairing, walking.
namespace corvale::Utf8 {

// One decoded scalar and the number of bytes it takes.
struct Scalar {
    char32_t value = 0;
    std::size_t length = 0;
};

bool isAscii(std::string_view text);

// Whether the byte goes on with a sequence that another one began.
constexpr bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// The scalars of a well-formed text.
std::size_t scalarCount(std::string_view text);

// Where the run of ASCII bytes from `position` on ends; `position` is at most text.size().
std::size_t asciiEnd(std::string_view text, std::size_t position);

// True when every byte belongs to a well-formed sequence: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValid(std::string_view text);

// The text with one U+FFFD in place of every maximal invalid subpart (Unicode, chapter 3, U+FFFD substitution).
std::string repaired(std::string_view text);

// The scalar at `position`, which is below text.size(). A malformed sequence yields U+FFFD and the length of its
// maximal subpart, so a walk over any bytes ends.
Scalar scalarAt(std::string_view text, std::size_t position);

// The scalar that ends right before `end`, which is above 0; for walking backwards.
Scalar scalarBefore(std::string_view text, std::size_t end);

// `scalar` is a Unicode scalar value.
void append(std::string& target, char32_t scalar);

}  // namespace corvale::Utf8
