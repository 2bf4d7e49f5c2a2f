#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"

namespace corvale::Text {
namespace {

struct Count {
    std::string_view text;
    std::size_t characters;
};

const std::vector<Count> counts = {
    {"", 0},
    {"a", 1},
    {"abc", 3},
    {"\r\n", 1},
    {"\n\r", 2},
    {"\r\r\n\n", 3},
    {"a\r\nb", 3},
    {"é", 1},
    {"e\u0301", 1},  // a letter and its combining accent
    {"e\u0301\u0323\u0301x", 2},
    {"\u0301", 1},    // an accent without a letter
    {"\n\u0301", 2},  // nothing combines with a line break
    {"🇩🇪", 1},        // a flag is two regional indicators
    {"🇩🇪🇫🇷", 2},
    {"🇩🇪🇫", 2},
    {"a🇩🇪b", 3},
    {"😀😀", 2},
    {"👍🏽", 1},                   // a hand and a skin tone
    {"👩‍👩‍👧‍👦", 1},  // joined with U+200D
    {"👩‍👩‍👧‍👦👩‍💻", 2},
    {"a\u200Db", 2},  // the joiner joins pictures only
    {"❤️", 1},    // a variation selector
    {"1️⃣", 1},   // a keycap
    {"한글", 2},
    {"\u1112\u1161\u11AB", 1},  // the same syllable in three letters
    {"\u1112\u1161\u11AB\u1100\u1173\u11AF", 2},
    {"नि", 1},  // a letter and a spacing vowel sign
    {"กำ", 1},
    {"\u0600\u0661", 1},  // a number sign before its digit
    {"a\u0308\u0304b", 2},
    {"中文", 2},
    {"\U0001F3F4\U000E0067\U000E0062\U000E007F", 1},  // a flag spelled in tags
    {"a\xFFz", 3},
    {"\xE2\x82z", 2},
};

TEST(Characters, AreGraphemeClusters) {
    for (const auto& [text, characters] : counts) {
        EXPECT_EQ(characterCount(text), characters) << text;
    }
}

TEST(Characters, AnEndlessRowOfFlagsPairsUp) {
    std::string flags;
    for (std::size_t indicators = 1; indicators <= 40; ++indicators) {
        flags += "🇦";
        EXPECT_EQ(characterCount(flags), (indicators + 1) / 2);
    }
}

TEST(Characters, TheFirstOnesAreWhole) {
    EXPECT_EQ(firstCharacters("abc", 2), "ab");
    EXPECT_EQ(firstCharacters("abc", 3), "abc");
    EXPECT_EQ(firstCharacters("abc", 4), "abc");
    EXPECT_EQ(firstCharacters("abc", 0), "");
    EXPECT_EQ(firstCharacters("", 5), "");
    EXPECT_EQ(firstCharacters("\r\nx", 1), "\r\n");
    EXPECT_EQ(firstCharacters("e\u0301x", 1), "e\u0301");
    EXPECT_EQ(firstCharacters("👩‍👩‍👧‍👦!", 1), "👩‍👩‍👧‍👦");
    EXPECT_EQ(firstCharacters("🇩🇪🇫🇷🇮🇹", 2), "🇩🇪🇫🇷");
}

TEST(Characters, CutsTakenOneByOneMakeUpTheText) {
    for (const auto& [text, characters] : counts) {
        std::string_view rest = text;
        std::size_t steps = 0;
        while (!rest.empty()) {
            const auto first = firstCharacters(rest, 1);
            ASSERT_FALSE(first.empty()) << text;
            rest.remove_prefix(first.size());
            ++steps;
        }
        EXPECT_EQ(steps, characters) << text;
    }
}

TEST(Characters, MoreThanALimitIsTheCountComparedWithIt) {
    for (const auto& [text, characters] : counts) {
        for (std::size_t limit = 0; limit <= characters + 2; ++limit) {
            EXPECT_EQ(hasMoreCharactersThan(text, limit), characters > limit) << text << " and " << limit;
        }
    }
}

TEST(Characters, AnAsciiTextHasOnePerByteButForLineBreakPairs) {
    std::mt19937 random(5);
    for (int i = 0; i < 2'000; ++i) {
        std::string text(random() % 50, ' ');
        std::size_t pairs = 0;
        for (std::size_t k = 0; k < text.size(); ++k) {
            text[k] = std::string_view("ab\r\n\t")[random() % 5];
            pairs += k > 0 && text[k - 1] == '\r' && text[k] == '\n' ? 1U : 0U;
        }
        EXPECT_EQ(characterCount(text), text.size() - pairs);
    }
}

TEST(DisplayWidth, CountsTerminalColumns) {
    struct Case {
        std::string_view text;
        std::size_t columns;
    };
    const std::vector<Case> cases = {
        {"", 0},
        {"abc", 3},
        {"é", 1},
        {"e\u0301", 1},
        {"中文", 4},
        {"ｆｕｌｌ", 8},
        {"한글", 4},
        {"😀", 2},
        {"a\u200Bb", 2},
        {"\n\t\x7F", 0},
        {"“…”", 3},
        {"→", 1},
        {"\u00A0", 1},
    };
    for (const auto& [text, columns] : cases) {
        EXPECT_EQ(displayWidth(text), columns) << text;
    }
}

}  // namespace
}  // namespace corvale::Text
