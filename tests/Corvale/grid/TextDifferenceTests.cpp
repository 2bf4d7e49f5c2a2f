#include <gtest/gtest.h>

#include <string>

#include "Corvale/grid/TextDifference.h"

namespace corvale {
namespace {

// The two texts with the stretch in brackets.
std::string shown(const std::string& before, const std::string& after) {
    const auto difference = TextDifference::of(before, after);
    const auto marked = [&](const std::string& text, std::size_t end) {
        return text.substr(0, difference.begin) + '[' + text.substr(difference.begin, end - difference.begin) + ']' +
               text.substr(end);
    };
    return marked(before, difference.beforeEnd) + ' ' + marked(after, difference.afterEnd);
}

TEST(TextDifference, IsWhatIsLeftBetweenCommonEnds) {
    struct Case {
        const char* before;
        const char* after;
        const char* shown;
    };
    const Case cases[] = {
        {"", "", "[] []"},
        {"same", "same", "same[] same[]"},
        {"old", "new", "[old] [new]"},
        {"42.00", "39.00", "[42].00 [39].00"},
        {"Dot grid notebook", "Dot grid notebook, A5", "Dot grid notebook[] Dot grid notebook[, A5]"},
        {"B2", "C2", "[B]2 [C]2"},
        {"aaa", "aa", "aa[a] aa[]"},
        {"abab", "ab", "ab[ab] ab[]"},
        {"x", "", "[x] []"},
        {"café", "cafe", "caf[é] caf[e]"},
        {"caf\u00E9", "cafe\u0301", "caf[\u00E9] caf[e\u0301]"},
        {"e\u0301", "e\u0300", "[e\u0301] [e\u0300]"},
        {"äx", "öx", "[ä]x [ö]x"},
        {"👩‍👩‍👧!", "👩‍👩‍👦!", "[👩‍👩‍👧]! [👩‍👩‍👦]!"},
        {"a\r\nb", "a\nb", "a[\r\n]b a[\n]b"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(shown(c.before, c.after), c.shown);
    }
}

TEST(TextDifference, FallsBetweenScalarsInTextsLongerThanAnyCell) {
    const std::string cell(16384, 'x');
    EXPECT_EQ(TextDifference::of(cell, cell + "y"), (TextDifference{16384, 16384, 16385}));
    const std::string text(200000, 'x');
    EXPECT_EQ(TextDifference::of(text, text + "y"), (TextDifference{200000, 200000, 200001}));
    EXPECT_EQ(TextDifference::of(text, text), (TextDifference{200000, 200000, 200000}));
    EXPECT_EQ(TextDifference::of(text, ""), (TextDifference{0, 200000, 0}));
    // É and Ê have their first byte in common, € and ¬ their last one, of which none is a character.
    EXPECT_EQ(TextDifference::of(text + "É" + text, text + "Ê" + text), (TextDifference{200000, 200002, 200002}));
    EXPECT_EQ(TextDifference::of(text + "€" + text, text + "¬" + text), (TextDifference{200000, 200003, 200002}));
    EXPECT_EQ(TextDifference::of(text + "é", text + "éé"), (TextDifference{200002, 200002, 200004}));
}

// The obvious way, on bytes.
TextDifference slow(const std::string& a, const std::string& b) {
    std::size_t head = 0;
    while (head < a.size() && head < b.size() && a[head] == b[head]) {
        ++head;
    }
    std::size_t tail = 0;
    while (tail < std::min(a.size(), b.size()) - head && a[a.size() - 1 - tail] == b[b.size() - 1 - tail]) {
        ++tail;
    }
    return {head, a.size() - tail, b.size() - tail};
}

TEST(TextDifference, AgreesWithTheSlowWayOnAllSmallTexts) {
    std::vector<std::string> texts{""};
    for (std::size_t i = 0; i < texts.size() && texts[i].size() < 5; ++i) {
        texts.push_back(texts[i] + "a");
        texts.push_back(texts[i] + "b");
    }
    for (const auto& a : texts) {
        for (const auto& b : texts) {
            EXPECT_EQ(TextDifference::of(a, b), slow(a, b)) << a << ' ' << b;
        }
    }
}

}  // namespace
}  // namespace corvale
