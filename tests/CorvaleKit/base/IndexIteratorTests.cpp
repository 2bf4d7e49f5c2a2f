#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include "CorvaleKit/base/IndexIterator.h"

namespace corvale {
namespace {

// 0, 1, 4, 9 and so on.
class Squares {
public:
    using Iterator = IndexIterator<Squares, int>;

    explicit Squares(std::size_t size) : m_size(size) {}
    int operator[](std::size_t index) const { return static_cast<int>(index * index); }
    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, m_size}; }

private:
    std::size_t m_size;
};

static_assert(std::random_access_iterator<Squares::Iterator>);

TEST(IndexIterator, WalksInBothDirections) {
    const Squares squares(4);
    EXPECT_EQ(std::vector<int>(squares.begin(), squares.end()), (std::vector<int>{0, 1, 4, 9}));
    auto place = squares.begin();
    EXPECT_EQ(*place++, 0);
    EXPECT_EQ(*++place, 4);
    EXPECT_EQ(*place--, 4);
    EXPECT_EQ(*--place, 0);
    EXPECT_EQ(place, squares.begin());
}

TEST(IndexIterator, JumpsAndMeasures) {
    const Squares squares(5);
    const auto first = squares.begin();
    EXPECT_EQ(*(first + 3), 9);
    EXPECT_EQ(*(3 + first), 9);
    EXPECT_EQ(*(squares.end() - 1), 16);
    EXPECT_EQ(first[2], 4);
    EXPECT_EQ(squares.end()[-2], 9);
    EXPECT_EQ(squares.end() - first, 5);
    EXPECT_EQ(first - squares.end(), -5);
    auto place = first;
    place += 4;
    place -= 2;
    EXPECT_EQ(*place, 4);
}

TEST(IndexIterator, IsOrderedByItsPlace) {
    const Squares squares(3);
    EXPECT_LT(squares.begin(), squares.end());
    EXPECT_GE(squares.end(), squares.begin() + 3);
    EXPECT_NE(squares.begin(), squares.begin() + 1);
}

TEST(IndexIterator, IsSearchedByHalving) {
    const Squares squares(1000);
    int reads = 0;
    const auto found = std::ranges::partition_point(squares.begin(), squares.end(), [&](int square) {
        ++reads;
        return square < 250'000;
    });
    EXPECT_EQ(found - squares.begin(), 500);
    EXPECT_LE(reads, 10);
}

}  // namespace
}  // namespace corvale
