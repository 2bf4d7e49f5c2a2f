#include <gtest/gtest.h>

#include <string>

#include "CorvaleKit/base/ByteArena.h"

namespace corvale {
namespace {

std::string finished(ByteArena& arena) {
    const Bytes bytes = arena.finish();
    return std::string(bytes.view());
}

TEST(ByteArena, IsEmptyByDefault) {
    ByteArena arena;
    EXPECT_EQ(arena.size(), 0U);
    EXPECT_EQ(finished(arena), "");
}

TEST(ByteArena, LaysTextsEndToEnd) {
    ByteArena arena;
    EXPECT_EQ(arena.append("one"), 0U);
    EXPECT_EQ(arena.append(""), 3U);
    EXPECT_EQ(arena.append("three"), 3U);
    EXPECT_EQ(arena.size(), 8U);
    EXPECT_EQ(finished(arena), "onethree");
}

TEST(ByteArena, GrowsAsFarAsItMust) {
    ByteArena arena;
    std::string expected;
    for (std::size_t i = 0; i < 2000; ++i) {
        const std::string text(i % 97, static_cast<char>('a' + i % 26));
        EXPECT_EQ(arena.append(text), expected.size());
        expected += text;
    }
    EXPECT_EQ(finished(arena), expected);
}

TEST(ByteArena, ReservedRoomHoldsNothing) {
    ByteArena arena;
    arena.append("kept");
    arena.reserve(1000);
    arena.reserve(2);
    EXPECT_EQ(arena.size(), 4U);
    EXPECT_EQ(finished(arena), "kept");
}

TEST(ByteArena, StartsAnewAfterTheEnd) {
    ByteArena arena;
    arena.append("first");
    const Bytes first = arena.finish();
    EXPECT_EQ(arena.append("second"), 0U);
    EXPECT_EQ(finished(arena), "second");
    EXPECT_EQ(first.view(), "first");
}

TEST(ByteArena, ItsBytesArePadded) {
    ByteArena arena;
    arena.append(std::string(100, 'x'));
    arena.append("end");
    const Bytes bytes = arena.finish();
    EXPECT_EQ(std::string(bytes.data() + bytes.size(), Bytes::padding), std::string(Bytes::padding, '\0'));
}

}  // namespace
}  // namespace corvale
