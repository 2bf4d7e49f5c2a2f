#pragma once

#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/loading/CellRows.h"
#include "CorvaleKit/text/WhitespaceScan.h"

namespace corvale {

// Reduces a cell to the text that decides whether it changed.
struct CellReduction {
    bool whitespace = false;  // normalise white space
    bool number = false;      // a number becomes its canonical text
    bool lowercase = false;
    NumberStyle style = NumberStyle::dotDecimal;  // resolved

    // For compared cells: just what the options ask for.
    static CellReduction ofCells(const DiffOptions& options, NumberStyle style);
    // For key cells: white space never counts in a key.
    static CellReduction ofKeys(const DiffOptions& options, NumberStyle style);

    // A quick look: false when `cell` is its own reduced text, as most cells are.
    // `cell` is a cell of a grid, so that bytes after it may be read, or empty.
    bool mayChange(std::string_view cell) const {
        return !cell.empty() && (number || lowercase || (whitespace && WhitespaceScan::paddedNeedsNormalization(cell)));
    }

    // The same of all cells of a row, or of all rows, at once.
    bool mayChange(const CellRow& row) const { return number || lowercase || (whitespace && !row.isTidy()); }
    bool mayChange(const CellRows& rows) const { return number || lowercase || (whitespace && !rows.areTidy()); }

    // For a cell that may change. True when the reduced text differs from `cell` or may do so; it is then appended to
    // `target`. False, and nothing appended, when `cell` is its own reduced text.
    bool appendRewritten(std::string& target, std::string_view cell) const;
};

}  // namespace corvale
