#pragma once

#include <string>
#include <vector>

#include "tests/support/Workbooks.h"

namespace corvale::Cli {

struct TextSheet {
    std::string name;
    std::vector<std::vector<std::string>> rows;
};

// A workbook of texts without markup.
inline std::string textWorkbook(const std::vector<TextSheet>& sheets) {
    Workbooks::Parts parts;
    std::string list;
    for (const TextSheet& sheet : sheets) {
        std::string rows;
        for (const auto& cells : sheet.rows) {
            rows += "<row>";
            for (const std::string& cell : cells) {
                rows += "<c t=\"str\"><v>" + cell + "</v></c>";
            }
            rows += "</row>";
        }
        list += "<sheet name=\"" + sheet.name + "\"/>";
        parts["xl/worksheets/sheet" + std::to_string(parts.size() + 1) + ".xml"] = Workbooks::worksheet(rows);
    }
    parts["xl/workbook.xml"] = "<workbook><sheets>" + list + "</sheets></workbook>";
    return Workbooks::package(parts);
}

}  // namespace corvale::Cli
