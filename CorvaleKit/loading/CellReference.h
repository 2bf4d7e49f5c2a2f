#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvale::XLSX {

// A place such as AB12, both parts 0-based. A column too large to count stands far to the right of any sheet.
struct CellReference {
    std::int64_t row = 0;
    std::int64_t column = 0;

    friend bool operator==(const CellReference&, const CellReference&) = default;
};

// Letters in either case, then the digits of a number from 1 within 64 bits; nothing else.
std::optional<CellReference> cellReference(std::string_view text);

}  // namespace corvale::XLSX
