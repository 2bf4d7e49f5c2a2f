#include "cli/Interrupt.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

#if __has_include(<sys/time.h>)
#include <sys/time.h>
#endif

#include "cli/ExitStatus.h"
#include "cli/Progress.h"
#include "cli/UnfinishedFile.h"

namespace corvale::Cli::Interrupt {

namespace {

// Lock-free, so a signal handler may touch them.
std::atomic<bool> isDeferred{false};
std::atomic<bool> isSet{false};
static_assert(std::atomic<bool>::is_always_lock_free);

void endNow() {
    UnfinishedFile::removeFromSignalHandler();
    Progress::eraseFromSignalHandler();
    std::_Exit(ExitStatus::interrupted);
}

// The comparison stops at its next poll, as a rule within milliseconds. Over very wide tables polls are farther apart
// than a user's patience; nothing needs to be put in order, so the process then ends without it.
void endSoon() {
#if __has_include(<sys/time.h>)
    std::signal(SIGALRM, [](int) { endNow(); });
    itimerval patience{};
    patience.it_value.tv_usec = 80'000;
    setitimer(ITIMER_REAL, &patience, nullptr);
#endif
}

void handle(int) {
    if (isDeferred && !isSet.exchange(true)) {
        endSoon();
        return;
    }
    endNow();
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
