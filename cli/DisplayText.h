#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Texts from files as a terminal may show them.
namespace corvale::Cli::DisplayText {

// One line that no terminal acts upon: line breaks become ↵, tabs ⇥, other control characters their pictures (U+2400
// and on) or U+FFFD, so do characters that reorder the text around them, and bytes that are no UTF-8.
std::string printable(std::string_view text);

// The text, or as much of its start as leaves room for an ellipsis, in at most `width` terminal columns.
std::string shortened(std::string_view printable, std::size_t width);

// The same, keeping the end; of a path that is the part that matters.
std::string shortenedAtStart(std::string_view printable, std::size_t width);

// The same, keeping both ends; keys may differ at either.
std::string shortenedInMiddle(std::string_view printable, std::size_t width);

// Both texts in at most `width` columns each. One that has to be cut is cut so that the first place where the two
// differ stays in sight.
struct Pair {
    std::string before;
    std::string after;
};
Pair shortenedPair(std::string_view before, std::string_view after, std::size_t beforeWidth, std::size_t afterWidth);

// For messages: line breaks become spaces, the rest is as in printable.
std::string oneLine(std::string_view message);

// 1204567 as 1,204,567.
std::string grouped(std::size_t number);

// "1 row", "1,204 rows".
std::string counted(std::size_t number, std::string_view one, std::string_view many);

}  // namespace corvale::Cli::DisplayText
