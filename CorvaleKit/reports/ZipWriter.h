#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"

struct libdeflate_compressor;

namespace corvale {

// Builds a ZIP archive in memory (PKWARE APPNOTE 6.3, without ZIP64). Every member carries the same date, so that equal
// members make equal archives.
class ZipWriter {
public:
    // In bytes, of a member and of the archive.
    static constexpr std::size_t largestMember = std::numeric_limits<std::uint32_t>::max();

    // A member or the archive would need sizes that a plain ZIP archive cannot express.
    class TooLarge : public UserFailure {
    public:
        TooLarge();
    };

    // Throws std::bad_alloc.
    ZipWriter();
    ~ZipWriter();
    ZipWriter(const ZipWriter&) = delete;
    ZipWriter& operator=(const ZipWriter&) = delete;

    // Adds a member, deflated where that makes it smaller. `path` is UTF-8 and shorter than 64 KiB. Memory on the way
    // is what the compressed member takes. Stops the program at the 65,536th member. Throws TooLarge.
    void add(std::string_view path, std::string_view content);

    // The whole archive; the writer is spent afterwards. Throws TooLarge.
    std::string finish();

private:
    struct FreeCompressor {
        void operator()(libdeflate_compressor* compressor) const;
    };

    std::unique_ptr<libdeflate_compressor, FreeCompressor> m_compressor;
    std::string m_archive;
    std::string m_directory;
    std::size_t m_count = 0;
};

}  // namespace corvale
