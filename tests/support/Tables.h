#pragma once

#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/loading/DataTable.h"

// Tables and comparison texts in the form that a test writes down.
namespace corvale::Tables {

using Rows = std::vector<std::vector<std::string>>;

// Columns named c0, c1 and so on.
inline DataTable table(const Rows& rows, std::size_t columns) {
    std::vector<std::string> headers;
    for (std::size_t column = 0; column < columns; ++column) {
        headers.push_back("c" + std::to_string(column));
    }
    return {headers, rows, "table.csv"};
}

// Every column compared, as it stands or reduced.
inline ComparisonTexts texts(const DataTable& table, const CellReduction& reduction = {}) {
    std::vector<std::size_t> columns(table.headers().size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    return {table, columns, reduction};
}

inline ComparisonTexts texts(const Rows& rows, std::size_t columns) { return texts(table(rows, columns)); }

// One row a letter, one column: "abc" is a table of three rows.
inline Rows letters(const std::string& all) {
    Rows rows;
    for (const char letter : all) {
        rows.push_back({std::string(1, letter)});
    }
    return rows;
}

}  // namespace corvale::Tables
