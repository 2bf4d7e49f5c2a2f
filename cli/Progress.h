#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace corvale::Cli {

// A line on standard error that tells what long work is about; it appears only after a while, and is erased in the end.
// A thread of its own draws it, so that reporting costs the work one store.
class Progress {
public:
    // `firstPhase` is as for phase(). Without `enabled` nothing is ever shown. One at a time.
    Progress(bool enabled, const char* firstPhase);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // What is being done, a literal such as "Reading".
    void phase(const char* name);
    // The part of the phase that is done, 0 to 1.
    void fraction(double done);
    // Erases the line for good; before anything else is printed.
    void end();

    // What end() does to the terminal, in a signal handler.
    static void eraseFromSignalHandler();

private:
    void run();
    void draw() const;

    std::atomic<const char*> m_phase;
    std::atomic<int> m_percent{-1};
    std::mutex m_mutex;
    std::condition_variable m_ending;
    bool m_isEnding = false;
    std::thread m_thread;
};

}  // namespace corvale::Cli
