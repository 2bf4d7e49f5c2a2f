#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/loading/CellRows.h"
#include "CorvaleKit/loading/DataTable.h"

// Shapes raw rows into a table: drops blank rows, chooses the header row, names the columns.
namespace corvale::TableBuilder {

// True when every cell is empty or spaces and tabs.
bool isBlank(const CellRow& row);

// True when at least two cells hold something other than spaces and tabs.
bool isFilled(const CellRow& row);

// The automatic header row: a position in `rows`, a list of non-blank rows. Skips a title and short notes, but never
// looks beyond the sixth row. 0 for an empty list.
std::size_t headerPosition(const CellRows& rows);

// `rows` are a source's rows in order, row i being source row i + 1. `headerRow` is a 1-based source row number; a
// blank one stands for the next non-blank row, one past the end for the last non-blank row; none means headerPosition.
// Without a non-blank row the table has no columns. Linear in the rows; no cell is copied.
DataTable build(const CellRows& rows, std::string sourceName, std::optional<std::int64_t> headerRow = std::nullopt);

// Unique column names, without regard to letter case, for header cells as read; `count` is at least headers.size().
std::vector<std::string> columnNames(const CellRow& headers, std::size_t count);

}  // namespace corvale::TableBuilder
