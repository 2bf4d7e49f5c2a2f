#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/ZipReader.h"
#include "tests/support/ZipBuilder.h"

namespace corvale {
namespace {

using namespace std::string_literals;
using ZipBuilder::archive;
using ZipBuilder::extraBlock;
using ZipBuilder::little;
using ZipBuilder::Member;
using ZipReader::Entry;

const std::string noArchive = "It isn’t a zip archive.";
const std::string cutOff = "The file is damaged (its directory is cut off).";
const std::string damagedDirectory = "The file’s directory is damaged.";
const std::string damagedZip64 = "The file’s ZIP64 record is damaged.";
const std::string damagedMember = "“a.txt” is damaged.";
const std::string uncheckedMember = "“a.txt” didn’t check out (the file may be damaged).";

constexpr std::size_t endRecordSize = 22;

// The message with which an action fails; empty when it does not.
template <typename Action>
std::string failure(Action action) {
    try {
        action();
    } catch (const ZipReader::Failure& caught) {
        return caught.message();
    }
    return {};
}

std::string listingFailure(std::string_view bytes) {
    return failure([&] { ZipReader::entries(bytes); });
}

std::string readingFailure(std::string_view bytes, std::string_view path = "a.txt") {
    return failure([&] { ZipReader::member(bytes, path); });
}

std::string content(std::string_view bytes, std::string_view path) {
    const auto member = ZipReader::member(bytes, path);
    return member ? std::string(member->view()) : "no such member";
}

std::vector<std::string> paths(std::string_view bytes) {
    std::vector<std::string> all;
    for (const Entry& entry : ZipReader::entries(bytes)) {
        all.push_back(entry.path);
    }
    return all;
}

// The archive with other bytes at a place, counted from the end when negative.
std::string patched(std::string bytes, std::ptrdiff_t place, std::string_view with) {
    const auto at = place < 0 ? bytes.size() - static_cast<std::size_t>(-place) : static_cast<std::size_t>(place);
    return bytes.replace(at, with.size(), with);
}

TEST(ZipReader, ListsMembersInDirectoryOrder) {
    const std::string bytes =
        archive({{"b.txt", "123456789", 0}, {"a.txt", std::string(1000, 'a')}, {"folder/", "", 0}});
    const auto entries = ZipReader::entries(bytes);
    ASSERT_EQ(entries.size(), 3U);
    // The polynomial's published check value.
    EXPECT_EQ(entries[0], (Entry{"b.txt", 0, 9, 9, 0xCBF43926, 0}));
    EXPECT_EQ(entries[1].path, "a.txt");
    EXPECT_EQ(entries[1].method, 8);
    EXPECT_EQ(entries[1].size, 1000U);
    EXPECT_LT(entries[1].compressedSize, 100U);
    EXPECT_EQ(entries[1].headerOffset, 44U);
    EXPECT_EQ(entries[2].path, "folder/");
}

TEST(ZipReader, ReadsStoredAndDeflatedMembers) {
    const std::string text = "A text that is long enough, long enough, long enough to be worth packing.";
    const std::string bytes =
        archive({{"stored", text, 0}, {"deflated", text, 8}, {"empty", "", 0}, {"nothing", "", 8}});
    for (const auto path : {"stored", "deflated"}) {
        EXPECT_EQ(content(bytes, path), text) << path;
    }
    EXPECT_EQ(content(bytes, "empty"), "");
    EXPECT_EQ(content(bytes, "nothing"), "");
}

TEST(ZipReader, ADeflatedMemberOfSizeZeroIsEmptyWhateverItsData) {
    const std::string bytes = archive({{.path = "a.txt", .content = "data", .size = 0, .crc32 = 0}});
    EXPECT_EQ(content(bytes, "a.txt"), "");
}

TEST(ZipReader, AnEmptyArchiveHasNoMembers) {
    EXPECT_TRUE(ZipReader::entries(archive({})).empty());
    EXPECT_FALSE(ZipReader::member(archive({}), "a.txt"));
}

TEST(ZipReader, FindsTheDirectoryBehindTheLongestComment) {
    const std::string bytes = archive({{"a.txt", "hello"}}, {std::string(65'535, '.')});
    EXPECT_EQ(content(bytes, "a.txt"), "hello");
    EXPECT_EQ(listingFailure(bytes + "."), noArchive);
}

TEST(ZipReader, BytesBeforeTheArchiveShiftItsOffsets) {
    const std::string bytes = archive({{"a.txt", "hello"}});
    EXPECT_EQ(listingFailure("#!/bin/sh\n" + bytes), damagedDirectory);
}

TEST(ZipReader, WhatHasNoEndRecordIsNoArchive) {
    const std::string whole = archive({{"a.txt", "hello"}});
    const std::vector<std::string> cases = {
        "",
        "P",
        "a,b\n1,2\n",
        std::string(100'000, 'x'),
        "PK\5\6",
        "PK\5\6" + std::string(17, '\0'),
        whole.substr(0, whole.size() - 1),
        whole + "PK\5\6",
    };
    for (const auto& bytes : cases) {
        EXPECT_EQ(listingFailure(bytes), noArchive) << bytes.substr(0, 40);
    }
    EXPECT_EQ(listingFailure("PK\5\6" + std::string(18, '\0')), "");
}

TEST(ZipReader, TheDirectoryMustLieInsideTheFile) {
    const std::string bytes = archive({{"a.txt", "hello"}});
    const auto size = bytes.size();
    const auto announced = [&](std::uint64_t directorySize, std::uint64_t offset) {
        return listingFailure(archive({{"a.txt", "hello"}}, {"", {}, directorySize, offset}));
    };
    EXPECT_EQ(announced(0, size + 1), cutOff);
    EXPECT_EQ(announced(size + 1, 0), cutOff);
    EXPECT_EQ(announced(size - 10, 11), cutOff);
    EXPECT_EQ(announced(0xFFFFFFFE, 0xFFFFFFFE), cutOff);
    EXPECT_EQ(announced(0, size), damagedDirectory);
    const std::uint64_t huge = ~std::uint64_t{0};
    EXPECT_EQ(listingFailure(archive({}, {"", 0, huge, 2, true})), cutOff);
    EXPECT_EQ(listingFailure(archive({}, {"", 0, 2, huge, true})), cutOff);
}

TEST(ZipReader, TheDirectorysPlaceCountsEvenWithoutRecords) {
    EXPECT_EQ(listingFailure(archive({}, {"", 0, {}, 1000})), cutOff);
}

TEST(ZipReader, RecordsMustBeWholeAndInsideTheDirectory) {
    const std::vector<Member> members = {{"a.txt", "hello"}, {"b.txt", "hello"}};
    const std::string bytes = archive(members);
    const auto directory = static_cast<std::ptrdiff_t>(bytes.find("PK\1\2"));
    EXPECT_EQ(listingFailure(patched(bytes, directory, "PK\1\1")), damagedDirectory);
    EXPECT_EQ(listingFailure(patched(bytes, directory + 28, little(1000, 2))), damagedDirectory);
    EXPECT_EQ(listingFailure(patched(bytes, directory + 30, little(1000, 2))), damagedDirectory);
    EXPECT_EQ(listingFailure(patched(bytes, directory + 32, little(1000, 2))), damagedDirectory);
    EXPECT_EQ(listingFailure(archive(members, {"", 3})), damagedDirectory);
    EXPECT_EQ(listingFailure(archive(members, {"", 3, {}, {}, true})), damagedDirectory);
    EXPECT_EQ(listingFailure(archive(members, {"", {}, 46 + 5 + 45})), damagedDirectory);
    EXPECT_EQ(listingFailure(archive(members, {"", {}, 2 * (46 + 5) - 1})), damagedDirectory);
}

TEST(ZipReader, TheLastCommentMayReachBeyondTheDirectory) {
    const std::string bytes = archive({{"a.txt", "hello"}});
    const auto directory = static_cast<std::ptrdiff_t>(bytes.find("PK\1\2"));
    EXPECT_EQ(content(patched(bytes, directory + 32, little(1000, 2)), "a.txt"), "hello");
}

TEST(ZipReader, AnnouncedRecordsAloneAreRead) {
    EXPECT_EQ(paths(archive({{"a.txt", ""}, {"b.txt", ""}}, {"", 1})), std::vector<std::string>{"a.txt"});
}

TEST(ZipReader, CountsOfAnyHeightTakeNoMemory) {
    EXPECT_EQ(listingFailure(archive({{"a.txt", ""}}, {"", ~std::uint64_t{0}, {}, {}, true})), damagedDirectory);
}

TEST(ZipReader, CommentsAndExtraFieldsBetweenRecordsAreSkipped) {
    const Member first{
        .path = "a.txt", .content = "first", .extra = extraBlock(7, "x"), .localExtra = "local", .comment = "PK\1\2"};
    const std::string bytes = archive({first, {"b.txt", "second"}});
    EXPECT_EQ(content(bytes, "a.txt"), "first");
    EXPECT_EQ(content(bytes, "b.txt"), "second");
}

TEST(ZipReader, NamesAreUtf8WhenFlaggedElseLatin1) {
    constexpr std::uint16_t utf8 = 0x800;
    const std::string bytes = archive({{"gr\xC3\xBC\xC3\x9F", "", 0, utf8},
                                       {"gr\xFC\xDF", "", 0, 0},
                                       {"gr\xC3\xBC", "", 0, static_cast<std::uint16_t>(~utf8)},
                                       {"\xFF\xE2\x82?", "", 0, utf8},
                                       {"\x80", "", 0, 0}});
    EXPECT_EQ(paths(bytes), (std::vector<std::string>{"grüß", "grüß", "grÃ¼", "��?", "\u0080"}));
}

TEST(ZipReader, ReadsZip64RecordsAndMembers) {
    Member member{"a.txt", "hello"};
    member.zip64 = true;
    const std::string bytes = archive({{"first", "one"}, member}, {"note", {}, {}, {}, true});
    EXPECT_EQ(content(bytes, "a.txt"), "hello");
    EXPECT_EQ(content(bytes, "first"), "one");
}

TEST(ZipReader, AFieldAllOnesIsPlainWithoutAZip64Locator) {
    const std::string bytes = archive({{"a.txt", "hello"}}, {"", 0xFFFF});
    EXPECT_EQ(listingFailure(bytes), damagedDirectory);
    EXPECT_EQ(listingFailure(archive({}, {"", 0, 0xFFFFFFFF})), cutOff);

    std::vector<Member> members(0xFFFF, {"a", "", 0});
    members.back().path = "last";
    EXPECT_EQ(ZipReader::entries(archive(members)).back().path, "last");
}

TEST(ZipReader, ALocatorIsNotLookedForUnlessAFieldIsAllOnes) {
    const std::string bytes = archive({{"a.txt", "hello"}}, {"", {}, {}, {}, true});
    const std::string directorySize = little(46 + 5, 4);
    const std::string offset = little(bytes.find("PK\1\2"), 4);
    const std::string plain = patched(bytes, -14, little(1, 2) + little(1, 2) + directorySize + offset + "\0\0"s);
    const auto locator = static_cast<std::ptrdiff_t>(plain.find("PK\6\7"));
    EXPECT_EQ(content(patched(plain, locator + 8, little(0, 8)), "a.txt"), "hello");
}

TEST(ZipReader, TheZip64RecordMustBeWhole) {
    const std::string bytes = archive({{"a.txt", "hello"}}, {"", {}, {}, {}, true});
    const auto record = static_cast<std::ptrdiff_t>(bytes.find("PK\6\6"));
    const auto locator = static_cast<std::ptrdiff_t>(bytes.find("PK\6\7"));
    EXPECT_EQ(listingFailure(patched(bytes, record, "PK\6\5")), damagedZip64);
    for (const std::uint64_t place : {std::uint64_t{0},
                                      std::uint64_t{bytes.size() - 55},
                                      std::uint64_t{bytes.size()},
                                      std::uint64_t{1} << 40U,
                                      ~std::uint64_t{0}}) {
        EXPECT_EQ(listingFailure(patched(bytes, locator + 8, little(place, 8))), damagedZip64) << place;
    }
    EXPECT_EQ(listingFailure(patched(bytes, locator, "PK\6\1")), cutOff);
    // Right at the start there is no room for a locator.
    EXPECT_EQ(listingFailure(bytes.substr(bytes.size() - endRecordSize)), cutOff);
}

TEST(ZipReader, AZip64BlockHoldsTheMarkedFieldsAlone) {
    constexpr std::uint64_t marked = 0xFFFFFFFF;
    struct Case {
        std::optional<std::uint64_t> size;
        std::optional<std::uint64_t> compressedSize;
        std::optional<std::uint64_t> headerOffset;
        std::string extra;
        Entry expected;  // with path, method and crc32 left out
    };
    const std::string three = little(1, 8) + little(2, 8) + little(3, 8);
    const std::vector<Case> cases = {
        {marked, marked, marked, extraBlock(1, three), {"", 0, 2, 1, 0, 3}},
        {10, marked, marked, extraBlock(1, three), {"", 0, 1, 10, 0, 2}},
        {10, 20, marked, extraBlock(1, three), {"", 0, 20, 10, 0, 1}},
        {marked, 20, marked, extraBlock(1, three), {"", 0, 20, 1, 0, 2}},
        {10, 20, 30, extraBlock(1, three), {"", 0, 20, 10, 0, 30}},
        {marked, marked, marked, "", {"", 0, marked, marked, 0, marked}},
        {marked, marked, marked, extraBlock(1, ""), {"", 0, marked, marked, 0, marked}},
        {marked, marked, marked, extraBlock(1, little(1, 8) + little(2, 7)), {"", 0, marked, 1, 0, marked}},
        {marked, marked, marked, extraBlock(2, three), {"", 0, marked, marked, 0, marked}},
        {marked, 20, 30, extraBlock(2, three) + extraBlock(1, little(7, 8)), {"", 0, 20, 7, 0, 30}},
        {marked, 20, 30, extraBlock(1, little(7, 8)) + extraBlock(1, little(8, 8)), {"", 0, 20, 7, 0, 30}},
        {marked, 20, 30, little(1, 2) + little(9, 2) + little(7, 8), {"", 0, 20, marked, 0, 30}},
        {marked, 20, 30, extraBlock(1, little(7, 8)) + "\1\0\1"s, {"", 0, 20, 7, 0, 30}},
        {marked, 20, 30, little(5, 2) + little(99, 2) + extraBlock(1, little(7, 8)), {"", 0, 20, marked, 0, 30}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Case& c = cases[i];
        const Member member{.path = "",
                            .content = "",
                            .method = 0,
                            .size = c.size,
                            .compressedSize = c.compressedSize,
                            .crc32 = 0,
                            .headerOffset = c.headerOffset,
                            .extra = c.extra};
        const auto entries = ZipReader::entries(archive({member}));
        EXPECT_EQ(entries, std::vector<Entry>{c.expected}) << "case " << i;
    }
}

TEST(ZipReader, AMarkedFieldWithoutAZip64BlockDamagesTheMember) {
    constexpr std::uint64_t marked = 0xFFFFFFFF;
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 0, .size = marked}})),
              damagedMember);
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 0, .compressedSize = marked}})),
              damagedMember);
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 0, .headerOffset = marked}})),
              damagedMember);
}

