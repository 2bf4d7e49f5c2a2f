#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/engine/GapFilling.h"
#include "tests/support/Pairs.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Pairs::shown;
using Tables::Rows;

std::vector<RowPair> filled(const Rows& before, const Rows& after, std::size_t columns,
                            const CancelCheck& isCancelled = {}) {
    const auto beforeTexts = Tables::texts(before, columns);
    const auto afterTexts = Tables::texts(after, columns);
    PollMeter meter(isCancelled);
    std::vector<RowPair> pairs;
    GapFilling(beforeTexts, afterTexts, meter)
        .fill({0, static_cast<std::uint32_t>(before.size()), 0, static_cast<std::uint32_t>(after.size())}, pairs);
    return pairs;
}

// The first pairs, which is where the walk shows.
std::string firstPairs(std::vector<RowPair> pairs, std::size_t count) {
    pairs.resize(count);
    return shown(pairs);
}

// Two columns; rows with the same name are similar, others are not: the second column never repeats.
class NamedRows {
public:
    explicit NamedRows(const std::string& side) : m_side(side) {}

    Rows of(const std::vector<std::string>& names, std::size_t count) {
        Rows rows;
        for (const auto& name : names) {
            rows.push_back({name, unique()});
        }
        while (rows.size() < count) {
            rows.push_back({unique(), unique()});
        }
        return rows;
    }

private:
    std::string unique() { return m_side + std::to_string(m_count++); }

    std::string m_side;
    int m_count = 0;
};

Rows beforeRows(const std::vector<std::string>& names, std::size_t count = 0) {
    return NamedRows("before ").of(names, count);
}
Rows afterRows(const std::vector<std::string>& names, std::size_t count = 0) {
    return NamedRows("after ").of(names, count);
}

TEST(GapFilling, OfOneSideIsThatSideAlone) {
    EXPECT_EQ(shown(filled(beforeRows({"a", "b"}), {}, 2)), "0:- 1:-");
    EXPECT_EQ(shown(filled({}, afterRows({"a", "b"}), 2)), "-:0 -:1");
    EXPECT_EQ(shown(filled({}, {}, 2)), "");
}

TEST(GapFilling, IsTheBestAlignmentUpToFortyThousandPairs) {
    const auto pairs = filled(beforeRows({"x", "y"}, 200), afterRows({"p", "q"}, 200), 2);
    EXPECT_EQ(firstPairs(pairs, 3), "0:- 1:- 2:-") << "nothing is similar, nothing is paired";
}

TEST(GapFilling, IsAWalkBeyond) {
    EXPECT_EQ(firstPairs(filled(beforeRows({"x", "y"}, 200), afterRows({"p", "q"}, 201), 2), 3), "0:0 1:1 2:2");
    EXPECT_EQ(firstPairs(filled(beforeRows({"x", "y"}, 201), afterRows({"p", "q"}, 200), 2), 3), "0:0 1:1 2:2");
}

struct Walk {
    const char* description;
    std::vector<std::string> before;
    std::vector<std::string> after;
    const char* pairs;
};

