#pragma once

#include <memory>
#include <mutex>
#include <utility>

#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

// Asks running background work to stop; the one object that it shares with the main thread.
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

// Reads the flag, which it keeps.
inline CancelCheck checkOf(std::shared_ptr<const CancelFlag> flag) {
    return [flag = std::move(flag)] { return flag->isCancelled(); };
}

}  // namespace corvale
