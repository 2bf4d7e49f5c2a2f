#include "cli/Interrupt.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

#include "cli/Progress.h"

namespace corvale::Cli::Interrupt {

namespace {

// Lock-free, so a signal handler may touch them.
std::atomic<bool> isDeferred{false};
std::atomic<bool> isSet{false};
static_assert(std::atomic<bool>::is_always_lock_free);

void handle(int) {
    if (isDeferred && !isSet.exchange(true)) {
        return;
    }
    Progress::eraseFromSignalHandler();
    std::_Exit(exitStatus);
}

}  // namespace

void install() {
    if (std::signal(SIGINT, handle) == SIG_IGN) {
        std::signal(SIGINT, SIG_IGN);
    }
}

Deferral::Deferral() { isDeferred = true; }
Deferral::~Deferral() { isDeferred = false; }

bool isRequested() { return isSet; }

}  // namespace corvale::Cli::Interrupt