TEST(GapFilling, LooksAheadEightRows) {
    const std::vector<Walk> walks = {
        {"similar rows are paired", {"a", "b"}, {"a", "b"}, "0:0 1:1"},
        {"a row added", {"a"}, {"1", "a"}, "-:0 0:1 1:2"},
        {"a row removed", {"1", "a"}, {"a"}, "0:- 1:0 2:1"},
        {"eight rows added",
         {"a"},
         {"1", "2", "3", "4", "5", "6", "7", "8", "a"},
         "-:0 -:1 -:2 -:3 -:4 -:5 -:6 -:7 0:8 1:9"},
        {"nine rows added are too far", {"a"}, {"1", "2", "3", "4", "5", "6", "7", "8", "9", "a"}, "0:0 1:1"},
        {"eight rows removed",
         {"1", "2", "3", "4", "5", "6", "7", "8", "a"},
         {"a"},
         "0:- 1:- 2:- 3:- 4:- 5:- 6:- 7:- 8:0 9:1"},
        {"nine rows removed are too far", {"1", "2", "3", "4", "5", "6", "7", "8", "9", "a"}, {"a"}, "0:0 1:1"},
        {"After is tried first at the same distance", {"a", "b"}, {"b", "a"}, "-:0 0:1 1:2"},
        {"the nearer row wins on either side", {"a", "b"}, {"b", "x", "a"}, "0:- 1:0 2:1 3:2"},
        {"rows without a counterpart are paired anyway", {"1", "2", "a"}, {"3", "4", "a"}, "0:0 1:1 2:2"},
    };
    for (const Walk& walk : walks) {
        const auto pairs = filled(beforeRows(walk.before, 300), afterRows(walk.after, 300), 2);
        const std::string wanted = walk.pairs;
        EXPECT_EQ(shown(pairs).substr(0, wanted.size() + 1), wanted + " ") << walk.description;
        EXPECT_TRUE(Pairs::areComplete(pairs, 300, 300)) << walk.description;
    }
}

TEST(GapFilling, WalkStaysInTheGap) {
    const Rows before = beforeRows({}, 2);
    Rows after = afterRows({}, 30'001);
    after.back().front() = before.back().front();
    const auto beforeTexts = Tables::texts(before, 2);
    const auto afterTexts = Tables::texts(after, 2);
    const CancelCheck never;
    PollMeter meter(never);
    std::vector<RowPair> pairs;
    GapFilling(beforeTexts, afterTexts, meter).fill({0, 2, 29'996, 30'000}, pairs);
    EXPECT_EQ(shown(pairs), "0:- 1:- -:29996 -:29997 -:29998 -:29999");
    pairs.clear();
    GapFilling(beforeTexts, afterTexts, meter).fill({0, 2, 0, 30'000}, pairs);
    EXPECT_EQ(pairs.size(), 30'000U);
    EXPECT_EQ(firstPairs(pairs, 3), "0:0 1:1 -:2") << "the similar row stands behind the gap";
}

TEST(GapFilling, WalkEndsWithTheRestOfTheLongerSide) {
    const auto pairs = filled(beforeRows({}, 150), afterRows({}, 400), 2);
    EXPECT_EQ(shown({pairs.begin() + 149, pairs.begin() + 152}), "149:149 -:150 -:151");
    EXPECT_TRUE(Pairs::areComplete(pairs, 150, 400));
}

std::size_t polls(const Rows& before, const Rows& after, std::size_t columns) {
    std::size_t count = 0;
    filled(before, after, columns, [&count] {
        ++count;
        return false;
    });
    return count;
}

TEST(GapFilling, PollsOnceInASmallGap) {
    EXPECT_EQ(polls(beforeRows({"a"}), afterRows({"b"}), 2), 1U);
    EXPECT_EQ(polls(beforeRows({"a"}), {}, 2), 0U) << "one side alone asks nothing";
}

TEST(GapFilling, PollsAtEvery4096thStepOfAWalk) {
    const Rows rows(3 * 4096, {"same"});
    EXPECT_EQ(polls(rows, rows, 1), 1U + 3);
    const Rows fewer(3 * 4096 - 1, {"same"});
    EXPECT_EQ(polls(fewer, rows, 1), 1U + 2);
}

TEST(GapFilling, PollsMoreOftenAmongManyColumns) {
    const Rows before(210, std::vector<std::string>(1000, "b"));
    const Rows after(210, std::vector<std::string>(1000, "a"));
    EXPECT_GT(polls(before, after, 1000), 10U);
}

TEST(GapFilling, StopsWhenAskedTo) {
    const CancelCheck always = [] { return true; };
    EXPECT_THROW(filled(beforeRows({"a"}), afterRows({"b"}), 2, always), Cancelled);
    int asked = 0;
    const Rows rows(3 * 4096, {"same"});
    EXPECT_THROW(filled(rows, rows, 1, [&asked] { return ++asked == 3; }), Cancelled);
    EXPECT_EQ(asked, 3);
}

}  // namespace
}  // namespace corvale
