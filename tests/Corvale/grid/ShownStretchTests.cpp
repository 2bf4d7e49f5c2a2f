#include <gtest/gtest.h>

#include <string>

#include "Corvale/grid/ShownStretch.h"

namespace corvale {
namespace {

constexpr std::size_t cell = 32'767;

TEST(ShownStretch, IsAllOfWhatAWorkbookCellHolds) {
    EXPECT_EQ(ShownStretch::of("", 0), (ShownStretch{0, 0}));
    EXPECT_EQ(ShownStretch::of("text", 4), (ShownStretch{0, 4}));
    EXPECT_EQ(ShownStretch::of(std::string(cell, 'x'), 0), (ShownStretch{0, cell}));
    EXPECT_EQ(ShownStretch::of(std::string(cell, 'x'), cell), (ShownStretch{0, cell}));
    std::string wide;
    for (std::size_t i = 0; i < cell; ++i) {
        wide += "😀";
    }
    EXPECT_EQ(ShownStretch::of(wide, 0), (ShownStretch{0, cell * 4}));
    EXPECT_EQ(ShownStretch::of(wide, cell * 4), (ShownStretch{0, cell * 4}));
}

TEST(ShownStretch, LeavesNothingOutThatIsHardlyMore) {
    EXPECT_EQ(ShownStretch::of(std::string(cell + 999, 'x'), 0), (ShownStretch{0, cell + 999}));
    EXPECT_EQ(ShownStretch::of(std::string(cell + 1000, 'x'), 0), (ShownStretch{0, cell}));
}

TEST(ShownStretch, BeginsShortlyBeforeAPlaceFarBehind) {
    const std::string text(3'000'000, 'x');
    EXPECT_EQ(ShownStretch::of(text, cell - 100), (ShownStretch{0, cell}));
    EXPECT_EQ(ShownStretch::of(text, cell - 99), (ShownStretch{cell - 199, cell - 199 + cell}));
    EXPECT_EQ(ShownStretch::of(text, 2'000'000), (ShownStretch{1'999'900, 1'999'900 + cell}));
    EXPECT_EQ(ShownStretch::of(text, text.size()), (ShownStretch{text.size() - 100, text.size()}));
}

TEST(ShownStretch, CutsNoCharacter) {
    std::string text = "a";
    for (int i = 0; i < 100'000; ++i) {
        text += "€";
    }
    for (std::size_t place = 200'000; place < 200'003; ++place) {
        const ShownStretch shown = ShownStretch::of(text, place);
        EXPECT_EQ(shown.begin % 3, 1U);
        EXPECT_LE(shown.begin, place - 100);
        EXPECT_EQ(shown.end, shown.begin + cell * 3);
    }
}

}  // namespace
}  // namespace corvale
