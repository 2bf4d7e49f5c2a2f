#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/loading/CellReference.h"
#include "CorvaleKit/reports/ColumnLetters.h"

namespace corvale {
namespace {

TEST(ColumnLetters, CountAsSpreadsheetsDo) {
    struct Case {
        std::size_t column;
        std::string letters;
    };
    const std::vector<Case> cases = {{0, "A"},
                                     {1, "B"},
                                     {25, "Z"},
                                     {26, "AA"},
                                     {51, "AZ"},
                                     {52, "BA"},
                                     {701, "ZZ"},
                                     {702, "AAA"},
                                     {16'383, "XFD"},
                                     {18'277, "ZZZ"},
                                     {18'278, "AAAA"}};
    for (const auto& [column, letters] : cases) {
        EXPECT_EQ(columnLetters(column), letters) << column;
    }
}

TEST(ColumnLetters, ReadBackAsTheColumn) {
    for (std::size_t column = 0; column < 20'000; ++column) {
        const auto reference = XLSX::cellReference(columnLetters(column) + "1");
        ASSERT_TRUE(reference) << column;
        ASSERT_EQ(reference->column, static_cast<std::int64_t>(column));
    }
}

}  // namespace
}  // namespace corvale
