#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace corvale {

// Threads that take work in the order in which it came. They are all there from the start: a thread that the system
// refuses in the middle of things would leave work lying that somebody waits for.
class Workers {
public:
    // As many as the system gives; perhaps none.
    explicit Workers(std::size_t wanted);
    // Waits for the work that has begun; what has not is dropped.
    ~Workers();
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

    std::size_t count() const { return m_threads.size(); }

    // Work is run and destroyed on one of the threads, of which there is one at least; it throws nothing. On any
    // thread. Throws std::bad_alloc.
    void start(std::function<void()> work);

private:
    void workUntilStopped();

    std::mutex m_lock;  // of what follows
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_waiting;
    bool m_stops = false;
    std::vector<std::thread> m_threads;
};

}  // namespace corvale
