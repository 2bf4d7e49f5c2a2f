#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/loading/CellStyles.h"
#include "tests/support/Workbooks.h"

namespace corvale::XLSX {
namespace {

using Kind = NumberFormat::Kind;
using Formats = std::vector<NumberFormat>;

TEST(CellStyles, EveryStyleHasAFormat) {
    EXPECT_EQ(
        cellFormats(Workbooks::styles({{0}, {14}, {9}, {164, "yyyy-mm-dd hh:mm"}, {165, "000"}, {14}})),
        (Formats{
            {Kind::general}, {Kind::date}, {Kind::percent}, {Kind::dateTime}, {Kind::zeroPadded, 3}, {Kind::date}}));
}

TEST(CellStyles, OnlyTheListOfCellStylesCounts) {
    EXPECT_EQ(cellFormats("<styleSheet><cellStyleXfs><xf numFmtId=\"9\"/></cellStyleXfs><cellXfs><xf numFmtId=\"14\"/>"
                          "</cellXfs><dxfs><xf numFmtId=\"9\"/></dxfs></styleSheet>"),
              (Formats{{Kind::date}}));
}

TEST(CellStyles, AStyleWithoutAUsableIdIsGeneral) {
    EXPECT_EQ(
        cellFormats("<s><cellXfs><xf/><xf numFmtId=\"\"/><xf numFmtId=\"14.0\"/><xf numFmtId=\"+14\"/></cellXfs></s>"),
        (Formats{{}, {}, {}, {Kind::date}}));
}

TEST(CellStyles, CodesMayFollowTheStylesThatUseThem) {
    EXPECT_EQ(cellFormats("<s><cellXfs><xf numFmtId=\"164\"/></cellXfs><numFmts><numFmt numFmtId=\"164\" "
                          "formatCode=\"0%\"/></numFmts></s>"),
              (Formats{{Kind::percent}}));
}

TEST(CellStyles, TheLastCodeOfAnIdWins) {
    EXPECT_EQ(cellFormats("<s><numFmt numFmtId=\"164\" formatCode=\"0%\"/><numFmt numFmtId=\"164\" formatCode=\"000\"/>"
                          "<cellXfs><xf numFmtId=\"164\"/></cellXfs></s>"),
              (Formats{{Kind::zeroPadded, 3}}));
}

TEST(CellStyles, CodesWithoutAnIdOrACodeAreSkipped) {
    EXPECT_EQ(cellFormats("<s><numFmt formatCode=\"0%\"/><numFmt numFmtId=\"x\" formatCode=\"0%\"/>"
                          "<numFmt numFmtId=\"164\" formatCode=\"0%\"/><numFmt numFmtId=\"164\"/>"
                          "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"164\"/><xf numFmtId=\"165\"/></cellXfs></s>"),
              (Formats{{}, {Kind::percent}, {}}));
}

TEST(CellStyles, EntitiesInCodesAreRead) {
    EXPECT_EQ(cellFormats("<s><numFmt numFmtId=\"164\" formatCode=\"&quot;day &quot;000\"/>"
                          "<cellXfs><xf numFmtId=\"164\"/></cellXfs></s>"),
              (Formats{{Kind::zeroPadded, 3}}));
}

TEST(CellStyles, ElementsMayHavePrefixes) {
    EXPECT_EQ(cellFormats("<x:styleSheet xmlns:x=\"u\"><x:cellXfs><x:xf numFmtId=\"14\"/></x:cellXfs></x:styleSheet>"),
              (Formats{{Kind::date}}));
}

TEST(CellStyles, NoMoreAreKeptThanAnyWorkbookHas) {
    std::string codes;
    std::string styles;
    for (std::size_t id = 200; id <= 200 + mostStyles; ++id) {
        codes += "<numFmt numFmtId=\"" + std::to_string(id) + "\" formatCode=\"0%\"/>";
        styles += "<xf numFmtId=\"" + std::to_string(id) + "\"/>";
    }
    codes += "<numFmt numFmtId=\"200\" formatCode=\"000\"/>";
    const Formats formats = cellFormats("<s>" + codes + "<cellXfs>" + styles + "</cellXfs></s>");
    ASSERT_EQ(formats.size(), mostStyles);
    EXPECT_EQ(formats.front(), (NumberFormat{Kind::zeroPadded, 3}));
    EXPECT_EQ(formats.back(), NumberFormat{Kind::percent});
    EXPECT_EQ(cellFormats("<s>" + codes + "<cellXfs><xf numFmtId=\"65736\"/></cellXfs></s>"), Formats{{}});
}

TEST(CellStyles, CodesThatNoProgramWritesPadNothing) {
    EXPECT_EQ(cellFormats(Workbooks::styles({{164, std::string(255, '0')}, {165, std::string(256, '0')}})),
              (Formats{{Kind::zeroPadded, 255}, {}}));
}

}  // namespace
}  // namespace corvale::XLSX
