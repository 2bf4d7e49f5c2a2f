#pragma once

#include <QCoreApplication>
#include <QString>
#include <cstddef>

#include "Corvale/grid/GridRow.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// What a row of a result is called and says, in the user's language.
class RowTexts {
    Q_DECLARE_TR_FUNCTIONS(corvale::RowTexts)

public:
    static QString statusWord(DiffRow::Status status);
    // The name of the status's symbol.
    static QString statusSymbol(DiffRow::Status status);

    // The source row number on a side, "–" where the row is not there.
    static QString number(const DiffResult& result, const DiffRow& row, DuplicateKey::Side side);
    // The same, labelled: "Before: 8".
    static QString labelledNumber(const DiffResult& result, const DiffRow& row, DuplicateKey::Side side);

    // Both: "Before: 8, After: 8".
    static QString labelledNumbers(const DiffResult& result, const DiffRow& row);

    // What the row is known by, on one line: its key, of a long one the first and the last `endCharacters`; "(blank
    // key)"; or "Row 8" where rows are matched by their order.
    static QString title(const DiffResult& result, const DiffRow& row, std::size_t endCharacters);

    // The changes of a row on one line: "Price: 89.00 to 94.00, Qty: 5 to 8". Up to four are listed; of more,
    // three, and the others are counted. Long texts are cut. Empty where nothing changed.
    static QString summary(const DiffResult& result, const DiffRow& row);

    // A line of the list as it is read out: status, numbers, title, summary.
    static QString spoken(const DiffResult& result, const DiffRow& row);

    // A row for the clipboard: for each side that has it a line of its name, row number and cells in display order,
    // separated by tabs. A text with a tab, a line break or a quote in it stands in quotes.
    static QString copied(const DiffResult& result, const DiffRow& row);

    // All that a cell has to show: its text, or "89.00 to 94.00" for one that shows a change. Each value is cut after
    // so many UTF-16 units.
    static QString cell(const GridCell& cell, qsizetype longestValue);

    // The row number on a side as a heading, "Before: row 8" or "Before: (not in this file)".
    static QString heading(const DiffResult& result, const DiffRow& row, DuplicateKey::Side side);

    static QString emptyCell();      // "(empty)"
    static QString blankKey();       // "(blank key)"
    static QString notInThisFile();  // "(not in this file)"
    // "[2,967,233 characters left out]"
    static QString leftOut(std::size_t characters);
    static QString sideName(DuplicateKey::Side side);
};

}  // namespace corvale
