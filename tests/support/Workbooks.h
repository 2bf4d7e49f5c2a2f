#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ZipBuilder.h"

// Workbooks of a few parts, for tests of the workbook reader.
namespace corvale::Workbooks {

using Parts = std::map<std::string, std::string>;  // by path

inline std::string package(const Parts& parts) {
    std::vector<ZipBuilder::Member> members;
    for (const auto& [path, content] : parts) {
        members.push_back({path, content});
    }
    return ZipBuilder::archive(members);
}

// A worksheet part of those rows.
inline std::string worksheet(std::string_view rows) {
    return "<worksheet><sheetData>" + std::string(rows) + "</sheetData></worksheet>";
}

// Rows of texts, which may hold no markup.
inline std::string textRows(const std::vector<std::vector<std::string>>& rows) {
    std::string xml;
    for (const auto& row : rows) {
        xml += "<row>";
        for (const auto& text : row) {
            xml += "<c t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
        }
        xml += "</row>";
    }
    return xml;
}

struct Sheet {
    std::string name;
    std::string rows;
};

// A workbook of those sheets.
inline std::string ofSheets(const std::vector<Sheet>& sheets) {
    Parts parts;
    std::string list;
    std::string relationships;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        list += "<sheet name=\"" + sheets[i].name + "\" sheetId=\"" + number + "\" r:id=\"rId" + number + "\"/>";
        relationships += "<Relationship Id=\"rId" + number + "\" Target=\"worksheets/sheet" + number + ".xml\"/>";
        parts["xl/worksheets/sheet" + number + ".xml"] = worksheet(sheets[i].rows);
    }
    parts["xl/workbook.xml"] = "<workbook><sheets>" + list + "</sheets></workbook>";
    parts["xl/_rels/workbook.xml.rels"] = "<Relationships>" + relationships + "</Relationships>";
    return package(parts);
}

// A part of shared strings, each given as what stands inside its si element.
inline std::string sharedStrings(const std::vector<std::string>& strings) {
    std::string xml = "<sst>";
    for (const auto& string : strings) {
        xml += "<si>" + string + "</si>";
    }
    return xml + "</sst>";
}

struct Format {
    int numFmtId = 0;
    std::string code = {};  // empty: none
};

inline std::string numberFormat(const std::string& id, const std::string& code) {
    return "<numFmt " + id + " formatCode=\"" + code + "\"/>";
}

// A styles part with one style a format. Codes may hold no markup.
inline std::string styles(const std::vector<Format>& formats) {
    std::string codes;
    std::string list;
    for (const auto& [id, code] : formats) {
        const std::string attribute = "numFmtId=\"" + std::to_string(id) + "\"";
        if (!code.empty()) {
            codes += numberFormat(attribute, code);
        }
        list += "<xf " + attribute + "/>";
    }
    return "<styleSheet><numFmts>" + codes + "</numFmts><cellXfs>" + list + "</cellXfs></styleSheet>";
}

// The parts of a workbook whose only sheet is named Data and has those rows.
inline Parts oneSheet(std::string_view rows) {
    return {{"xl/workbook.xml", "<workbook><sheets><sheet name=\"Data\" sheetId=\"1\"/></sheets></workbook>"},
            {"xl/worksheets/sheet1.xml", worksheet(rows)}};
}

}  // namespace corvale::Workbooks
