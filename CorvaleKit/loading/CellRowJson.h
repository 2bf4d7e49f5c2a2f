#pragma once

#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/loading/CellRow.h"

namespace corvale {

// The row as an array of texts. The cells that a thin row lacks are written in bulk: a sheet may claim a thousand
// columns in a million rows.
inline void writeCells(JsonWriter& json, const CellRow& row) {
    json.beginArray();
    std::size_t written = 0;
    row.forEachStored([&](std::size_t column, std::string_view cell) {
        json.emptyTexts(column - written);
        json.text(cell);
        written = column + 1;
    });
    json.emptyTexts(row.size() - written);
    json.endArray();
}

}  // namespace corvale
