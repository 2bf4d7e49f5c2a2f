#include "tests/support/TestFiles.h"

#include <fstream>
#include <system_error>

namespace corvale::TestFiles {

std::optional<std::filesystem::path> samples() {
    const std::filesystem::path folder(CORVALE_SAMPLES);
    return folder.empty() ? std::nullopt : std::optional(folder);
}

std::filesystem::path program(std::string_view name) { return std::filesystem::path(CORVALE_PROGRAMS) / name; }

std::string read(const std::filesystem::path& path) {
    std::string bytes(std::filesystem::file_size(path), '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::filesystem::filesystem_error("cannot read", path, std::make_error_code(std::errc::io_error));
    }
    return bytes;
}

}  // namespace corvale::TestFiles
