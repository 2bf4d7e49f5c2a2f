#include <gtest/gtest.h>

#include "CorvaleKit/engine/CellReduction.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

// How the cell of a table of one cell reads once reduced.
std::string reduced(const std::string& cell, const CellReduction& reduction) {
    return std::string(Tables::texts(Tables::table({{cell}}, 1), reduction).row(0)[0]);
}

TEST(CellReduction, KeysAlwaysLoseTheirSpaces) {
    DiffOptions options;
    options.ignoreWhitespace = false;
    EXPECT_EQ(reduced(" a", CellReduction::ofCells(options, NumberStyle::dotDecimal)), " a");
    EXPECT_EQ(reduced(" a", CellReduction::ofKeys(options, NumberStyle::dotDecimal)), "a");
}

TEST(CellReduction, OtherwiseKeysAreReducedAsCellsAre) {
    DiffOptions options;
    EXPECT_EQ(reduced("A 1.0", CellReduction::ofKeys(options, NumberStyle::dotDecimal)), "A 1.0");
    EXPECT_EQ(reduced("1.0", CellReduction::ofKeys(options, NumberStyle::dotDecimal)), "1.0");
    options.ignoreCase = true;
    options.ignoreNumberFormat = true;
    for (const auto& reduction : {CellReduction::ofCells(options, NumberStyle::commaDecimal),
                                  CellReduction::ofKeys(options, NumberStyle::commaDecimal)}) {
        EXPECT_EQ(reduced("AB", reduction), "ab");
        EXPECT_EQ(reduced("1,0", reduction), "1");
    }
}

TEST(CellReduction, ACellThatIsItsOwnReducedTextIsNotRewritten) {
    const CellReduction everything{true, true, true, NumberStyle::dotDecimal};
    std::string target = "kept";
    EXPECT_FALSE(everything.appendRewritten(target, "plain"));
    EXPECT_EQ(target, "kept");
    EXPECT_TRUE(everything.appendRewritten(target, "UPPER"));
    EXPECT_EQ(target, "keptupper");
}

}  // namespace
}  // namespace corvale
