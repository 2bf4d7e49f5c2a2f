#pragma once

#include <string_view>

// The characters that HTML and XML give a meaning of their own, in text and in double-quoted attributes.
namespace corvale::Markup {

constexpr bool isSpecial(char c) { return c == '&' || c == '<' || c == '>' || c == '"'; }

// What stands for a special character.
constexpr std::string_view escape(char special) {
    switch (special) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        default:
            return "&quot;";
    }
}

}  // namespace corvale::Markup
