#pragma once

#include <string>
#include <string_view>

namespace corvale::Cli {

// Fails where saveFile would, as far as that can be known without the contents: a folder or a device of that name, a
// read-only file, a folder that does not exist or takes no files. Throws FileFailure.
void refuseUnwritable(const std::string& path);

// Replaces the file, or makes it, in one step: whatever happens, there is the old file or the whole new one, and
// nothing beside it. Access rights are those of the old file, and a link stays a link. Throws FileFailure.
void saveFile(const std::string& path, std::string_view bytes);

}  // namespace corvale::Cli
