#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowDifference.h"

namespace corvale {
namespace {

using Elements = std::vector<std::uint32_t>;
using Kept = std::vector<RowDifference::Kept>;

Kept kept(const Elements& a, const Elements& b) { return RowDifference().kept(a, b); }

Elements letters(const std::string& all) { return {all.begin(), all.end()}; }

// The kept elements, as the letters that they are.
std::string keptLetters(const std::string& a, const std::string& b) {
    std::string all;
    for (const auto& [i, j] : kept(letters(a), letters(b))) {
        EXPECT_EQ(a[i], b[j]);
        all += a[i];
    }
    return all;
}

TEST(RowDifference, OfEqualSequencesKeepsAll) {
    EXPECT_EQ(keptLetters("", ""), "");
    EXPECT_EQ(keptLetters("abcabc", "abcabc"), "abcabc");
}

TEST(RowDifference, OfSequencesWithoutACommonElementKeepsNone) {
    EXPECT_EQ(keptLetters("aaa", "bbbb"), "");
    EXPECT_EQ(keptLetters("", "bbbb"), "");
    EXPECT_EQ(keptLetters("aaa", ""), "");
}

TEST(RowDifference, OfTheTextbookExampleKeepsFourElements) { EXPECT_EQ(keptLetters("abcabba", "cbabac"), "cbba"); }

TEST(RowDifference, KeepsEqualElementsTowardsTheEnds) {
    EXPECT_EQ(kept(letters("x"), letters("xxx")), (Kept{{0, 2}}));
    EXPECT_EQ(kept(letters("xxx"), letters("x")), (Kept{{2, 0}}));
}

TEST(RowDifference, TakesElementsForPutInFirst) {
    EXPECT_EQ(keptLetters("ab", "ba"), "b") << "a at the end is put in, so that a at the beginning is taken out";
}

// The most elements that two sequences can keep, from a table of all beginnings.
std::size_t mostKept(const Elements& a, const Elements& b) {
    std::vector<std::vector<std::size_t>> most(a.size() + 1, std::vector<std::size_t>(b.size() + 1, 0));
    for (std::size_t i = 0; i < a.size(); ++i) {
        for (std::size_t j = 0; j < b.size(); ++j) {
            most[i + 1][j + 1] = a[i] == b[j] ? most[i][j] + 1 : std::max(most[i][j + 1], most[i + 1][j]);
        }
    }
    return most[a.size()][b.size()];
}

void expectMinimal(const Elements& a, const Elements& b, RowDifference& difference) {
    const Kept& found = difference.kept(a, b);
    ASSERT_EQ(found.size(), mostKept(a, b)) << testing::PrintToString(a) << testing::PrintToString(b);
    for (std::size_t i = 0; i < found.size(); ++i) {
        ASSERT_EQ(a.at(found[i].a), b.at(found[i].b));
        ASSERT_TRUE(i == 0 || (found[i - 1].a < found[i].a && found[i - 1].b < found[i].b));
    }
}

std::vector<Elements> sequences(std::uint32_t alphabet, std::size_t longest) {
    std::vector<Elements> all{{}};
    for (std::size_t next = 0; next < all.size(); ++next) {
        for (std::uint32_t element = 0; all[next].size() < longest && element < alphabet; ++element) {
            Elements longer = all[next];
            longer.push_back(element);
            all.push_back(longer);
        }
    }
    return all;
}

TEST(RowDifference, IsMinimalForAllSmallSequences) {
    RowDifference difference;
    for (const auto& [alphabet, longest] : std::vector<std::pair<std::uint32_t, std::size_t>>{{2, 6}, {3, 4}}) {
        const auto all = sequences(alphabet, longest);
        for (const Elements& a : all) {
            for (const Elements& b : all) {
                expectMinimal(a, b, difference);
            }
        }
    }
}

TEST(RowDifference, IsMinimalAroundTheWidthOfAWord) {
    std::mt19937 random(7);
    RowDifference difference;
    for (const std::size_t length : {1U, 63U, 64U, 65U, 127U, 128U, 129U, 192U, 200U}) {
        for (const std::uint32_t alphabet : {1U, 2U, 5U, 50U}) {
            std::uniform_int_distribution<std::uint32_t> element(0, alphabet - 1);
            Elements a(length / 2 + random() % 40);
            Elements b(length);
            std::generate(a.begin(), a.end(), [&] { return element(random); });
            std::generate(b.begin(), b.end(), [&] { return element(random) + (random() % 9 == 0 ? 1000 : 0); });
            expectMinimal(a, b, difference);
            expectMinimal(b, a, difference);
        }
    }
}

TEST(RowDifference, IsMinimalForTheLongestSequences) {
    std::mt19937 random(8);
    RowDifference difference;
    Elements a(1000);
    Elements b(1000);
    std::generate(a.begin(), a.end(), [&] { return random() % 3; });
    std::generate(b.begin(), b.end(), [&] { return random() % 3; });
    expectMinimal(a, b, difference);
    expectMinimal(Elements(1999, 4), Elements(1, 4), difference);
    expectMinimal(Elements(1, 4), Elements(1999, 4), difference);
}

TEST(RowDifferenceDeathTest, RefusesLongerSequences) {
    EXPECT_DEATH(kept(Elements(1001, 0), Elements(1000, 0)), "too long for an exact difference");
}

}  // namespace
}  // namespace corvale
