#include "cli/UnfinishedFile.h"

#include <atomic>
#include <csignal>
#include <cstdio>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace corvale::Cli {

namespace {

// A signal handler may touch it: lock-free, and what it points to outlives the guard that set it.
std::atomic<const char*> unfinishedPath{nullptr};
static_assert(std::atomic<const char*>::is_always_lock_free);

void removeAndEnd(int signal) {
    UnfinishedFile::removeFromSignalHandler();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// Signals that would end the process without asking; SIGINT has its handler elsewhere.
#ifdef SIGHUP
constexpr int endingSignals[] = {SIGTERM, SIGHUP};
#else
constexpr int endingSignals[] = {SIGTERM};
#endif

void replaceHandler(int signal, void (*from)(int), void (*to)(int)) {
    const auto before = std::signal(signal, to);
    if (before != from) {
        std::signal(signal, before);
    }
}

}  // namespace

UnfinishedFile::UnfinishedFile(const std::string& path) {
    unfinishedPath = path.c_str();
    for (const int signal : endingSignals) {
        replaceHandler(signal, SIG_DFL, removeAndEnd);
    }
}

UnfinishedFile::~UnfinishedFile() {
    for (const int signal : endingSignals) {
        replaceHandler(signal, removeAndEnd, SIG_DFL);
    }
    unfinishedPath = nullptr;
}

void UnfinishedFile::removeFromSignalHandler() {
    if (const char* path = unfinishedPath) {
#if __has_include(<unistd.h>)
        ::unlink(path);
#else
        std::remove(path);
#endif
    }
}

}  // namespace corvale::Cli
