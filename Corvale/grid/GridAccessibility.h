#pragma once

#include <cstddef>
#include <cstdint>

// What assistive technology sees of the grid: a table whose children are its header and its lines, each with its cells.
// A line's name is all that it says; the first two columns are the row numbers and the status. Nothing is made before
// it is asked for, and all is dropped when the table changes.
namespace corvale::GridAccessibility {

// Has Qt ask here for the interface of every DiffGrid. Further calls do nothing.
void install();

// The index of a line among the table's children, after the header's; lines beyond what Qt can count are none.
int childOfLine(std::int64_t line);

// The table's column of a place in the layout, after those of the numbers and the status.
int columnOfCell(std::size_t cell);

}  // namespace corvale::GridAccessibility