TEST(ZipReader, TheLocalHeaderMustBeWhole) {
    const std::string bytes = archive({{"a.txt", "hello", 0}});
    EXPECT_EQ(readingFailure(patched(bytes, 0, "PK\3\3")), damagedMember);
    const auto at = [](std::uint64_t offset) {
        Member member{"a.txt", "hello", 0};
        member.headerOffset = offset;
        member.zip64 = true;
        return readingFailure(archive({member}));
    };
    const Member probe{.path = "a.txt", .content = "hello", .method = 0, .zip64 = true};
    const std::uint64_t size = archive({probe}).size();
    EXPECT_EQ(at(0), "");
    EXPECT_EQ(at(1), damagedMember);
    EXPECT_EQ(at(size - 29), damagedMember);
    EXPECT_EQ(at(size), damagedMember);
    EXPECT_EQ(at(~std::uint64_t{0}), damagedMember);
    EXPECT_EQ(at(~std::uint64_t{0} - 29), damagedMember);
}

TEST(ZipReader, TheLocalNameAndExtraLengthsLeadToTheData) {
    const std::string bytes = archive({{"a.txt", "hello", 0}, {"b.txt", "world", 0}});
    EXPECT_EQ(readingFailure(patched(bytes, 26, little(0xFFFF, 2))), damagedMember);
    EXPECT_EQ(readingFailure(patched(bytes, 28, little(0xFFFF, 2))), damagedMember);
    EXPECT_EQ(readingFailure(patched(bytes, 28, little(1, 2))), uncheckedMember);
    const std::string longer =
        archive({{.path = "a.txt", .content = "hello", .method = 0, .localExtra = "abcdefghij"}});
    EXPECT_EQ(content(longer, "a.txt"), "hello");
}

