#include "benchmarks/WorkbookCells.h"

#include <charconv>

#include "CorvaleKit/loading/CellReference.h"
#include "CorvaleKit/loading/ZipReader.h"

namespace corvale::benchmarks {

namespace {

// Takes what stands before `end` off the text, and `end` too.
std::string_view takeUntil(std::string_view& xml, std::string_view end) {
    const std::size_t place = xml.find(end);
    const std::string_view taken = xml.substr(0, place);
    xml.remove_prefix(place + end.size());
    return taken;
}

bool take(std::string_view& xml, std::string_view start) {
    const bool found = xml.starts_with(start);
    xml.remove_prefix(found ? start.size() : 0);
    return found;
}

template <typename Number>
Number number(std::string_view text) {
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

void appendUnescaped(std::string& target, std::string_view text) {
    while (!text.empty()) {
        if (take(text, "&amp;")) {
            target += '&';
        } else if (take(text, "&lt;")) {
            target += '<';
        } else if (take(text, "&gt;")) {
            target += '>';
        } else if (take(text, "&quot;")) {
            target += '"';
        } else {
            target += text.front();
            text.remove_prefix(1);
        }
    }
    target += '\0';
}

SheetCells cellsOfSheet(std::string_view xml) {
    SheetCells sheet;
    while (xml.find("<c r=\"") != std::string_view::npos) {
        takeUntil(xml, "<c r=\"");
        const auto reference = XLSX::cellReference(takeUntil(xml, "\"")).value();
        WorkbookCell cell;
        cell.row = static_cast<std::uint32_t>(reference.row);
        cell.column = static_cast<std::uint16_t>(reference.column);
        if (take(xml, " s=\"")) {
            cell.format = number<std::uint8_t>(takeUntil(xml, "\""));
        }
        if (take(xml, "><v>")) {
            cell.kind = WorkbookCell::Kind::number;
            cell.number = number<double>(takeUntil(xml, "<"));
        } else if (take(xml, " t=\"inlineStr\"><is><t xml:space=\"preserve\">")) {
            cell.kind = WorkbookCell::Kind::text;
            cell.text = sheet.texts.size();
            appendUnescaped(sheet.texts, takeUntil(xml, "<"));
        }
        sheet.cells.push_back(cell);
    }
    return sheet;
}

}  // namespace

std::vector<SheetCells> cellsOf(std::string_view workbook) {
    std::vector<SheetCells> sheets;
    for (const auto& entry : ZipReader::entries(workbook)) {
        if (entry.path.starts_with("xl/worksheets/")) {
            const Bytes part = ZipReader::extract(entry, workbook);
            sheets.push_back(cellsOfSheet(part.view()));
        }
    }
    return sheets;
}

}  // namespace corvale::benchmarks
