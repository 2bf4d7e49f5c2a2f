#include <gtest/gtest.h>

#include <string>

#include "CorvaleKit/reports/StyleSheet.h"

namespace corvale {
namespace {

TEST(StyleSheet, InWhole) {
    EXPECT_EQ(styleSheet(),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
              "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\">"
              "<numFmts count=\"2\">"
              "<numFmt numFmtId=\"164\" formatCode=\"yyyy-mm-dd\"/>"
              "<numFmt numFmtId=\"165\" formatCode=\"yyyy-mm-dd hh:mm\"/>"
              "</numFmts>"
              "<fonts count=\"3\">"
              "<font><sz val=\"11\"/><name val=\"Calibri\"/></font>"
              "<font><b/><sz val=\"11\"/><name val=\"Calibri\"/></font>"
              "<font><sz val=\"11\"/><color rgb=\"FF7F7F7F\"/><name val=\"Calibri\"/></font>"
              "</fonts>"
              "<fills count=\"7\">"
              "<fill><patternFill patternType=\"none\"/></fill>"
              "<fill><patternFill patternType=\"gray125\"/></fill>"
              "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFE7E6E6\"/><bgColor indexed=\"64\"/>"
              "</patternFill></fill>"
              "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFD8F0D2\"/><bgColor indexed=\"64\"/>"
              "</patternFill></fill>"
              "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFF8D7D5\"/><bgColor indexed=\"64\"/>"
              "</patternFill></fill>"
              "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFFFE9A8\"/><bgColor indexed=\"64\"/>"
              "</patternFill></fill>"
              "<fill><patternFill patternType=\"solid\"><fgColor rgb=\"FFDCE9F7\"/><bgColor indexed=\"64\"/>"
              "</patternFill></fill>"
              "</fills>"
              "<borders count=\"1\"><border><left/><right/><top/><bottom/><diagonal/></border></borders>"
              "<cellStyleXfs count=\"1\"><xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/></cellStyleXfs>"
              "<cellXfs count=\"24\">"
              "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
              "<xf numFmtId=\"0\" fontId=\"1\" fillId=\"2\" borderId=\"0\" applyFont=\"1\" applyFill=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"3\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"4\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"1\" fillId=\"5\" borderId=\"0\" applyFont=\"1\" applyFill=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"1\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"0\" fillId=\"6\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"0\" fontId=\"2\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"2\" borderId=\"0\" applyFont=\"1\" "
              "applyFill=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"3\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"4\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"5\" borderId=\"0\" applyFont=\"1\" "
              "applyFill=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"6\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"164\" applyNumberFormat=\"1\" fontId=\"2\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"0\" borderId=\"0\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"2\" borderId=\"0\" applyFont=\"1\" "
              "applyFill=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"3\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"4\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"5\" borderId=\"0\" applyFont=\"1\" "
              "applyFill=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"1\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"0\" fillId=\"6\" borderId=\"0\" applyFill=\"1\"/>"
              "<xf numFmtId=\"165\" applyNumberFormat=\"1\" fontId=\"2\" fillId=\"0\" borderId=\"0\" applyFont=\"1\"/>"
              "</cellXfs></styleSheet>");
}

TEST(StyleSheet, IsBuiltOnce) { EXPECT_EQ(&styleSheet(), &styleSheet()); }

}  // namespace
}  // namespace corvale
