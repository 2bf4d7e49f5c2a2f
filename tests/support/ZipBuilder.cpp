#include "tests/support/ZipBuilder.h"

#include <libdeflate.h>

#include <memory>
#include <stdexcept>

namespace corvale::ZipBuilder {

namespace {

constexpr std::uint64_t inZip64 = 0xFFFFFFFF;

struct Packed {
    std::string data;
    std::uint32_t crc32 = 0;
    std::uint64_t headerOffset = 0;
};

std::string packedContent(const Member& member) {
    constexpr std::uint16_t methodDeflate = 8;
    return member.method == methodDeflate ? deflated(member.content) : member.content;
}

// From the needed version to the modification time.
std::string commonStart(const Member& member) {
    return little(45, 2) + little(member.flags, 2) + little(member.method, 2) + little(0, 4);
}

std::string localHeader(const Member& member, const Packed& packed) {
    return "PK\3\4" + commonStart(member) + little(packed.crc32, 4) + little(packed.data.size(), 4) +
           little(member.content.size(), 4) + little(member.path.size(), 2) + little(member.localExtra.size(), 2) +
           member.path + member.localExtra;
}

std::string directoryRecord(const Member& member, const Packed& packed) {
    const std::uint64_t size = member.size.value_or(member.content.size());
    const std::uint64_t compressedSize = member.compressedSize.value_or(packed.data.size());
    const std::uint64_t offset = member.headerOffset.value_or(packed.headerOffset);
    const auto plain = [&](std::uint64_t number) { return little(member.zip64 ? inZip64 : number, 4); };
    std::string extra;
    if (member.zip64) {
        extra += extraBlock(0x5455, "time");
        extra += extraBlock(1, little(size, 8) + little(compressedSize, 8) + little(offset, 8));
    }
    extra += member.extra;
    return "PK\1\2" + little(45, 2) + commonStart(member) + little(member.crc32.value_or(packed.crc32), 4) +
           plain(compressedSize) + plain(size) + little(member.path.size(), 2) + little(extra.size(), 2) +
           little(member.comment.size(), 2) + little(0, 8) + plain(offset) + member.path + extra + member.comment;
}

std::string zip64Records(std::uint64_t place, std::uint64_t count, std::uint64_t size, std::uint64_t offset) {
    return "PK\6\6" + little(44, 8) + little(45, 2) + little(45, 2) + little(0, 8) + little(count, 8) +
           little(count, 8) + little(size, 8) + little(offset, 8) + "PK\6\7" + little(0, 4) + little(place, 8) +
           little(1, 4);
}

}  // namespace

std::string little(std::uint64_t number, unsigned bytes) {
    std::string text;
    for (; bytes > 0; --bytes) {
        text += static_cast<char>(number & 0xFFU);
        number >>= 8U;
    }
    return text;
}

std::string extraBlock(std::uint16_t id, std::string_view data) {
    return little(id, 2) + little(data.size(), 2) + std::string(data);
}

std::string deflated(std::string_view content) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(6), &libdeflate_free_compressor);
    if (!compressor) {
        throw std::bad_alloc();
    }
    std::string packed(libdeflate_deflate_compress_bound(compressor.get(), content.size()), '\0');
    packed.resize(
        libdeflate_deflate_compress(compressor.get(), content.data(), content.size(), packed.data(), packed.size()));
    return packed;
}

std::string archive(const std::vector<Member>& members, const End& end) {
    std::string bytes;
    std::string directory;
    for (const Member& member : members) {
        const std::string& content = member.content;
        const Packed packed{packedContent(member), libdeflate_crc32(0, content.data(), content.size()), bytes.size()};
        bytes += localHeader(member, packed) + packed.data;
        directory += directoryRecord(member, packed);
    }
    const std::uint64_t count = end.count.value_or(members.size());
    const std::uint64_t size = end.directorySize.value_or(directory.size());
    const std::uint64_t offset = end.directoryOffset.value_or(bytes.size());
    bytes += directory;
    if (end.zip64) {
        bytes += zip64Records(bytes.size(), count, size, offset);
    }
    const auto plain = [&](std::uint64_t number, unsigned width) {
        return little(end.zip64 ? inZip64 : number, width);
    };
    return bytes + "PK\5\6" + little(0, 4) + plain(count, 2) + plain(count, 2) + plain(size, 4) + plain(offset, 4) +
           little(end.comment.size(), 2) + end.comment;
}

}  // namespace corvale::ZipBuilder
