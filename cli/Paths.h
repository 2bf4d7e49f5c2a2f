#pragma once

#include <string>

#include "CorvaleKit/base/Failures.h"

// Paths as the user is told of them.
namespace corvale::Cli {

// A file that cannot be read or written as wished; the message names it.
class FileFailure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// `path` between typographic quotes, valid UTF-8.
std::string quotedPath(const std::string& path);

// The part of a path that the user knows a file by, valid UTF-8.
std::string fileNameOf(const std::string& path);

}  // namespace corvale::Cli
