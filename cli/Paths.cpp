#include "cli/Paths.h"

#include <filesystem>

#include "CorvaleKit/text/Utf8.h"

namespace corvale::Cli {

std::string quotedPath(const std::string& path) { return "“" + Utf8::repaired(path) + "”"; }

std::string fileNameOf(const std::string& path) {
    return Utf8::repaired(std::filesystem::path(path).filename().string());
}

}  // namespace corvale::Cli