TEST(ZipReader, DataMustLieInsideTheFile) {
    const auto withSizes = [](std::uint64_t size, std::uint64_t compressedSize) {
        Member member{
            .path = "a.txt", .content = "hello", .zip64 = true, .size = size, .compressedSize = compressedSize};
        return readingFailure(archive({member}));
    };
    EXPECT_EQ(withSizes(5, 1000), damagedMember);
    EXPECT_EQ(withSizes(5, ~std::uint64_t{0}), damagedMember);
    EXPECT_EQ(withSizes(5, ~std::uint64_t{0} - 34), damagedMember);
    EXPECT_EQ(withSizes((std::uint64_t{1} << 30U) + 1, 7), damagedMember);
    EXPECT_EQ(withSizes(~std::uint64_t{0}, 7), damagedMember);
}

TEST(ZipReader, AClaimThatDeflateCannotMeetDoesNotCheckOut) {
    const std::uint64_t gibibyte = std::uint64_t{1} << 30U;
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .size = gibibyte}})), uncheckedMember);
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 0, .size = gibibyte}})),
              uncheckedMember);
}

TEST(ZipReader, TheBestThatDeflateCanDoIsRead) {
    const std::string zeros(3'000'000, '\0');
    const std::string bytes = archive({{"zeros", zeros}});
    EXPECT_LT(bytes.size(), 3'200U);
    EXPECT_TRUE(content(bytes, "zeros") == zeros);
}

TEST(ZipReader, OtherMethodsAreNamedAsUnreadable) {
    for (const std::uint16_t method : std::vector<std::uint16_t>{1, 9, 12, 14, 93, 0xFFFF}) {
        EXPECT_EQ(readingFailure(archive({{"Ärger.bin", "hello", method}}), "Ärger.bin"),
                  "“Ärger.bin” uses a kind of compression that can’t be read.");
    }
}

TEST(ZipReader, TheMethodIsLookedAtAfterTheBounds) {
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 12, .compressedSize = 1000}})),
              damagedMember);
    EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = 12, .size = 1}})),
              "“a.txt” uses a kind of compression that can’t be read.");
}

