#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// ZIP archives of any kind, sound ones and ones that lie, for tests of what reads them.
namespace corvale::ZipBuilder {

struct Member {
    std::string path;
    std::string content;
    std::uint16_t method = 8;  // any but 8 leaves the content as it is
    std::uint16_t flags = 0x800;
    bool zip64 = false;  // sizes and offset stand in a ZIP64 block, after an unrelated one
    // What the directory says instead of the truth.
    std::optional<std::uint64_t> size = {};
    std::optional<std::uint64_t> compressedSize = {};
    std::optional<std::uint32_t> crc32 = {};
    std::optional<std::uint64_t> headerOffset = {};
    // Further bytes of the extra fields and the comment.
    std::string extra = {};
    std::string localExtra = {};
    std::string comment = {};
};

// What the end record says instead of the truth.
struct End {
    std::string comment = {};
    std::optional<std::uint64_t> count = {};
    std::optional<std::uint64_t> directorySize = {};
    std::optional<std::uint64_t> directoryOffset = {};
    bool zip64 = false;  // the numbers stand in a ZIP64 record, and all bits of the plain ones are set
};

std::string archive(const std::vector<Member>& members, const End& end = {});

// A number in as many little-endian bytes.
std::string little(std::uint64_t number, unsigned bytes);

// A block of an extra field.
std::string extraBlock(std::uint16_t id, std::string_view data);

// Raw DEFLATE.
std::string deflated(std::string_view content);

}  // namespace corvale::ZipBuilder
