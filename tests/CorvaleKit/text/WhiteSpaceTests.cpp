#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::Text {
namespace {

// Tab and category Zs, in full.
const std::set<char32_t> spaces = {0x09,
                                   0x20,
                                   0xA0,
                                   0x1680,
                                   0x2000,
                                   0x2001,
                                   0x2002,
                                   0x2003,
                                   0x2004,
                                   0x2005,
                                   0x2006,
                                   0x2007,
                                   0x2008,
                                   0x2009,
                                   0x200A,
                                   0x202F,
                                   0x205F,
                                   0x3000};
const std::set<char32_t> lineBreaks = {0x0A, 0x0B, 0x0C, 0x0D, 0x85, 0x2028, 0x2029};

std::string utf8(char32_t scalar) {
    std::string text;
    Utf8::append(text, scalar);
    return text;
}

template <typename Visit>
void forEveryScalar(Visit visit) {
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        if (scalar < 0xD800 || scalar > 0xDFFF) {
            visit(scalar);
        }
    }
}

TEST(WhiteSpace, SpacesAreTabAndTheSpaceSeparatorsAlone) {
    forEveryScalar([](char32_t scalar) {
        ASSERT_EQ(isSpace(scalar), spaces.contains(scalar)) << std::hex << static_cast<unsigned>(scalar);
    });
}

TEST(WhiteSpace, LineBreaksAreTheSevenOfThem) {
    forEveryScalar([](char32_t scalar) {
        ASSERT_EQ(isSpaceOrLineBreak(scalar), spaces.contains(scalar) || lineBreaks.contains(scalar))
            << std::hex << static_cast<unsigned>(scalar);
    });
}

TEST(WhiteSpace, NoBreakAndZeroWidthLookalikes) {
    EXPECT_TRUE(isSpace(U'\u00A0'));
    EXPECT_FALSE(isSpaceOrLineBreak(U'\u200B'));  // zero width space
    EXPECT_FALSE(isSpaceOrLineBreak(U'\u180E'));  // Mongolian vowel separator, a format character since Unicode 6.3
    EXPECT_FALSE(isSpaceOrLineBreak(U'\uFEFF'));
    EXPECT_FALSE(isSpaceOrLineBreak(U'\u001C'));
}

TEST(WhiteSpace, EveryScalarIsTrimmedExactlyWhenItIsWhiteSpace) {
    forEveryScalar([](char32_t scalar) {
        const std::string one = utf8(scalar);
        const std::string around = one + "x" + one;
        const bool isTrimmed = isSpace(scalar);
        const bool isTrimmedWithBreaks = isSpaceOrLineBreak(scalar);
        ASSERT_EQ(trimSpaces(around), isTrimmed ? "x" : around);
        ASSERT_EQ(trimSpacesAndLineBreaks(around), isTrimmedWithBreaks ? "x" : around);
        ASSERT_EQ(isBlank(one), isTrimmed);
    });
}

TEST(WhiteSpace, TrimsBothEndsAndKeepsTheMiddle) {
    struct Case {
        std::string_view text;
        std::string_view spacesTrimmed;
        std::string_view breaksTrimmed;
        std::string_view startTrimmed;
        std::string_view endTrimmed;
    };
    const std::vector<Case> cases = {
        {"", "", "", "", ""},
        {"a", "a", "a", "a", "a"},
        {" ", "", "", "", ""},
        {"\t \u00A0\u3000", "", "", "", ""},
        {"  a b  ", "a b", "a b", "a b  ", "  a b"},
        {"\n a \n", "\n a \n", "a", "\n a \n", "\n a \n"},
        {" \r\na\u2028 ", "\r\na\u2028", "a", "\r\na\u2028 ", " \r\na\u2028"},
        {"\u2003é\u2003", "é", "é", "é\u2003", "\u2003é"},
        {"\v\f\u0085x", "\v\f\u0085x", "x", "\v\f\u0085x", "\v\f\u0085x"},
        {"a\x7F ", "a\x7F", "a\x7F", "a\x7F ", "a\x7F"},
        {" \x80 ", "\x80", "\x80", "\x80 ", " \x80"},  // a byte that is no text is no space either
        {"\xA0", "\xA0", "\xA0", "\xA0", "\xA0"},
        {"x\xC2 ", "x\xC2", "x\xC2", "x\xC2 ", "x\xC2"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(trimSpaces(row.text), row.spacesTrimmed) << row.text;
        EXPECT_EQ(trimSpacesAndLineBreaks(row.text), row.breaksTrimmed) << row.text;
        EXPECT_EQ(trimSpacesAtStart(row.text), row.startTrimmed) << row.text;
        EXPECT_EQ(trimSpacesAtEnd(row.text), row.endTrimmed) << row.text;
        EXPECT_EQ(isBlank(row.text), row.spacesTrimmed.empty()) << row.text;
    }
}

TEST(WhiteSpace, ATrimmedTextPointsIntoItsSource) {
    const std::string source = "  ab ";
    EXPECT_EQ(trimSpaces(source).data(), source.data() + 2);
    EXPECT_EQ(trimSpacesAndLineBreaks(source).data(), source.data() + 2);
}

TEST(WhiteSpace, LettersAndDigitsOfAnyScript) {
    for (const char32_t letter : {U'a', U'Z', U'é', U'ß', U'ǅ', U'ʰ', U'ا', U'中', U'\U00010400'}) {
        EXPECT_TRUE(isLetter(letter)) << static_cast<unsigned>(letter);
        EXPECT_FALSE(isDigit(letter)) << static_cast<unsigned>(letter);
    }
    for (const char32_t digit : {U'0', U'9', U'٣', U'९', U'０', U'\U0001D7D8'}) {
        EXPECT_TRUE(isDigit(digit)) << static_cast<unsigned>(digit);
        EXPECT_FALSE(isLetter(digit)) << static_cast<unsigned>(digit);
    }
    // A Roman numeral, a superscript, a fraction, a combining accent, a circled digit: neither.
    for (const char32_t other : {U'Ⅷ', U'²', U'½', U'\u0301', U'①', U'_', U'-', U' '}) {
        EXPECT_FALSE(isLetter(other)) << static_cast<unsigned>(other);
        EXPECT_FALSE(isDigit(other)) << static_cast<unsigned>(other);
    }
}

}  // namespace
}  // namespace corvale::Text
