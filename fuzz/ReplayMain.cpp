#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& place) {
    if (!std::filesystem::is_directory(place)) {
        return {place};
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(place)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

// The name goes out first: when the input crashes the program, it is the last line.
void replay(const std::filesystem::path& path) {
    std::cout << path.string() << std::endl;
    // Exactly as many bytes as the file has, so that the address sanitizer sees a read past the end.
    std::vector<char> bytes(std::filesystem::file_size(path));
    std::ifstream file(path, std::ios::binary);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
        throw std::filesystem::filesystem_error("cannot read", path, std::make_error_code(std::errc::io_error));
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

// Runs each file, and each file of each folder, through the fuzz target once. No input at all is a failure.
int main(int argc, char** argv) {
    try {
        std::size_t count = 0;
        for (int index = 1; index < argc; ++index) {
            for (const auto& path : filesOf(argv[index])) {
                replay(path);
                ++count;
            }
        }
        std::cout << count << " inputs replayed\n";
        return count == 0 ? 1 : 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 1;
    }
}
