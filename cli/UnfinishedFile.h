#pragma once

#include <string>

namespace corvale::Cli {

// A file that shall not stay behind when the program is stopped while it is written: SIGINT, SIGTERM and SIGHUP delete
// it before they end the process. One at a time.
class UnfinishedFile {
public:
    // `path` outlives this object; the file need not exist yet.
    explicit UnfinishedFile(const std::string& path);
    // Leaves the file where it is.
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    // What the signal handlers do.
    static void removeFromSignalHandler();
};

}  // namespace corvale::Cli
