#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/DataTable.h"
#include "CorvaleKit/loading/TableBuilder.h"

// Tables in the form that a test writes down.
namespace corvale::Tables {

// From CSV whose first line is the header row, so that the first data row has row number 2.
inline DataTable table(std::string_view csv, std::string sourceName = "table.csv") {
    return TableBuilder::build(CellRows(CSV::parse(Bytes(csv), ',')), std::move(sourceName), 1);
}

// One column of keys, named Key, and nothing else.
inline DataTable keyed(const std::vector<std::string>& keys) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& key : keys) {
        rows.push_back({key});
    }
    return DataTable({"Key"}, rows, "keys.csv");
}

}  // namespace corvale::Tables
