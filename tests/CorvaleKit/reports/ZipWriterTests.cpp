#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/loading/ZipReader.h"
#include "CorvaleKit/reports/ZipWriter.h"
#include "tests/support/ZipBuilder.h"

namespace corvale {
namespace {

using ZipBuilder::little;

constexpr std::size_t localHeaderSize = 30;

struct Member {
    std::string path;
    std::string content;
};

std::string archive(const std::vector<Member>& members) {
    ZipWriter writer;
    for (const auto& [path, content] : members) {
        writer.add(path, content);
    }
    return writer.finish();
}

std::string noise(std::size_t size) {
    std::mt19937 source(3);
    std::string bytes;
    while (bytes.size() < size) {
        bytes += static_cast<char>(source() & 0xFFU);
    }
    return bytes;
}

// From the version needed to the length of the extra field; both headers have it.
std::string description(const ZipReader::Entry& entry) {
    return little(20, 2) + little(0x0800, 2) + little(entry.method, 2) + little(0, 2) + little(0x0021, 2) +
           little(entry.crc32, 4) + little(entry.compressedSize, 4) + little(entry.size, 4) +
           little(entry.path.size(), 2) + little(0, 2);
}

TEST(ZipWriter, AnEmptyArchiveIsAnEndRecord) { EXPECT_EQ(archive({}), "PK\5\6" + std::string(18, '\0')); }

TEST(ZipWriter, EveryByteOfTheContainerIsAsTheFormatHasIt) {
    const std::string digits = "123456789";
    // The polynomial's published check value.
    const std::string common = little(20, 2) + little(0x0800, 2) + little(0, 2) + little(0, 2) + little(0x0021, 2) +
                               little(0xCBF43926, 4) + little(9, 4) + little(9, 4) + little(5, 2) + little(0, 2);
    const std::string local = "PK\3\4" + common + "a.txt" + digits;
    const std::string record = "PK\1\2" + little(20, 2) + common + little(0, 2) + little(0, 2) + little(0, 2) +
                               little(0, 4) + little(0, 4) + "a.txt";
    const std::string end = "PK\5\6" + little(0, 2) + little(0, 2) + little(1, 2) + little(1, 2) +
                            little(record.size(), 4) + little(local.size(), 4) + little(0, 2);
    EXPECT_EQ(archive({{"a.txt", digits}}), local + record + end);
}

TEST(ZipWriter, SeveralMembersFollowOneAnotherAndSoDoTheirRecords) {
    const std::vector<Member> members = {
        {"stored", "short"}, {"xl/größe.xml", std::string(5000, 'x')}, {"empty", ""}, {"noise", noise(300)}};
    const std::string bytes = archive(members);
    const auto entries = ZipReader::entries(bytes);
    ASSERT_EQ(entries.size(), members.size());
    std::string expected;
    std::string directory;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const auto& entry = entries[i];
        EXPECT_EQ(entry.path, members[i].path);
        EXPECT_EQ(ZipReader::extract(entry, bytes).size(), members[i].content.size());
        directory += "PK\1\2" + little(20, 2) + description(entry) + std::string(10, '\0') +
                     little(expected.size(), 4) + entry.path;
        // Which bytes a compressor chooses is its own business; extract() has just read them.
        const std::size_t data = expected.size() + localHeaderSize + entry.path.size();
        expected += "PK\3\4" + description(entry) + entry.path + bytes.substr(data, entry.compressedSize);
    }
    expected += directory + "PK\5\6" + little(0, 4) + little(4, 2) + little(4, 2) + little(directory.size(), 4) +
                little(expected.size(), 4) + little(0, 2);
    EXPECT_EQ(bytes, expected);
}

TEST(ZipWriter, MembersAreDeflatedWhereThatMakesThemSmaller) {
    struct Case {
        std::string content;
        int method;
    };
    const std::vector<Case> cases = {
        {"", 0},
        {std::string(64, 'a'), 0},
        {std::string(65, 'a'), 8},
        {std::string(1'000'000, 'a'), 8},
        {noise(65), 0},
        {noise(100'000), 0},
        {noise(1000) + std::string(1000, 'a'), 8},
    };
    for (const auto& [content, method] : cases) {
        const std::string bytes = archive({{"a", content}});
        const auto entry = ZipReader::entries(bytes).at(0);
        EXPECT_EQ(entry.method, method) << content.size();
        EXPECT_EQ(entry.size, content.size());
        const Bytes read = ZipReader::extract(entry, bytes);
        EXPECT_EQ(read.view(), content);
        if (method == 8) {
            EXPECT_LT(entry.compressedSize, content.size());
        }
    }
}

TEST(ZipWriter, ReadsBackRandomMembers) {
    std::mt19937 source(5);
    for (int i = 0; i < 50; ++i) {
        std::vector<Member> members;
        for (auto count = source() % 6; count > 0; --count) {
            std::string content;
            for (auto length = source() % 3000; length > 0; --length) {
                content += static_cast<char>('a' + source() % (1 + source() % 26));
            }
            members.push_back({"member " + std::to_string(count), content});
        }
        const std::string bytes = archive(members);
        for (const auto& [path, content] : members) {
            ASSERT_EQ(ZipReader::member(bytes, path)->view(), content);
        }
    }
}

TEST(ZipWriter, HoldsAsManyMembersAsThePlainFormatCanCount) {
    ZipWriter writer;
    for (int i = 0; i < 0xFFFF; ++i) {
        writer.add("a", "");
    }
    EXPECT_EQ(ZipReader::entries(writer.finish()).size(), 0xFFFFU);
}

TEST(ZipWriterDeathTest, OneMemberTooManyStopsTheProgram) {
    ZipWriter writer;
    for (int i = 0; i < 0xFFFF; ++i) {
        writer.add("a", "");
    }
    EXPECT_DEATH(writer.add("a", ""), "a ZIP archive was given more than 65,535 members");
}

TEST(ZipWriter, WhatThePlainFormatCannotMeasureIsAFailure) {
    // Not one of these bytes is looked at.
    const char byte = 'a';
    const std::string_view huge(&byte, std::size_t{1} << 32U);
    ZipWriter writer;
    try {
        writer.add("a", huge);
        FAIL() << "no failure";
    } catch (const ZipWriter::TooLarge& failure) {
        EXPECT_EQ(failure.message(), "The report is too large for one file (more than 4 GB).");
    }
}

}  // namespace
}  // namespace corvale
