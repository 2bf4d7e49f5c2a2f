#include <gtest/gtest.h>

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"

namespace corvale::Cli::DisplayText {
namespace {

TEST(DisplayText, PlainTextStaysAsItIs) {
    for (const char* text : {"", "Gel pen", "Größe → 12 €", "日本", "👩‍🚀"}) {
        EXPECT_EQ(printable(text), text);
    }
}

TEST(DisplayText, NothingThatATerminalActsUponComesThrough) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"\x1b[31mred", "␛[31mred"},
        {"a\nb", "a↵b"},
        {"a\r\nb\rc", "a↵b↵c"},
        {"a\u2028b\u2029c\u0085d", "a↵b↵c↵d"},
        {"a\tb", "a⇥b"},
        {"a\a\b\x7F", "a␇␈␡"},
        {"\u009B31m", "\uFFFD31m"},
        {"a\u202Eb\u2066c", "a\uFFFDb\uFFFDc"},
        {std::string_view("a\0b", 3), "a␀b"},
        {"a\xFF", "a\uFFFD"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(printable(text), expected);
    }
}

TEST(DisplayText, AMessageIsOneLine) {
    EXPECT_EQ(oneLine("“a\nb\r\nc” is empty."), "“a b c” is empty.");
    EXPECT_EQ(oneLine("\x1b]0;x\a"), "␛]0;x␇");
}

TEST(DisplayText, ShortenedTextFitsAndSaysSo) {
    EXPECT_EQ(shortened("abcdef", 6), "abcdef");
    EXPECT_EQ(shortened("abcdef", 5), "abcd…");
    EXPECT_EQ(shortened("abcdef", 1), "…");
    EXPECT_EQ(shortened("abcdef", 0), "");
    EXPECT_EQ(shortened("日本語", 6), "日本語");
    EXPECT_EQ(shortened("日本語", 5), "日本…");
    EXPECT_EQ(shortened("日本語", 4), "日…");
    EXPECT_EQ(shortened("e\u0301e\u0301e\u0301", 2), "e\u0301…");
}

TEST(DisplayText, APathKeepsItsEnd) {
    EXPECT_EQ(shortenedAtStart("data/2024/prices.csv", 20), "data/2024/prices.csv");
    EXPECT_EQ(shortenedAtStart("data/2024/prices.csv", 11), "…prices.csv");
}

TEST(DisplayText, AKeyKeepsBothEnds) {
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 8), "abcdefgh");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 7), "abc…fgh");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 6), "abc…gh");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 3), "a…h");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 2), "a…");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 1), "…");
    EXPECT_EQ(shortenedInMiddle("abcdefgh", 0), "");
    EXPECT_EQ(shortenedInMiddle("", 0), "");
}

TEST(DisplayText, WhatIsCutInTheMiddleIsMadeOfWholeCharacters) {
    EXPECT_EQ(shortenedInMiddle("日本語日本語", 12), "日本語日本語");
    EXPECT_EQ(shortenedInMiddle("日本語日本語", 9), "日本…本語");
    EXPECT_EQ(shortenedInMiddle("日本語日本語", 8), "日本…語");
    EXPECT_EQ(shortenedInMiddle("日本語日本語", 7), "日…本語");
    EXPECT_EQ(shortenedInMiddle("e\u0301e\u0301e\u0301e\u0301", 3), "e\u0301…e\u0301");
    EXPECT_EQ(shortenedInMiddle("👩‍🚀abc👩‍🚀", 9), "👩‍🚀…👩‍🚀");
    EXPECT_EQ(shortenedInMiddle("👩‍🚀abc👩‍🚀", 8), "👩‍🚀…");
}

TEST(DisplayText, TheFirstDifferenceStaysInSight) {
    const std::string common(100, 'x');
    const Pair pair = shortenedPair(common + "OLD and more", common + "NEW and more", 30, 30);
    EXPECT_NE(pair.before.find("OLD"), std::string::npos) << pair.before;
    EXPECT_NE(pair.after.find("NEW"), std::string::npos) << pair.after;
    EXPECT_EQ(pair.before.rfind("…", 0), 0U);
}

TEST(DisplayText, ADifferenceNearTheStartKeepsTheStart) {
    const Pair pair = shortenedPair("one " + std::string(50, 'x'), "two " + std::string(50, 'x'), 10, 54);
    EXPECT_EQ(pair.before, "one xxxxx…");
    EXPECT_EQ(pair.after, "two " + std::string(50, 'x'));
}

TEST(DisplayText, ADifferenceAtTheEndUsesTheWholeRoom) {
    const Pair pair = shortenedPair(std::string(50, 'x') + "A", std::string(50, 'x') + "B", 20, 20);
    EXPECT_EQ(pair.before, "…" + std::string(18, 'x') + "A");
    EXPECT_EQ(pair.after, "…" + std::string(18, 'x') + "B");
}

TEST(DisplayText, NoWidthIsEverExceeded) {
    const std::string texts[] = {
        "", "a", "abcdefghij", "日本語日本語", "aé日👍b", "xxxxxxxxxxA", "xxxxxxxxxxB", "日本語日本x"};
    for (const std::string& before : texts) {
        for (const std::string& after : texts) {
            for (std::size_t width = 1; width < 14; ++width) {
                const Pair pair = shortenedPair(before, after, width, width);
                EXPECT_LE(Text::displayWidth(pair.before), width) << before << " / " << after;
                EXPECT_LE(Text::displayWidth(pair.after), width) << before << " / " << after;
                EXPECT_LE(Text::displayWidth(shortened(before, width)), width);
                EXPECT_LE(Text::displayWidth(shortenedAtStart(before, width)), width);
                EXPECT_LE(Text::displayWidth(shortenedInMiddle(before, width)), width);
            }
        }
    }
}

TEST(DisplayText, ThousandsAreGrouped) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1204567), "1,204,567");
}

TEST(DisplayText, OneIsOneAndAnyOtherNumberIsMany) {
    EXPECT_EQ(counted(0, "row", "rows"), "0 rows");
    EXPECT_EQ(counted(1, "row", "rows"), "1 row");
    EXPECT_EQ(counted(1204, "row", "rows"), "1,204 rows");
}

}  // namespace
}  // namespace corvale::Cli::DisplayText
