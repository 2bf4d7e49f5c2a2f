#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvale {

// A small Office Open XML workbook of styled texts (ECMA-376). For tables of millions of cells, WorksheetPart writes
// the same sheets without holding them as cells first.
struct XLSXWriter {
    // The cell format, by its place in the style sheet.
    enum class Style : std::uint8_t {
        plain,
        header,   // bold on grey
        added,    // on green
        removed,  // on red
        changed,  // bold on yellow
        bold,
        typeOnly,  // on blue
        muted,     // grey text
    };

    struct Cell {
        std::string value;  // UTF-8
        Style style = Style::plain;
        bool numeric = false;  // a plain number or a date is written as one, and never a text as a formula
    };

    struct Sheet {
        std::string name;  // cleaned as SheetNames has it
        std::vector<std::vector<Cell>> rows;
        std::vector<double> widths;  // in characters, from column A on; empty: as the program that opens it likes
        bool freezeHeader = false;   // both without effect on a sheet of one row
        bool autoFilter = false;
    };

    std::vector<Sheet> sheets;

    // The file's bytes, the same for the same sheets. Throws ZipWriter::TooLarge when a sheet's XML or the file would
    // pass 4 GiB.
    std::string data() const;
};

}  // namespace corvale
