#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/ZipReader.h"

// Workbooks that we wrote, in the form that a test writes down.
namespace corvale::SheetXml {

// A part of a workbook. Throws std::out_of_range when there is none of that path.
inline std::string part(std::string_view workbook, std::string_view path) {
    const auto member = ZipReader::member(workbook, path);
    if (!member) {
        throw std::out_of_range("no part " + std::string(path));
    }
    return std::string(member->view());
}

// The part of the sheet with that 1-based number.
inline std::string sheet(std::string_view workbook, int number) {
    return part(workbook, "xl/worksheets/sheet" + std::to_string(number) + ".xml");
}

// What stands from one piece to the next one, both left out; empty when there is no such stretch.
inline std::string between(std::string_view xml, std::string_view start, std::string_view end) {
    const std::size_t from = xml.find(start);
    const std::size_t to = from == std::string_view::npos ? from : xml.find(end, from + start.size());
    return to == std::string_view::npos ? "" : std::string(xml.substr(from + start.size(), to - from - start.size()));
}

inline std::string shownCell(std::string_view xml) {
    const std::string reference = between(xml, "<c r=\"", "\"");
    const std::string style = between(xml, "\" s=\"", "\"");
    const std::string number = between(xml, "<v>", "</v>");
    const std::string text = between(xml, "<t xml:space=\"preserve\">", "</t>");
    const std::string letters = reference.substr(0, reference.find_first_of("0123456789"));
    return letters + (style.empty() ? "" : "/" + style) + '=' + (number.empty() ? text : '#' + number);
}

// Each row as its cells: "A/1=Status" for a text with style 1, "C=#3" for a number, "D/2=" for an empty cell.
inline std::vector<std::string> rows(std::string_view xml) {
    std::vector<std::string> all;
    for (std::size_t start = xml.find("<row "); start != std::string_view::npos; start = xml.find("<row ", start + 1)) {
        const std::string_view row = xml.substr(start, xml.find("</row>", start) - start);
        std::string cells;
        for (std::size_t cell = row.find("<c "); cell != std::string_view::npos;) {
            const std::size_t next = row.find("<c ", cell + 1);
            cells += (cells.empty() ? "" : " | ") + shownCell(row.substr(cell, next - cell));
            cell = next;
        }
        all.push_back(cells);
    }
    return all;
}

}  // namespace corvale::SheetXml
