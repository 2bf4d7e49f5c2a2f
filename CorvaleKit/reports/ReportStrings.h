#pragma once

#include <string>

namespace corvale {

// Every word that the reports print, English unless replaced.
struct ReportStrings {
    std::string title = "Corvale report";
    std::string summary = "Summary";  // name of the first sheet
    std::string changes = "Changes";
    std::string cellChanges = "Cell changes";
    std::string status = "Status";
    std::string key = "Key";
    std::string column = "Column";
    std::string before = "Before";
    std::string after = "After";
    std::string difference = "Difference";

    // Of a row.
    std::string added = "Added";
    std::string removed = "Removed";
    std::string changed = "Changed";
    std::string same = "Unchanged";

    // What is counted.
    std::string rowsAdded = "Rows added";
    std::string rowsRemoved = "Rows removed";
    std::string rowsChanged = "Rows changed";
    std::string rowsSame = "Rows unchanged";
    std::string cellsChanged = "Cells changed";
    std::string typeOnlyCells = "Cells that differ only in number format, case or spacing";
    std::string columnsAdded = "Columns added";
    std::string columnsRemoved = "Columns removed";

    std::string matchedBy = "Rows matched by";
    std::string rowOrder = "row order";  // a value after a label, as are the option texts
    std::string ignored = "Ignored";
    std::string duplicateKeys = "Duplicate keys";
    std::string rows = "Rows";  // followed by row numbers
    std::string beforeFile = "Before file";
    std::string afterFile = "After file";
    std::string rowBefore = "Row (before)";
    std::string rowAfter = "Row (after)";
    std::string generated = "Made with Corvale on this Mac. Nothing was uploaded.";
    std::string noDifferences = "No differences.";

    // Of a changed cell.
    std::string kindValue = "Value";
    std::string kindNumberFormat = "Number format only";
    std::string kindLetterCase = "Letter case only";
    std::string kindWhitespace = "Spacing only";

    // What is ignored.
    std::string optionCase = "letter case";
    std::string optionWhitespace = "extra spaces";
    std::string optionNumbers = "number formatting";
    std::string optionColumnOrder = "column order";

    std::string columnOrderChanged = "Column order changed";
    std::string yes = "Yes";
    std::string blankKey = "(blank key)";

    // The same texts for readers of Spanish.
    static ReportStrings spanish();

    friend bool operator==(const ReportStrings&, const ReportStrings&) = default;
};

}  // namespace corvale
