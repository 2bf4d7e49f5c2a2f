#include "tests/support/ScratchFolder.h"

#include <fstream>
#include <random>
#include <system_error>

namespace corvale::TestSupport {

ScratchFolder::ScratchFolder()
    : m_path(std::filesystem::temp_directory_path() / ("corvale-" + std::to_string(std::random_device()()))) {
    if (!std::filesystem::create_directory(m_path)) {
        throw std::filesystem::filesystem_error("exists", m_path, std::make_error_code(std::errc::file_exists));
    }
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string ScratchFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream file(m_path / name, std::ios::binary);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
        throw std::filesystem::filesystem_error(
            "cannot write", m_path / name, std::make_error_code(std::errc::io_error));
    }
    return at(name);
}

}  // namespace corvale::TestSupport
