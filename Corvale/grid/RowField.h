#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Corvale/grid/GridColumns.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// One column of the selected row, before and after. Views the result.
struct RowField {
    // How the values are shown.
    enum class Kind : std::uint8_t { plain, changed, formatOnly };

    QString name;
    bool isKey = false;
    Kind kind = Kind::plain;
    bool isSpacing = false;                  // the comparison found white space alone to differ
    std::optional<std::string_view> before;  // none: the row or the column is not in this file
    std::optional<std::string_view> after;

    // The values differ in white space alone. Reads them whole, which most fields of a wide table need not.
    bool showsSpaces() const;

    static RowField of(const DiffResult& result, const GridColumns& columns, std::int64_t row, std::size_t column);
};

// How one value of a field is written: its text, and what of it is marked as different.
struct FieldValue {
    QString text;
    std::vector<int> origins;  // where the text is not the value: the unit of the value that each one stands for
    QString original;          // what is copied; empty for a note such as "(empty)"
    bool isNote = false;
    int markBegin = 0;  // in UTF-16 units of the text; an empty stretch where all or nothing differs
    int markEnd = 0;

    // What stands for an empty value, or for one that is not there.
    static QString note(const RowField& field, bool isThere);
    // The values on either side.
    static FieldValue before(const RowField& field);
    static FieldValue after(const RowField& field);
};

}  // namespace corvale
