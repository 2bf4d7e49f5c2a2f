#pragma once

#include <cstddef>
#include <optional>

// What the program finds at the other end of its streams.
namespace corvale::Cli {

// How a text for people is laid out.
struct TextStyle {
    bool colour = false;
    std::optional<std::size_t> width;  // terminal columns; none: lines as long as they are

    friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

namespace Terminal {

// For standard output: colour on a terminal, unless NO_COLOR is set (no-color.org) or TERM is missing or "dumb". The
// width is the one in COLUMNS, else the terminal's; none where there is neither.
TextStyle outputStyle();

// True when a line on standard error can be drawn and erased again.
bool canShowProgress();

}  // namespace Terminal

}  // namespace corvale::Cli
