#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CellRow.h"
#include "CorvaleKit/text/Text.h"

// What the user knows a row by: its key cells trimmed of spaces and line breaks, joined with " · ".
namespace corvale::DisplayKey {

inline constexpr std::string_view separator = " · ";

// For a key in one column: part of the cell itself.
inline std::string_view ofCell(std::string_view cell) { return Text::trimSpacesAndLineBreaks(cell); }

inline void append(std::string& target, const CellRow& row, const std::vector<std::size_t>& columns) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        target += i > 0 ? separator : std::string_view();
        target += ofCell(row[columns[i]]);
    }
}

}  // namespace corvale::DisplayKey