TEST(ZipReader, SizeAndChecksumMustHold) {
    for (const std::uint16_t method : std::vector<std::uint16_t>{0, 8}) {
        EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .size = 4}})),
                  uncheckedMember);
        EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .size = 6}})),
                  uncheckedMember);
        EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .crc32 = 1}})),
                  uncheckedMember);
        EXPECT_EQ(readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .size = 0}})),
                  uncheckedMember);
        EXPECT_EQ(
            readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .compressedSize = 3}})),
            uncheckedMember);
        EXPECT_EQ(
            readingFailure(archive({{.path = "a.txt", .content = "hello", .method = method, .compressedSize = 0}})),
            uncheckedMember);
    }
}

TEST(ZipReader, FlagsSayNothingAboutTheData) {
    for (const std::uint16_t flags : std::vector<std::uint16_t>{0x1, 0x8, 0x40, 0x2000, 0xFFFF}) {
        EXPECT_EQ(content(archive({{.path = "a.txt", .content = "hello", .flags = flags}}), "a.txt"), "hello") << flags;
    }
}

TEST(ZipReader, FindsAMemberExactlyThenWithoutRegardToLetterCase) {
    const std::string bytes =
        archive({{"xl/WORKBOOK.xml", "upper"}, {"xl/workbook.xml", "lower"}, {"ÄRGER", "umlaut"}});
    EXPECT_EQ(content(bytes, "xl/workbook.xml"), "lower");
    EXPECT_EQ(content(bytes, "xl/Workbook.xml"), "upper");
    EXPECT_EQ(content(bytes, "xl/WORKBOOK.xml"), "upper");
    EXPECT_EQ(content(bytes, "ärger"), "umlaut");
    EXPECT_EQ(content(bytes, "workbook.xml"), "no such member");
    EXPECT_EQ(content(bytes, ""), "no such member");
}

