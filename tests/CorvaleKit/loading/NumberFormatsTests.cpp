#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "CorvaleKit/loading/XLSX.h"

namespace corvale::XLSX {

// Shown by a failing test.
std::ostream& operator<<(std::ostream& stream, const NumberFormat& format) {
    return stream << "kind " << static_cast<int>(format.kind) << ", digits " << format.digits;
}

namespace {

using Kind = NumberFormat::Kind;

struct CodeCase {
    std::string code;
    NumberFormat format;
};

void expectFormats(const std::vector<CodeCase>& cases) {
    for (const auto& [code, format] : cases) {
        EXPECT_EQ(numberFormat(164, code), format) << code;
    }
}

Kind builtInKind(std::int64_t id) {
    if ((id >= 14 && id <= 17) || (id >= 27 && id <= 36) || (id >= 50 && id <= 58)) {
        return Kind::date;
    }
    if ((id >= 18 && id <= 21) || (id >= 45 && id <= 47)) {
        return Kind::time;
    }
    if (id == 22) {
        return Kind::dateTime;
    }
    return id == 9 || id == 10 ? Kind::percent : Kind::general;
}

TEST(NumberFormats, BuiltInIdsNeedNoCode) {
    for (std::int64_t id = -1; id <= 200; ++id) {
        EXPECT_EQ(numberFormat(id, std::nullopt), NumberFormat{builtInKind(id)}) << id;
    }
}

TEST(NumberFormats, BuiltInIdsGoBeforeACode) {
    EXPECT_EQ(numberFormat(14, "0%"), NumberFormat{Kind::date});
    EXPECT_EQ(numberFormat(9, "yyyy"), NumberFormat{Kind::percent});
    EXPECT_EQ(numberFormat(0, "yyyy"), NumberFormat{Kind::date});
    EXPECT_EQ(numberFormat(13, "yyyy"), NumberFormat{Kind::date});
    EXPECT_EQ(numberFormat(-5, "00"), (NumberFormat{Kind::zeroPadded, 2}));
}

TEST(NumberFormats, DaysAndYearsMakeADate) {
    expectFormats({
        {"yyyy-mm-dd", {Kind::date}},
        {"d", {Kind::date}},
        {"y", {Kind::date}},
        {"DD/MM/YYYY", {Kind::date}},
        {"d mmm yyyy", {Kind::date}},
        {"yyyy-mm-dd 0%", {Kind::date}},
        {"Standard", {Kind::dateTime}},
    });
}

TEST(NumberFormats, DaysWithHoursOrSecondsMakeADateTime) {
    expectFormats({
        {"yyyy-mm-dd hh:mm", {Kind::dateTime}},
        {"d h", {Kind::dateTime}},
        {"dss", {Kind::dateTime}},
        {"yyyy-mm-dd\\Thh:mm:ss", {Kind::dateTime}},
    });
}

TEST(NumberFormats, HoursOrSecondsAloneMakeATime) {
    expectFormats({
        {"h:mm", {Kind::time}},
        {"hh:mm:ss AM/PM", {Kind::time}},
        {"h", {Kind::time}},
        {"mm:ss", {Kind::time}},
        {"ss.000", {Kind::time}},
        {"[h]:mm:ss", {Kind::time}},
        {"[mm]:ss", {Kind::time}},
        {"s%", {Kind::time}},
        {"H", {Kind::time}},
    });
}

TEST(NumberFormats, AnMAloneIsAMonthUnlessThereAreDigits) {
    expectFormats({
        {"mmm", {Kind::date}},
        {"M", {Kind::date}},
        {"mmm%", {Kind::date}},
        {"0m", {Kind::general}},
        {"#m", {Kind::general}},
        {"0m%", {Kind::percent}},
    });
}

TEST(NumberFormats, APercentSignMakesAPercentage) {
    expectFormats({
        {"0%", {Kind::percent}},
        {"0.00%", {Kind::percent}},
        {"%", {Kind::percent}},
        {"00%", {Kind::percent}},
        {"0\\%", {Kind::general}},
        {"0\"%\"", {Kind::general}},
    });
}

TEST(NumberFormats, ZerosAloneGiveTheDigits) {
    expectFormats({
        {"00", {Kind::zeroPadded, 2}},
        {"00000", {Kind::zeroPadded, 5}},
        {"[Red]000", {Kind::zeroPadded, 3}},
        {"\"No. \"0000", {Kind::zeroPadded, 4}},
        {"0\\-0", {Kind::zeroPadded, 2}},
        {"0", {Kind::general}},
        {"00.0", {Kind::general}},
        {"#00", {Kind::general}},
        {"00;-00", {Kind::general}},
        {"00 ", {Kind::general}},
        {std::string(40, '0'), {Kind::zeroPadded, 40}},
    });
}

TEST(NumberFormats, AllElseIsGeneral) {
    expectFormats({
        {"", {Kind::general}},
        {"General", {Kind::general}},
        {"[Red]0.00", {Kind::general}},
        {"#,##0.00", {Kind::general}},
        {"0.00E+00", {Kind::general}},
        {"# ?/?", {Kind::general}},
        {"@", {Kind::general}},
        {"_(* #,##0_);_(* (#,##0);_(* \"-\"_);_(@_)", {Kind::general}},
    });
}

TEST(NumberFormats, LiteralTextsAndBracketsSayNothing) {
    expectFormats({
        {"0\" days\"", {Kind::general}},
        {"\"year\"0", {Kind::general}},
        {"0\\d", {Kind::general}},
        {"0\\\\d", {Kind::date}},
        {"[$-F800]0", {Kind::general}},
        {"[$-409]mmm", {Kind::date}},
        {"[hh]", {Kind::general}},
        {"[Red][<100]0;[Blue]0", {Kind::general}},
        {"\"[\"d\"]\"", {Kind::date}},
        {"[\"]d[\"]", {Kind::date}},
        {"\"\\\"d", {Kind::date}},
        {"[\\]d", {Kind::date}},
        {"\\\"d\\\"", {Kind::date}},
        {"\\[d", {Kind::date}},
        {"]d", {Kind::date}},
    });
}

TEST(NumberFormats, AnUnclosedQuoteOrBracketDropsTheRest) {
    expectFormats({
        {"0\"yyyy", {Kind::general}},
        {"0[yyyy", {Kind::general}},
        {"00\"", {Kind::zeroPadded, 2}},
        {"00[", {Kind::zeroPadded, 2}},
        {"00\\", {Kind::zeroPadded, 2}},
        {"yyyy\" de ", {Kind::date}},
    });
}

TEST(NumberFormats, ABackslashEscapesAWholeCharacter) {
    expectFormats({
        {"00\\é", {Kind::zeroPadded, 2}},
        {"00\\e\u0301", {Kind::zeroPadded, 2}},
        {"00\\\U0001F600", {Kind::zeroPadded, 2}},
        {"00é", {Kind::general}},
    });
}

}  // namespace
}  // namespace corvale::XLSX
