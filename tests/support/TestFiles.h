#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

// Where the tests find files, and how they read them.
namespace corvale::TestFiles {

// The folder that the CMake option CORVALE_SAMPLES names; none when the build was configured without it. Tests that
// read samples then say GTEST_SKIP().
std::optional<std::filesystem::path> samples();

// A program of this build, such as corvale-cli.
std::filesystem::path program(std::string_view name);

// The file's bytes. Throws std::filesystem::filesystem_error with the path when it cannot be read.
std::string read(const std::filesystem::path& path);

}  // namespace corvale::TestFiles
