#pragma once

#include <cstddef>

#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

// Polls for a stop by the work done, for loops whose steps cost from next to nothing to a whole wide row.
class PollMeter {
public:
    // `isCancelled` may be empty and must outlive the meter.
    explicit PollMeter(const CancelCheck& isCancelled) : m_isCancelled(isCancelled) {}

    // Throws Cancelled when the caller asks for a stop.
    void poll() {
        m_spent = 0;
        stopIfCancelled(m_isCancelled);
    }

    // Adds work, about one looked-at cell a unit, and polls whenever a few milliseconds of it came together.
    void spend(std::size_t work) {
        m_spent += work;
        if (m_spent >= workPerPoll) [[unlikely]] {
            poll();
        }
    }

    static constexpr std::size_t workPerPoll = std::size_t{1} << 18U;

private:
    const CancelCheck& m_isCancelled;
    std::size_t m_spent = 0;
};

}  // namespace corvale
