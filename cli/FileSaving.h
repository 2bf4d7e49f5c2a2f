#pragma once

#include <string>
#include <string_view>

namespace corvale::Cli {

// Fails early where a file cannot be saved under this path: a folder, or in a folder that does not exist. Throws
// FileFailure.
void refuseUnwritable(const std::string& path);

// Replaces the file, or makes it, in one step: whatever happens, there is the old file or the whole new one, and
// nothing beside it. Access rights are those of the old file. Throws FileFailure.
void saveFile(const std::string& path, std::string_view bytes);

}  // namespace corvale::Cli
