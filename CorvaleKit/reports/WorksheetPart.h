#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/reports/XLSXWriter.h"
#include "CorvaleKit/reports/ZipWriter.h"

namespace corvale {

// Writes the XML of one worksheet, cell by cell and row by row, into one string: no cell is held, none takes memory of
// its own.
class WorksheetPart {
public:
    using Style = XLSXWriter::Style;

    // What must be known before the first row. All rows announced have to come.
    struct Layout {
        std::size_t rows = 0;
        std::size_t cellsOfFirstRow = 0;  // for a guess of the size
        std::span<const double> widths;   // used by the constructor alone
        bool freezeHeader = false;
        bool autoFilter = false;
        std::size_t mostBytes = ZipWriter::largestMember;
    };

    // Put where a part of a text is left out.
    static constexpr std::string_view leftOutMark = "[…]";
    // Whether a cell can show all of the text.
    static bool fitsCell(std::string_view text);

    explicit WorksheetPart(const Layout& layout);

    void beginRow();
    // The next cell of the row. `value` is UTF-8; where `numeric` is set it may become a number or a date.
    // Of a text longer than a cell holds, the start, and " […]".
    void cell(std::string_view value, Style style = Style::plain, bool numeric = false);
    // Throws ZipWriter::TooLarge as soon as the part is larger than the layout allows.
    void endRow();

    // The part; the writer is spent afterwards.
    std::string finish();

private:
    void writeWidths(std::span<const double> widths);
    // A cell's markup up to the letters of its reference.
    const std::string& columnStart(std::size_t column);

    std::string m_xml;
    std::vector<std::string> m_columnStarts;
    std::array<char, 24> m_rowDigits{};  // with the closing quotation mark of the reference
    std::size_t m_rowDigitCount = 0;
    std::size_t m_announcedRows;
    std::size_t m_mostBytes;
    std::size_t m_row = 0;     // 1-based, 0 before the first
    std::size_t m_column = 0;  // of the next cell
    std::size_t m_widestRow = 0;
    bool m_autoFilter;
};

}  // namespace corvale
