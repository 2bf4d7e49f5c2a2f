#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/loading/CellReference.h"

namespace corvale::XLSX {
namespace {

TEST(CellReference, IsLettersThenDigits) {
    struct Case {
        std::string text;
        std::int64_t row;
        std::int64_t column;
    };
    const std::vector<Case> cases = {
        {"A1", 0, 0},
        {"B1", 0, 1},
        {"Z1", 0, 25},
        {"AA1", 0, 26},
        {"AB12", 11, 27},
        {"AZ1", 0, 51},
        {"BA1", 0, 52},
        {"ZZ1", 0, 701},
        {"AAA1", 0, 702},
        {"ALL1", 0, 999},
        {"ALM1", 0, 1000},
        {"XFD1048576", 1'048'575, 16'383},
        {"ab12", 11, 27},
        {"aB12", 11, 27},
        {"A01", 0, 0},
        {"A9223372036854775807", 9'223'372'036'854'775'806, 0},
    };
    for (const auto& [text, row, column] : cases) {
        EXPECT_EQ(cellReference(text), (CellReference{row, column})) << text;
    }
}

TEST(CellReference, AllElseIsNone) {
    for (const std::string text : {"",
                                   "A",
                                   "1",
                                   "1A",
                                   "A0",
                                   "A-1",
                                   "A+1",
                                   "$A$1",
                                   "A1:B2",
                                   "A1 ",
                                   " A1",
                                   "A 1",
                                   "A1a",
                                   "Ä1",
                                   "A9223372036854775808",
                                   "A99999999999999999999",
                                   "@1",
                                   "[1",
                                   "`1",
                                   "{1"}) {
        EXPECT_EQ(cellReference(text), std::nullopt) << text;
    }
}

TEST(CellReference, AColumnOfAnyLengthStaysFarToTheRight) {
    for (const std::size_t letters : {9U, 14U, 100U, 100'000U}) {
        const auto reference = cellReference(std::string(letters, 'Z') + "5");
        ASSERT_TRUE(reference);
        EXPECT_EQ(reference->row, 4);
        EXPECT_GT(reference->column, 1'000'000'000);
        EXPECT_LT(reference->column, std::int64_t{1} << 41U);
    }
}

}  // namespace
}  // namespace corvale::XLSX
