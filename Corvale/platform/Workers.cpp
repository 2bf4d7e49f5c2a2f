#include "Corvale/platform/Workers.h"

#include <new>
#include <system_error>
#include <utility>

namespace corvale {

Workers::Workers(std::size_t wanted) {
    m_threads.reserve(wanted);
    try {
        while (m_threads.size() < wanted) {
            m_threads.emplace_back([this] { workUntilStopped(); });
        }
    } catch (const std::system_error&) {
        // Fewer do the same, later.
    } catch (const std::bad_alloc&) {
        // Likewise.
    }
}

Workers::~Workers() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard guard(m_lock);
        m_stops = true;
        dropped.swap(m_waiting);
    }
    m_changed.notify_all();
    dropped.clear();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

void Workers::start(std::function<void()> work) {
    {
        const std::lock_guard guard(m_lock);
        m_waiting.push_back(std::move(work));
    }
    m_changed.notify_one();
}

void Workers::workUntilStopped() {
    std::unique_lock guard(m_lock);
    for (;;) {
        m_changed.wait(guard, [this] { return m_stops || !m_waiting.empty(); });
        if (m_stops) {
            return;
        }
        std::function<void()> work = std::move(m_waiting.front());
        m_waiting.pop_front();
        guard.unlock();
        work();
        work = nullptr;
        guard.lock();
    }
}

}  // namespace corvale
