#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/loading/ZipReader.h"
#include "CorvaleKit/text/Utf8.h"

namespace ZipReader = corvale::ZipReader;

namespace {

// A member is exactly what its record says, or a failure.
void requireTruth(const ZipReader::Entry& entry, std::string_view archive) {
    CORVALE_REQUIRE(corvale::Utf8::isValid(entry.path), "a path is no UTF-8");
    try {
        const corvale::Bytes bytes = ZipReader::extract(entry, archive);
        CORVALE_REQUIRE(bytes.size() == entry.size, "a member has another size than its record says");
        CORVALE_REQUIRE(entry.size <= std::uint64_t{1} << 30U, "a member larger than any may be was read");
        CORVALE_REQUIRE(entry.headerOffset < archive.size(), "a member was read from outside the archive");
        CORVALE_REQUIRE(entry.method == 8 || (entry.method == 0 && entry.compressedSize == entry.size),
                        "a member was read by a method of no known kind");
        CORVALE_REQUIRE(entry.method == 0 || entry.size / 1032 <= entry.compressedSize, "deflate cannot pack so well");
    } catch (const ZipReader::Failure& failure) {
        // The text of an exception ends at a zero byte.
        const std::string_view path = std::string_view(entry.path).substr(0, entry.path.find('\0'));
        const bool namesIt = failure.message().find(path) != std::string::npos;
        CORVALE_REQUIRE(namesIt, "a failure does not name its member");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view archive(reinterpret_cast<const char*>(data), size);
    try {
        const auto entries = ZipReader::entries(archive);
        CORVALE_REQUIRE(entries.size() <= size / 46, "there are more records than fit");
        for (const auto& entry : entries) {
            requireTruth(entry, archive);
        }
        CORVALE_REQUIRE(entries.empty() || !ZipReader::member({}, archive, entries[0].path), "a member of nothing");
    } catch (const ZipReader::Failure& failure) {
        CORVALE_REQUIRE(!failure.message().empty(), "a failure says nothing");
    }
    return 0;
}
