#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace corvale::TestSupport {

// A new folder under the system's temporary one, gone with all that is in it when this object goes.
class ScratchFolder {
public:
    // Throws std::filesystem::filesystem_error.
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    // The path of a file in it, which need not exist.
    std::string at(std::string_view name) const { return (m_path / name).string(); }
    // Writes the file and gives its path.
    std::string write(std::string_view name, std::string_view bytes) const;

private:
    std::filesystem::path m_path;
};

}  // namespace corvale::TestSupport
