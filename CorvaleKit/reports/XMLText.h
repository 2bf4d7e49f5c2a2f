#pragma once

#include <string>
#include <string_view>

// Text as character data or as an attribute value in double quotes (XML 1.0).
namespace corvale::XMLText {

// Appends the text with &, <, > and " escaped, and without the characters that XML cannot hold: controls other than
// tab, line feed and carriage return, U+FFFE and U+FFFF. Each malformed sequence of UTF-8 becomes one U+FFFD.
void appendEscaped(std::string& target, std::string_view text);

}  // namespace corvale::XMLText