TEST(ZipReader, TheFirstOfTwoEqualPathsWins) {
    EXPECT_EQ(content(archive({{"a.txt", "first"}, {"a.txt", "second"}}), "a.txt"), "first");
}

TEST(ZipReader, ADamagedMemberLeavesTheOthersReadable) {
    const std::string bytes = archive({{"a.txt", "hello", 12}, {"b.txt", "world"}});
    EXPECT_EQ(content(bytes, "b.txt"), "world");
    EXPECT_NE(readingFailure(bytes), "");
}

TEST(ZipReader, AFlippedByteNeverPassesUnnoticed) {
    std::mt19937 random(7);
    std::string text;
    for (int i = 0; i < 500; ++i) {
        text += static_cast<char>('a' + random() % 7);
    }
    const std::string bytes = archive({{"a.txt", text}});
    const std::size_t start = 30 + 5;
    const std::size_t end = bytes.find("PK\1\2");
    for (std::size_t i = start; i < end; ++i) {
        for (const int bit : {0, 3, 7}) {
            std::string flipped = bytes;
            flipped[i] = static_cast<char>(flipped[i] ^ (1 << bit));
            // The last byte's unused bits may flip without a consequence.
            const std::string message = readingFailure(flipped);
            EXPECT_TRUE(message == uncheckedMember || (i + 1 == end && content(flipped, "a.txt") == text))
                << i << message;
        }
    }
}

TEST(ZipReader, AnyCutEndsInAFailure) {
    const std::string bytes = archive({{"a.txt", "hello"}, {"b.txt", "world"}}, {"a comment"});
    for (std::size_t length = 0; length < bytes.size() - 9; ++length) {
        EXPECT_EQ(listingFailure(std::string_view(bytes).substr(0, length)), noArchive) << length;
    }
}

}  // namespace
}  // namespace corvale
