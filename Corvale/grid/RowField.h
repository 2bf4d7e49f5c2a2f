#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

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

    // The values differ in white space alone. Reads them as far as that goes, which most fields of a wide table need
    // not.
    bool showsSpaces() const;

    static RowField of(const DiffResult& result, const GridColumns& columns, std::int64_t row, std::size_t column);
};

}  // namespace corvale
