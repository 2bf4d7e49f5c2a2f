#pragma once

#include <string_view>

// What `--help` says beside the list of options.
namespace corvale::Cli::HelpTexts {

inline constexpr std::string_view program =
    "Compares two spreadsheets, cell by cell: Excel workbooks, CSV and TSV files.";

inline constexpr std::string_view programFooter =
    R"(Examples:
  corvale-cli compare prices-october.csv prices-november.csv
  corvale-cli compare old.xlsx new.xlsx --sheet Stock --key SKU
  corvale-cli compare --help

Exit status: 0 no differences, 1 differences, 2 trouble.
)";

inline constexpr std::string_view sheets = "Prints the names of a workbook’s sheets, as JSON.";

inline constexpr std::string_view sheetsFooter =
    R"(Examples:
  corvale-cli sheets prices.xlsx
)";

inline constexpr std::string_view table = "Prints a table as it was read, as JSON.";

inline constexpr std::string_view tableFooter =
    R"(Examples:
  corvale-cli table prices.csv
  corvale-cli table prices.xlsx --sheet 2
  corvale-cli table prices.xlsx --sheet Stock --header-row 4
)";

inline constexpr std::string_view key = "Tells which columns could serve as the key, as JSON.";

inline constexpr std::string_view keyFooter =
    R"(Examples:
  corvale-cli key old.csv new.csv
  corvale-cli key old.xlsx new.xlsx --before-sheet 1 --after-sheet 2
)";

inline constexpr std::string_view compare = "Lists the rows that differ, with each changed cell.";

inline constexpr std::string_view compareFooter =
    R"(Examples:
  corvale-cli compare prices-october.csv prices-november.csv
  corvale-cli compare old.xlsx new.xlsx --sheet Stock --key Warehouse --key SKU
  corvale-cli compare old.csv new.csv --ignore-case --ignore-number-format
  corvale-cli compare old.csv new.csv --show changed --column Price
  corvale-cli compare old.csv new.csv --search "gel pen" --format json
  corvale-cli compare expected.csv export.csv --format summary || exit

Exit status: 0 no differences, 1 differences (a row that is not the same on both
sides, or a column on one side only), 2 trouble, 130 stopped with Ctrl-C.
)";

inline constexpr std::string_view report = "Saves a comparison as a workbook or an HTML page.";

inline constexpr std::string_view reportFooter =
    R"(Examples:
  corvale-cli report prices-october.csv prices-november.csv -o changes.xlsx
  corvale-cli report old.xlsx new.xlsx --key SKU -o changes.html
  corvale-cli report viejo.xlsx nuevo.xlsx --lang es -o cambios.xlsx

A workbook has a summary, the rows that differ and each changed cell, coloured;
a page shows the same in any browser. A file of that name is replaced.
Exit status: 0 saved, 2 trouble.
)";

}  // namespace corvale::Cli::HelpTexts
