#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace corvale::TestSupport {

// Ends the process, with a last word, when nobody has said for a while that the main thread goes on. The patience is
// far beyond what anything takes: it is there for what never ends.
class Watchdog {
public:
    explicit Watchdog(std::chrono::seconds patience);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // `doing` is what is told if it never ends.
    void goesOn(std::string doing);

private:
    void watch();

    const std::chrono::seconds m_patience;
    std::mutex m_lock;  // of what follows
    std::condition_variable m_changed;
    std::string m_doing;
    bool m_wentOn = false;
    bool m_ends = false;
    std::thread m_thread;
};

}  // namespace corvale::TestSupport
