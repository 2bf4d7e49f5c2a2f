#pragma once

#include <functional>

#include "CorvaleKit/base/Failures.h"

namespace corvale {

// Polled by long loops; true asks for a stop. Called on the thread that runs the loop.
using CancelCheck = std::function<bool()>;

// Receives the fraction done, 0 to 1, never decreasing. Called on the thread that runs the comparison.
using ProgressReport = std::function<void(double)>;

// Rows between two polls of a long loop: often enough to stop at once, rarely enough to cost nothing.
inline constexpr std::size_t rowsPerPoll = 4096;

// Throws Cancelled when the caller asks for a stop. An empty callback never does.
inline void stopIfCancelled(const CancelCheck& isCancelled) {
    if (isCancelled && isCancelled()) {
        throw Cancelled();
    }
}

}  // namespace corvale
