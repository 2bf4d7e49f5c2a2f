#include "CorvaleKit/reports/ZipWriter.h"

#include <libdeflate.h>

#include <cstdint>
#include <limits>
#include <new>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/base/Require.h"

namespace corvale {

namespace {

constexpr int compressionLevel = 6;
constexpr std::size_t smallestDeflated = 65;
constexpr std::size_t roomForGrowth = 1024;
constexpr std::size_t largestCount = 0xFFFF;

void append16(std::string& target, std::uint16_t number) {
    target += static_cast<char>(number & 0xFFU);
    target += static_cast<char>(number >> 8U);
}

void append32(std::string& target, std::uint32_t number) {
    append16(target, static_cast<std::uint16_t>(number & 0xFFFFU));
    append16(target, static_cast<std::uint16_t>(number >> 16U));
}

std::uint32_t checked32(std::size_t number) {
    if (number > ZipWriter::largestMember) {
        throw ZipWriter::TooLarge();
    }
    return static_cast<std::uint32_t>(number);
}

// What the local header and the directory record of a member have in common.
struct Description {
    std::uint16_t method = 0;
    std::uint32_t crc32 = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t size = 0;
    std::uint16_t pathLength = 0;
};

// From the version needed to the length of the extra field.
void appendDescription(std::string& target, const Description& description) {
    constexpr std::uint16_t versionNeeded = 20;
    constexpr std::uint16_t namesAreUtf8 = 0x0800;
    constexpr std::uint16_t midnight = 0;
    constexpr std::uint16_t newYear1980 = 0x0021;
    append16(target, versionNeeded);
    append16(target, namesAreUtf8);
    append16(target, description.method);
    append16(target, midnight);
    append16(target, newYear1980);
    append32(target, description.crc32);
    append32(target, description.compressedSize);
    append32(target, description.size);
    append16(target, description.pathLength);
    append16(target, 0);  // extra field
}

void appendDirectoryRecord(std::string& target, const Description& description, std::uint32_t headerOffset) {
    constexpr std::uint16_t versionMadeBy = 20;
    target += "PK\1\2";
    append16(target, versionMadeBy);
    appendDescription(target, description);
    append16(target, 0);  // comment
    append16(target, 0);  // disk
    append16(target, 0);  // internal attributes
    append32(target, 0);  // external attributes
    append32(target, headerOffset);
}

// The content as raw DEFLATE; empty when that does not make it smaller.
Bytes deflated(libdeflate_compressor* compressor, std::string_view content) {
    if (content.size() < smallestDeflated) {
        return {};
    }
    Bytes packed(content.size() + roomForGrowth);
    const std::size_t size =
        libdeflate_deflate_compress(compressor, content.data(), content.size(), packed.data(), packed.size());
    packed.truncate(size < content.size() ? size : 0);
    return packed;
}

}  // namespace

ZipWriter::TooLarge::TooLarge() : UserFailure("The report is too large for one file (more than 4 GB).") {}

void ZipWriter::FreeCompressor::operator()(libdeflate_compressor* compressor) const {
    libdeflate_free_compressor(compressor);
}

ZipWriter::ZipWriter() : m_compressor(libdeflate_alloc_compressor(compressionLevel)) {
    if (!m_compressor) {
        throw std::bad_alloc();
    }
}

ZipWriter::~ZipWriter() = default;

void ZipWriter::add(std::string_view path, std::string_view content) {
    CORVALE_REQUIRE(m_count < largestCount, "a ZIP archive was given more than 65,535 members");
    CORVALE_REQUIRE(path.size() <= std::numeric_limits<std::uint16_t>::max(), "a member's path is too long");
    Description description;
    description.size = checked32(content.size());
    const std::uint32_t headerOffset = checked32(m_archive.size());

    constexpr std::uint16_t methodDeflate = 8;
    const Bytes packed = deflated(m_compressor.get(), content);
    const std::string_view data = packed.size() == 0 ? content : packed.view();
    description.method = packed.size() == 0 ? 0 : methodDeflate;
    description.crc32 = libdeflate_crc32(0, content.data(), content.size());
    description.compressedSize = static_cast<std::uint32_t>(data.size());
    description.pathLength = static_cast<std::uint16_t>(path.size());

    m_archive += "PK\3\4";
    appendDescription(m_archive, description);
    m_archive.append(path).append(data);
    appendDirectoryRecord(m_directory, description, headerOffset);
    m_directory += path;
    ++m_count;
}

std::string ZipWriter::finish() {
    const std::uint32_t directoryOffset = checked32(m_archive.size());
    const std::uint32_t directorySize = checked32(m_directory.size());
    const auto count = static_cast<std::uint16_t>(m_count);
    m_archive += m_directory;
    m_archive += "PK\5\6";
    append32(m_archive, 0);  // this disk and the directory's
    append16(m_archive, count);
    append16(m_archive, count);
    append32(m_archive, directorySize);
    append32(m_archive, directoryOffset);
    append16(m_archive, 0);  // comment
    return std::move(m_archive);
}

}  // namespace corvale
