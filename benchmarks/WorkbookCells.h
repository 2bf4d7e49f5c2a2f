#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvale::benchmarks {

// One cell of a worksheet as somebody else's writer wants it.
struct WorkbookCell {
    enum class Kind : std::uint8_t { blank, number, text };

    std::uint32_t row = 0;  // 0-based, as column
    std::uint16_t column = 0;
    std::uint8_t format = 0;
    Kind kind = Kind::blank;
    double number = 0;
    std::size_t text = 0;  // offset of a text that ends with a zero byte
};

struct SheetCells {
    std::vector<WorkbookCell> cells;  // row by row
    std::string texts;
};

// Every cell of a workbook that XLSXWriter made, sheet by sheet.
std::vector<SheetCells> cellsOf(std::string_view workbook);

}  // namespace corvale::benchmarks
