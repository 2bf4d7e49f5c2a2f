#pragma once

#include <chrono>
#include <optional>

namespace corvale {

// Lets through no more reports than a screen shows, and the last one of a run always.
class ProgressThrottle {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::nanoseconds interval = std::chrono::nanoseconds(std::chrono::seconds(1)) / 60;

    // `now` does not run backwards.
    bool lets(double fraction, Time now) {
        if (fraction < 1.0 && m_last && now - *m_last < interval) {
            return false;
        }
        m_last = now;
        return true;
    }

private:
    std::optional<Time> m_last;
};

}  // namespace corvale
