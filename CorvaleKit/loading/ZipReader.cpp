#include "CorvaleKit/loading/ZipReader.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::ZipReader {

namespace {

constexpr std::size_t endRecordSize = 22;
constexpr std::size_t longestComment = 0xFFFF;
constexpr std::size_t locatorSize = 20;
constexpr std::size_t zip64RecordSize = 56;
constexpr std::size_t directoryRecordSize = 46;
constexpr std::size_t localHeaderSize = 30;
constexpr std::uint64_t largestMember = std::uint64_t{1} << 30U;
constexpr std::uint16_t inZip64Count = 0xFFFF;
constexpr std::uint32_t inZip64 = 0xFFFFFFFF;

constexpr std::string_view endSignature{"PK\5\6", 4};
constexpr std::string_view locatorSignature{"PK\6\7", 4};
constexpr std::string_view zip64Signature{"PK\6\6", 4};
constexpr std::string_view directorySignature{"PK\1\2", 4};
constexpr std::string_view localSignature{"PK\3\4", 4};

// The little-endian number of `bytes` bytes at a place that the caller has checked.
std::uint64_t numberAt(std::string_view data, std::size_t place, std::size_t bytes) {
    std::uint64_t value = 0;
    for (std::size_t i = bytes; i > 0; --i) {
        value = value << 8U | static_cast<unsigned char>(data[place + i - 1]);
    }
    return value;
}

std::uint16_t u16(std::string_view data, std::size_t place) {
    return static_cast<std::uint16_t>(numberAt(data, place, 2));
}

std::uint32_t u32(std::string_view data, std::size_t place) {
    return static_cast<std::uint32_t>(numberAt(data, place, 4));
}

std::uint64_t u64(std::string_view data, std::size_t place) { return numberAt(data, place, 8); }

bool fits(std::string_view data, std::uint64_t place, std::uint64_t length) {
    return place <= data.size() && length <= data.size() - place;
}

// Where the directory lies and how many records it announces; a hostile file may announce any number.
struct Directory {
    std::uint64_t count = 0;
    std::uint64_t size = 0;
    std::uint64_t offset = 0;
};

std::size_t endRecordPlace(std::string_view archive) {
    const std::size_t searched = std::min(archive.size(), endRecordSize + longestComment);
    const std::string_view tail = archive.substr(archive.size() - searched);
    const std::size_t place = tail.rfind(endSignature);
    if (place == std::string_view::npos || !fits(tail, place, endRecordSize)) {
        throw Failure("It isn’t a zip archive.");
    }
    return archive.size() - searched + place;
}

Directory zip64Directory(std::string_view archive, std::uint64_t place) {
    if (!fits(archive, place, zip64RecordSize) || archive.substr(place, 4) != zip64Signature) {
        throw Failure("The file’s ZIP64 record is damaged.");
    }
    return {u64(archive, place + 32), u64(archive, place + 40), u64(archive, place + 48)};
}

Directory announcedDirectory(std::string_view archive) {
    const std::size_t end = endRecordPlace(archive);
    const Directory plain{u16(archive, end + 10), u32(archive, end + 12), u32(archive, end + 16)};
    const bool pointsToZip64 = plain.count == inZip64Count || plain.size == inZip64 || plain.offset == inZip64;
    const bool hasLocator =
        pointsToZip64 && end >= locatorSize && archive.substr(end - locatorSize, 4) == locatorSignature;
    return hasLocator ? zip64Directory(archive, u64(archive, end - locatorSize + 8)) : plain;
}

std::string fromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) {
        Utf8::append(text, static_cast<unsigned char>(byte));
    }
    return text;
}

// The data of the ZIP64 block (id 1) of an extra field; empty when there is none within its bounds.
std::string_view zip64Block(std::string_view extra) {
    constexpr std::uint16_t zip64Id = 1;
    while (extra.size() >= 4) {
        const std::uint16_t id = u16(extra, 0);
        const std::size_t length = u16(extra, 2);
        extra.remove_prefix(4);
        if (length > extra.size()) {
            break;
        }
        if (id == zip64Id) {
            return extra.substr(0, length);
        }
        extra.remove_prefix(length);
    }
    return {};
}

// The block holds values for those fields alone that are marked, in this order.
void applyZip64(Entry& entry, std::string_view block) {
    for (std::uint64_t* field : {&entry.size, &entry.compressedSize, &entry.headerOffset}) {
        if (*field == inZip64 && block.size() >= 8) {
            *field = u64(block, 0);
            block.remove_prefix(8);
        }
    }
}

