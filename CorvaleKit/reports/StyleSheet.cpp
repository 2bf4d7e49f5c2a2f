#include "CorvaleKit/reports/StyleSheet.h"

#include <array>
#include <string_view>

namespace corvale {

namespace {

constexpr std::string_view start =
    "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
    "<numFmts count=\"2\"><numFmt numFmtId=\"164\" formatCode=\"yyyy-mm-dd\"/>"
    "<numFmt numFmtId=\"165\" formatCode=\"yyyy-mm-dd hh:mm\"/></numFmts>"
    "<fonts count=\"3\"><font><sz val=\"11\"/><name val=\"Calibri\"/></font>"
    "<font><b/><sz val=\"11\"/><name val=\"Calibri\"/></font>"
    "<font><sz val=\"11\"/><color rgb=\"FF7F7F7F\"/><name val=\"Calibri\"/></font></fonts>";

constexpr std::array<std::string_view, 5> solidFills{"FFE7E6E6", "FFD8F0D2", "FFF8D7D5", "FFFFE9A8", "FFDCE9F7"};

constexpr std::string_view betweenFillsAndFormats =
    "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
    "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>";

// What follows the number format in each of the eight.
constexpr std::array<std::string_view, styleCount> formats{
    " fontId=\"0\" fillId=\"0\" borderId=\"0\"/>",
    " fontId=\"1\" fillId=\"2\" borderId=\"0\" applyFont=\"1\" applyFill=\"1\"/>",
    " fontId=\"0\" fillId=\"3\" borderId=\"0\" applyFill=\"1\"/>",
    " fontId=\"0\" fillId=\"4\" borderId=\"0\" applyFill=\"1\"/>",
    " fontId=\"1\" fillId=\"5\" borderId=\"0\" applyFont=\"1\" applyFill=\"1\"/>",
    " fontId=\"1\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>",
    " fontId=\"0\" fillId=\"6\" borderId=\"0\" applyFill=\"1\"/>",
    " fontId=\"2\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>",
};

constexpr std::array<std::string_view, 3> numberFormats{
    "numFmtId=\"0\"",
    "numFmtId=\"164\" applyNumberFormat=\"1\"",
    "numFmtId=\"165\" applyNumberFormat=\"1\"",
};

void appendFills(std::string& xml) {
    xml +=
        "<fills count=\"7\"><fill><patternFill patternType=\"none\"/></fill>"
        "<fill><patternFill patternType=\"gray125\"/></fill>";
    for (const auto colour : solidFills) {
        xml += "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"";
        xml += colour;
        xml += "\"/><bgColor indexed=\"64\"/></patternFill></fill>";
    }
    xml += "</fills>";
}

void appendCellFormats(std::string& xml) {
    xml += "<cellXfs count=\"24\">";
    for (const auto numberFormat : numberFormats) {
        for (const auto format : formats) {
            xml += "<xf ";
            xml += numberFormat;
            xml += format;
        }
    }
    xml += "</cellXfs>";
}

std::string built() {
    std::string xml(start);
    appendFills(xml);
    xml += betweenFillsAndFormats;
    appendCellFormats(xml);
    return xml += "</styleSheet>";
}

}  // namespace

const std::string& styleSheet() {
    static const std::string xml = built();
    return xml;
}

}  // namespace corvale
