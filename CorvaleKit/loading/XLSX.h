#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/base/WorkbookLimits.h"
#include "CorvaleKit/loading/CellGrid.h"

// Worksheets of an Office Open XML workbook (ECMA-376) as rows of texts: the values a user would recognise, never the
// formulas. Functions throw XLSX::Failure, or ZipReader::Failure for a damaged member.
namespace corvale::XLSX {

// The workbook as a whole, or the wanted sheet, cannot be read.
class Failure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

struct Sheet {
    std::string name;  // as on the workbook's tab
    std::string path;  // of the part inside the archive, such as xl/worksheets/sheet1.xml

    friend bool operator==(const Sheet&, const Sheet&) = default;
};

// How a numeric cell is shown. A workbook's code of more than 255 zeros, longer than any a spreadsheet program writes,
// counts as general when cells are read.
struct NumberFormat {
    enum class Kind : std::uint8_t { zeroPadded, general, date, dateTime, time, percent };

    Kind kind = Kind::general;
    std::int64_t digits = 0;  // of zeroPadded, else 0

    friend bool operator==(const NumberFormat&, const NumberFormat&) = default;
};

// In workbook order.
std::vector<Sheet> sheets(std::string_view bytes);

// Of a worksheet, more is not read: the rows that a worksheet can have, and a bound on columns.
inline constexpr std::int64_t mostRows = static_cast<std::int64_t>(WorkbookLimits::rows);
inline constexpr std::int64_t mostColumns = 1'000;

// The rows of the sheet at a 0-based index, ragged, empty rows included.
CellGrid readSheet(std::string_view bytes, std::int64_t index);

// Picks one of a workbook's sheets, of which there is at least one: a 0-based index.
using SheetChoice = std::function<std::int64_t(const std::vector<Sheet>&)>;

// The same for the sheet that `choose` picks; what it throws comes through.
CellGrid readSheet(std::string_view bytes, const SheetChoice& choose);

// The format of a style: a built-in id (ECMA-376 18.8.30), else the classified custom code.
NumberFormat numberFormat(std::int64_t numFmtId, std::optional<std::string_view> code);

// The display text of a numeric cell's raw value; a text that is no number comes back unchanged. `date1904` selects the
// 1904 date system.
std::string formatCell(std::string_view raw, NumberFormat format, bool date1904);

}  // namespace corvale::XLSX
