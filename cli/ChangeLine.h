#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffRow.h"
#include "cli/TextLine.h"

namespace corvale::Cli {

// One changed cell as a person sees it.
struct ShownChange {
    std::string before;  // printable
    std::string after;
    std::string note;  // how they differ when it is only in form; empty for values

    ShownChange(std::string_view beforeCell, std::string_view afterCell, ChangeKind kind);
};

// "old → new" and the note, in the room that the line has left. The arrow stands `beforeWidth` columns after the old
// value's start where there is room for that.
void addChange(TextLine& line, const ShownChange& change, std::size_t beforeWidth);

}  // namespace corvale::Cli
