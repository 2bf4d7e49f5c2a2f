#include "tests/Corvale/robustness/Watchdog.h"

#include <cstdlib>
#include <iostream>
#include <utility>

namespace corvale::TestSupport {

Watchdog::Watchdog(std::chrono::seconds patience) : m_patience(patience), m_thread([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard guard(m_lock);
        m_ends = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void Watchdog::goesOn(std::string doing) {
    {
        const std::lock_guard guard(m_lock);
        m_doing = std::move(doing);
        m_wentOn = true;
    }
    m_changed.notify_one();
}

void Watchdog::watch() {
    std::unique_lock guard(m_lock);
    while (m_changed.wait_for(guard, m_patience, [this] { return m_wentOn || m_ends; })) {
        if (m_ends) {
            return;
        }
        m_wentOn = false;
    }
    std::cerr << "It hangs after: " << m_doing << std::endl;
    std::abort();
}

}  // namespace corvale::TestSupport
