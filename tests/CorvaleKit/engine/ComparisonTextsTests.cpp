#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "tests/support/Grids.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Tables::table;
using Texts = std::vector<std::string>;

constexpr CellReduction nothing{false, false, false, NumberStyle::dotDecimal};
constexpr CellReduction whitespace{true, false, false, NumberStyle::dotDecimal};
constexpr CellReduction everything{true, true, true, NumberStyle::dotDecimal};

Texts row(const ComparisonTexts& texts, std::size_t index) {
    Texts all;
    for (std::size_t position = 0; position < texts.columnCount(); ++position) {
        all.emplace_back(texts.row(index)[position]);
    }
    return all;
}

std::string reduced(const std::string& cell, const CellReduction& reduction) {
    return row(ComparisonTexts(DataTable({"A"}, {{cell}}, "t"), {0}, reduction), 0)[0];
}

TEST(ComparisonTexts, WithoutAnOptionEveryCellIsItsOwnText) { EXPECT_EQ(reduced("  A  b ", nothing), "  A  b "); }

TEST(ComparisonTexts, OptionsApplyInOrder) {
    const struct {
        std::string cell;
        CellReduction reduction;
        std::string text;
    } cases[] = {
        {"  A  b ", whitespace, "A b"},
        {" 1,250.00 ", {true, true, false, NumberStyle::dotDecimal}, "1250"},
        {" 1,250.00 ", {false, true, false, NumberStyle::dotDecimal}, "1250"},
        {"1,250", {false, true, false, NumberStyle::commaDecimal}, "1.25"},
        {"1E3", everything, "1000"},
        {"ÀB", everything, "àb"},
        {"İ", everything, "i\u0307"},
        {"abc", everything, "abc"},
        {"1e15", everything, "1e+15"},
        {"", everything, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(reduced(c.cell, c.reduction), c.text) << c.cell;
    }
}

TEST(ComparisonTexts, PositionsFollowTheGivenColumns) {
    const ComparisonTexts texts(table("A,B,C\n a , b ,c\nx,y,z\n"), {2, 0}, whitespace);
    EXPECT_EQ(row(texts, 0), (Texts{"c", "a"}));
    EXPECT_EQ(row(texts, 1), (Texts{"z", "x"}));
    EXPECT_EQ(texts.position(0), 1U);
    EXPECT_EQ(texts.position(1), ComparisonTexts::absent);
    EXPECT_EQ(texts.column(0), 2U);
}

TEST(ComparisonTexts, ThinRowsOfWideTablesReadTheSame) {
    const CellRows thin(Grids::scattered({{{5, " x "}, {990, "Y  y"}}, {}, {{0, "a"}}}));
    DataTable::Parts parts;
    parts.headers.resize(1000);
    parts.rows = thin.selected({0, 1, 2}, 1000);
    parts.rowNumbers = {2, 3, 4};
    std::vector<std::size_t> reversed;
    for (std::size_t column = 1000; column > 0; --column) {
        reversed.push_back(column - 1);
    }
    const ComparisonTexts texts(DataTable(std::move(parts)), reversed, everything);
    EXPECT_EQ(texts.row(0)[999 - 5], "x");
    EXPECT_EQ(texts.row(0)[999 - 990], "y y");
    EXPECT_EQ(texts.row(0)[500], "");
    EXPECT_EQ(texts.row(2)[999], "a");
}

TEST(ComparisonTexts, RowsBeforeTheFirstRewrittenOneStayAsTheyAre) {
    const ComparisonTexts texts(table("A\na\nb\n c \nd\n e\n"), {0}, whitespace);
    Texts all;
    for (std::size_t i = 0; i < texts.rowCount(); ++i) {
        all.push_back(row(texts, i)[0]);
    }
    EXPECT_EQ(all, (Texts{"a", "b", "c", "d", "e"}));
}

TEST(ComparisonTexts, TellsEvery4096thRowBeforeItIsReduced) {
    const DataTable many({"A"}, std::vector<Texts>(8193, Texts{"x"}), "t");
    std::vector<std::size_t> rows;
    const ComparisonTexts texts(many, {0}, whitespace, [&](std::size_t row) { rows.push_back(row); });
    EXPECT_EQ(rows, (std::vector<std::size_t>{0, 4096, 8192}));
}

TEST(ComparisonTexts, UnchangedCellsAreNotCopied) {
    const DataTable source = table("A,B\nclean,un  clean\n");
    const ComparisonTexts texts(source, {0, 1}, whitespace);
    EXPECT_EQ(static_cast<const void*>(texts.row(0)[0].data()), static_cast<const void*>(source.rows()[0][0].data()));
    EXPECT_EQ(texts.row(0)[1], "un clean");
}

TEST(ComparisonTexts, AReducedTextIsKeptAndNotMadeAgain) {
    const ComparisonTexts texts(table("A\n un  clean \n"), {0}, whitespace);
    const std::string_view first = texts.row(0)[0];
    EXPECT_EQ(first, "un clean");
    EXPECT_EQ(static_cast<const void*>(texts.row(0)[0].data()), static_cast<const void*>(first.data()));
}

TEST(ComparisonTexts, CellsThatShareALongStringShareItsReducedText) {
    const std::string shared = std::string(1000, 'x') + "  " + std::string(1000, 'y');
    const std::string clean(1000, 'z');
    CellGridBuilder builder;
    for (int i = 0; i < 3; ++i) {
        builder.addRow(std::vector<CellGridBuilder::PlacedCell>{
            {0, builder.packed(0, shared.size())},
            {1, builder.packed(0, shared.size())},
            {2, builder.packed(shared.size(), clean.size())},
        });
    }
    DataTable::Parts parts;
    parts.headers = {"A", "B", "C"};
    parts.rows = CellRows(builder.finish(Bytes(shared + clean))).selected({0, 1, 2}, 3);
    parts.rowNumbers = {2, 3, 4};
    const ComparisonTexts texts(DataTable(std::move(parts)), {2, 1, 0}, whitespace);
    const std::string_view first = texts.row(0)[1];
    EXPECT_EQ(first, std::string(1000, 'x') + " " + std::string(1000, 'y'));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(texts.row(i)[0], clean);
        EXPECT_EQ(static_cast<const void*>(texts.row(i)[1].data()), static_cast<const void*>(first.data()));
        EXPECT_EQ(static_cast<const void*>(texts.row(i)[2].data()), static_cast<const void*>(first.data()));
    }
}

TEST(ComparisonTexts, KeepTheirTable) {
    const auto texts = [] { return ComparisonTexts(table("A,B\nclean,un  clean\n"), {0, 1}, whitespace); }();
    EXPECT_EQ(row(texts, 0), (Texts{"clean", "un clean"}));
}

}  // namespace
}  // namespace corvale