// Takes the first record off `records`, the directory's rest.
Entry takeRecord(std::string_view& records) {
    if (records.size() < directoryRecordSize || !records.starts_with(directorySignature)) {
        throw Failure("The file’s directory is damaged.");
    }
    const std::size_t nameLength = u16(records, 28);
    const std::size_t extraLength = u16(records, 30);
    const std::size_t commentLength = u16(records, 32);
    if (!fits(records, directoryRecordSize, nameLength + extraLength)) {
        throw Failure("The file’s directory is damaged.");
    }
    const bool namedInUtf8 = (u16(records, 8) & 0x800U) != 0;
    const std::string_view name = records.substr(directoryRecordSize, nameLength);
    Entry entry{namedInUtf8 ? Utf8::repaired(name) : fromLatin1(name),
                u16(records, 10),
                u32(records, 20),
                u32(records, 24),
                u32(records, 16),
                u32(records, 42)};
    applyZip64(entry, zip64Block(records.substr(directoryRecordSize + nameLength, extraLength)));
    records.remove_prefix(std::min(directoryRecordSize + nameLength + extraLength + commentLength, records.size()));
    return entry;
}

Failure damaged(const Entry& entry) { return Failure("“" + entry.path + "” is damaged."); }

Failure unchecked(const Entry& entry) {
    return Failure("“" + entry.path + "” didn’t check out (the file may be damaged).");
}

// The member's bytes as they lie in the archive.
std::string_view storedData(const Entry& entry, std::string_view archive) {
    if (!fits(archive, entry.headerOffset, localHeaderSize) ||
        archive.substr(entry.headerOffset, 4) != localSignature) {
        throw damaged(entry);
    }
    // The local lengths count: they may differ from those of the directory.
    const std::uint64_t start = entry.headerOffset + localHeaderSize + u16(archive, entry.headerOffset + 26) +
                                u16(archive, entry.headerOffset + 28);
    if (entry.size > largestMember || !fits(archive, start, entry.compressedSize)) {
        throw damaged(entry);
    }
    return archive.substr(start, entry.compressedSize);
}

Bytes inflated(const Entry& entry, std::string_view stored) {
    // Two bits can stand for at most 258 bytes, so a larger claim is wrong and gets no memory.
    constexpr std::uint64_t largestRatio = 1032;
    if (entry.size / largestRatio > stored.size()) {
        throw unchecked(entry);
    }
    Bytes bytes(entry.size);
    const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> inflater(
        libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
    if (!inflater) {
        throw std::bad_alloc();
    }
    // Without a place for the real length, anything but the announced one is an error.
    const auto result = libdeflate_deflate_decompress(
        inflater.get(), stored.data(), stored.size(), bytes.data(), bytes.size(), nullptr);
    if (result != LIBDEFLATE_SUCCESS) {
        throw unchecked(entry);
    }
    return bytes;
}

Bytes unpacked(const Entry& entry, std::string_view stored) {
    constexpr std::uint16_t methodStored = 0;
    constexpr std::uint16_t methodDeflate = 8;
    if (entry.method == methodDeflate) {
        return entry.size == 0 ? Bytes() : inflated(entry, stored);
    }
    if (entry.method != methodStored) {
        throw Failure("“" + entry.path + "” uses a kind of compression that can’t be read.");
    }
    if (stored.size() != entry.size) {
        throw unchecked(entry);
    }
    return Bytes(stored);
}

}  // namespace

std::vector<Entry> entries(std::string_view archive) {
    const Directory directory = announcedDirectory(archive);
    if (!fits(archive, directory.offset, directory.size)) {
        throw Failure("The file is damaged (its directory is cut off).");
    }
    std::string_view records = archive.substr(directory.offset, directory.size);
    std::vector<Entry> entries;
    for (std::uint64_t left = directory.count; left > 0; --left) {
        entries.push_back(takeRecord(records));
    }
    return entries;
}

Bytes extract(const Entry& entry, std::string_view archive) {
    Bytes bytes = unpacked(entry, storedData(entry, archive));
    if (libdeflate_crc32(0, bytes.data(), bytes.size()) != entry.crc32) {
        throw unchecked(entry);
    }
    return bytes;
}

std::optional<Bytes> member(std::string_view archive, std::string_view path) {
    return member(entries(archive), archive, path);
}

std::optional<Bytes> member(const std::vector<Entry>& directory, std::string_view archive, std::string_view path) {
    auto found = std::find_if(directory.begin(), directory.end(), [&](const Entry& e) { return e.path == path; });
    if (found == directory.end()) {
        found = std::find_if(
            directory.begin(), directory.end(), [&](const Entry& e) { return Text::equalIgnoringCase(e.path, path); });
    }
    return found == directory.end() ? std::nullopt : std::optional(extract(*found, archive));
}

}  // namespace corvale::ZipReader
