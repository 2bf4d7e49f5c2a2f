#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/base/Failures.h"

// Members of a ZIP archive held in memory (PKWARE APPNOTE 6.3, ZIP64 included): stored and deflated ones, each checked
// for size and CRC-32.
namespace corvale::ZipReader {

// A damaged archive or member, or one packed in a way that is not read.
class Failure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// One central-directory record.
struct Entry {
    std::string path;  // UTF-8
    std::uint16_t method = 0;
    std::uint64_t compressedSize = 0;
    std::uint64_t size = 0;  // after decompression
    std::uint32_t crc32 = 0;
    std::uint64_t headerOffset = 0;  // of the local header, from the start of the archive

    friend bool operator==(const Entry&, const Entry&) = default;
};

// In directory order. Throws Failure.
std::vector<Entry> entries(std::string_view archive);

// The member's decompressed bytes, at most 1 GiB. Throws Failure.
Bytes extract(const Entry& entry, std::string_view archive);

// The member at that path: the first that equals it exactly, else the first that does without regard to letter case.
// None when there is no such member. Throws Failure.
std::optional<Bytes> member(std::string_view archive, std::string_view path);
// The same over a directory already read.
std::optional<Bytes> member(const std::vector<Entry>& directory, std::string_view archive, std::string_view path);

}  // namespace corvale::ZipReader
