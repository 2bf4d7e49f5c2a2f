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

// True of the key of a row whose cells in all of the `columnCount` key columns are blank, and of an empty text.
inline bool isBlank(std::string_view key, std::size_t columnCount) {
    for (std::size_t i = 1; i < columnCount && key.starts_with(separator); ++i) {
        key.remove_prefix(separator.size());
    }
    return key.empty();
}

}  // namespace corvale::DisplayKey
