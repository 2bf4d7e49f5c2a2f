#include "CorvaleKit/loading/XLSX.h"

#include <string>
#include <utility>

#include "CorvaleKit/loading/SheetReader.h"
#include "CorvaleKit/loading/Workbook.h"

namespace corvale::XLSX {

namespace {

// 1-based, for any index that somebody may pass.
std::string sheetNumber(std::int64_t index) {
    return index < 0 ? std::to_string(index + 1) : std::to_string(static_cast<std::uint64_t>(index) + 1);
}

}  // namespace

std::vector<Sheet> sheets(std::string_view bytes) { return openWorkbook(bytes).sheets; }

CellGrid readSheet(std::string_view bytes, std::int64_t index) {
    return readSheet(bytes, [index](const std::vector<Sheet>&) { return index; });
}

CellGrid readSheet(std::string_view bytes, const SheetChoice& choose) {
    Workbook workbook = openWorkbook(bytes);
    const std::int64_t index = choose(workbook.sheets);
    if (index < 0 || static_cast<std::uint64_t>(index) >= workbook.sheets.size()) {
        throw Failure("The workbook has no sheet " + sheetNumber(index) + ".");
    }
    const Sheet& sheet = workbook.sheets[static_cast<std::size_t>(index)];
    auto part = workbook.part(sheet.path);
    if (!part) {
        throw Failure("The sheet “" + sheet.name + "” is missing from the file.");
    }
    return sheetGrid(std::move(*part), std::move(workbook));
}

}  // namespace corvale::XLSX
