#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The only place that knows Unicode's character properties. Texts are UTF-8; views returned point into the argument.
namespace corvale::Text {

// Tab and the space separators (category Zs): white space without line breaks.
bool isSpace(char32_t scalar);

// isSpace and the line breaks: U+000A to U+000D, U+0085, U+2028, U+2029.
bool isSpaceOrLineBreak(char32_t scalar);

bool isLetter(char32_t scalar);  // categories L*
bool isDigit(char32_t scalar);   // category Nd, of any script

std::string_view trimSpaces(std::string_view text);
std::string_view trimSpacesAndLineBreaks(std::string_view text);

// Drops isSpace characters at the start or the end alone.
std::string_view trimSpacesAtStart(std::string_view text);
std::string_view trimSpacesAtEnd(std::string_view text);

// True when every character is a space in the sense of isSpace, or there is none.
bool isBlank(std::string_view text);

// Full lower-casing, scalar by scalar, independent of locale and context (no final-sigma rule).
std::string lowercased(std::string_view text);
void appendLowercased(std::string& target, std::string_view text);
// False only when lowercased(text) is the text as it is; a quick look at the bytes.
bool lowercasingMayChange(std::string_view text);

// Equality of the lower-cased texts.
bool equalIgnoringCase(std::string_view a, std::string_view b);

// Characters are extended grapheme clusters (UAX #29).
std::size_t characterCount(std::string_view text);
// Bounded cost: stops at the first character past the limit.
bool hasMoreCharactersThan(std::string_view text, std::size_t limit);
// The first `count` characters, or the whole text when it has fewer.
std::string_view firstCharacters(std::string_view text, std::size_t count);

// Terminal columns that the text takes: 2 for wide characters, 0 for combining marks and controls.
std::size_t displayWidth(std::string_view text);

}  // namespace corvale::Text
