#pragma once

#include <mutex>

namespace corvale {

// Asks a running comparison to stop; the one object that the main thread and background work share.
class CancelFlag {
public:
    void cancel() {
        const std::lock_guard guard(m_lock);
        m_flag = true;
    }
    bool isCancelled() const {
        const std::lock_guard guard(m_lock);
        return m_flag;
    }

private:
    mutable std::mutex m_lock;
    bool m_flag = false;
};

}  // namespace corvale
