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
    EXPECT_EQ(ShownStretch::of(std::string(cell + 1000, 'x'), 0), (ShownStretch{0, cell + 1000}));
    EXPECT_EQ(ShownStretch::of(std::string(cell + 1001, 'x'), 0), (ShownStretch{0, cell}));
}

TEST(ShownStretch, BeginsShortlyBeforeAPlaceFarBehind) {
    const std::string text(3'000'000, 'x');
    EXPECT_EQ(ShownStretch::of(text, cell - 1000), (ShownStretch{0, cell}));
    EXPECT_EQ(ShownStretch::of(text, cell - 999), (ShownStretch{cell - 1999, cell - 1999 + cell}));
    EXPECT_EQ(ShownStretch::of(text, 2'000'000), (ShownStretch{1'999'000, 1'999'000 + cell}));
    EXPECT_EQ(ShownStretch::of(text, text.size()), (ShownStretch{text.size() - 1000, text.size()}));
}

TEST(ShownStretch, CutsNoCharacter) {
    std::string text = "a";
    for (int i = 0; i < 100'000; ++i) {
        text += "€";
    }
    for (std::size_t place = 200'000; place < 200'003; ++place) {
        const ShownStretch shown = ShownStretch::of(text, place);
        EXPECT_EQ(shown.begin % 3, 1U);
        EXPECT_LE(shown.begin, place - 1000);
        EXPECT_EQ(shown.end, shown.begin + cell * 3);
    }
}

TEST(ShownStretch, CountsCharactersOfUnicode) { EXPECT_EQ(characterCount("aé€😀e\u0301"), 6U); }

}  // namespace
}  // namespace corvale
