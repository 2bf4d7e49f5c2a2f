#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include "CorvaleKit/base/Bytes.h"

namespace corvale {
namespace {

template <typename Owner>
concept canViewTemporary = requires(Owner owner) {
    std::move(owner).view();
};

static_assert(!canViewTemporary<Bytes>, "a view of bytes that nobody keeps would dangle");
static_assert(!std::is_copy_constructible_v<Bytes> && !std::is_copy_assignable_v<Bytes>);

bool paddingIsZero(const Bytes& bytes) {
    const char* end = bytes.data() + bytes.size();
    return std::all_of(end, end + Bytes::padding, [](char c) { return c == 0; });
}

TEST(Bytes, AreEmptyByDefault) {
    const Bytes bytes;
    EXPECT_EQ(bytes.view(), "");
    EXPECT_TRUE(paddingIsZero(bytes));
}

TEST(Bytes, CopyATextAndPadIt) {
    const Bytes bytes(std::string_view("a\0b", 3));
    EXPECT_EQ(bytes.view(), std::string_view("a\0b", 3));
    EXPECT_TRUE(paddingIsZero(bytes));
}

TEST(Bytes, OfASizeAreWritable) {
    Bytes bytes(3);
    std::copy_n("xyz", 3, bytes.data());
    EXPECT_EQ(bytes.view(), "xyz");
    EXPECT_TRUE(paddingIsZero(bytes));
}

TEST(Bytes, MovingKeepsTheMemoryAndEmptiesTheSource) {
    Bytes source(std::string_view("abc"));
    source.removePrefix(1);
    const char* place = source.data();
    Bytes target(std::move(source));
    EXPECT_EQ(target.data(), place);
    EXPECT_EQ(target.view(), "bc");
    EXPECT_EQ(source.size(), 0U);
    EXPECT_EQ(source.view(), "");

    source = std::move(target);
    EXPECT_EQ(source.view(), "bc");
    EXPECT_EQ(target.view(), "");
}

TEST(Bytes, MovedFromOnesTakeNewOnes) {
    Bytes first(std::string_view("abc"));
    const Bytes taken(std::move(first));
    first = Bytes(std::string_view("new"));
    EXPECT_EQ(first.view(), "new");
    EXPECT_EQ(taken.view(), "abc");
}

TEST(Bytes, MovedFromOnesCanBeTruncatedToNothing) {
    Bytes bytes(std::string_view("abc"));
    const Bytes taken(std::move(bytes));
    bytes.truncate(0);
    EXPECT_EQ(bytes.view(), "");
    EXPECT_EQ(taken.view(), "abc");
}

TEST(Bytes, RemovePrefixLeavesTheRestWhereItIs) {
    Bytes bytes(std::string_view("header,row"));
    const char* place = bytes.data() + 7;
    bytes.removePrefix(7);
    EXPECT_EQ(bytes.view(), "row");
    EXPECT_EQ(bytes.data(), place);
    EXPECT_TRUE(paddingIsZero(bytes));
    bytes.removePrefix(3);
    EXPECT_EQ(bytes.view(), "");
}

TEST(Bytes, TruncateZeroesWhatIsPaddingFromNowOn) {
    Bytes bytes(std::string_view("0123456789"));
    bytes.truncate(4);
    EXPECT_EQ(bytes.view(), "0123");
    EXPECT_TRUE(paddingIsZero(bytes));
    bytes.truncate(4);
    EXPECT_EQ(bytes.view(), "0123");
}

TEST(Bytes, TruncateAfterRemovePrefixCountsFromTheNewStart) {
    Bytes bytes(std::string(200, 'x'));
    bytes.removePrefix(150);
    bytes.truncate(10);
    EXPECT_EQ(bytes.view(), std::string(10, 'x'));
    EXPECT_TRUE(paddingIsZero(bytes));
}

TEST(Bytes, ASizeThatLeavesNoRoomForThePaddingIsABadAllocation) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    EXPECT_THROW(Bytes bytes(most), std::bad_alloc);
    EXPECT_THROW(Bytes bytes(most - Bytes::padding + 1), std::bad_alloc);
}

TEST(BytesDeathTest, RemovingMoreThanThereIsStopsTheProcess) {
    Bytes bytes(std::string_view("ab"));
    EXPECT_DEATH(bytes.removePrefix(3), "a prefix longer than the bytes was dropped");
}

TEST(BytesDeathTest, TruncatingToMoreThanThereIsStopsTheProcess) {
    Bytes bytes(std::string_view("ab"));
    EXPECT_DEATH(bytes.truncate(3), "bytes were truncated to more than their size");
}

}  // namespace
}  // namespace corvale
