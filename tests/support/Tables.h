#pragma once

#include <cstddef>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/DataTable.h"
#include "CorvaleKit/loading/TableBuilder.h"

// Tables and comparison texts in the form that a test writes down.
namespace corvale::Tables {

using Rows = std::vector<std::vector<std::string>>;

// From CSV whose first line is the header row, so that the first data row has row number 2.
inline DataTable table(std::string_view csv, std::string sourceName = "table.csv") {
    return TableBuilder::build(CellRows(CSV::parse(Bytes(csv), ',')), std::move(sourceName), 1);
}

// Columns named c0, c1 and so on.
inline DataTable table(const Rows& rows, std::size_t columns) {
    std::vector<std::string> headers;
    for (std::size_t column = 0; column < columns; ++column) {
        headers.push_back("c" + std::to_string(column));
    }
    return {headers, rows, "table.csv"};
}

// One column of keys, named Key, and nothing else.
inline DataTable keyed(const std::vector<std::string>& keys) {
    Rows rows;
    for (const auto& key : keys) {
        rows.push_back({key});
    }
    return DataTable({"Key"}, rows, "keys.csv");
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
