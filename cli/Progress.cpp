#include "cli/Progress.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <system_error>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace corvale::Cli {

namespace {

// Work that ends sooner needs no telling.
constexpr std::chrono::milliseconds patience{400};
constexpr std::chrono::milliseconds interval{100};

// Back to the start of the line, and all of it erased (ECMA-48, 8.3.41).
constexpr char erasure[] = "\r\x1b[K";

std::atomic<bool> isShown{false};
static_assert(std::atomic<bool>::is_always_lock_free);

}  // namespace

Progress::Progress(bool enabled, const char* firstPhase) : m_phase(firstPhase) {
    if (!enabled) {
        return;
    }
    try {
        m_thread = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        // The system has no thread to give, and the work matters more than being told of it.
    }
}

Progress::~Progress() { end(); }

void Progress::phase(const char* name) {
    m_percent = -1;
    m_phase = name;
}

void Progress::fraction(double done) { m_percent = static_cast<int>(done * 100); }

void Progress::end() {
    if (!m_thread.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    m_ending.notify_one();
    m_thread.join();
    if (isShown.exchange(false)) {
        std::fputs(erasure, stderr);
    }
}

void Progress::run() {
    std::unique_lock lock(m_mutex);
    const auto isEnding = [this] { return m_isEnding; };
    for (auto wait = patience; !m_ending.wait_for(lock, wait, isEnding); wait = interval) {
        draw();
    }
}

void Progress::draw() const {
    // A fixed place, written at once: memory may be short just now, and pieces would flicker.
    std::array<char, 64> line{};
    const int percent = m_percent;
    if (percent >= 0) {
        std::snprintf(line.data(), line.size(), "%s%s… %d %%", erasure, m_phase.load(), percent);
    } else {
        std::snprintf(line.data(), line.size(), "%s%s…", erasure, m_phase.load());
    }
    isShown = true;
    std::fputs(line.data(), stderr);
}

void Progress::eraseFromSignalHandler() {
#if __has_include(<unistd.h>)
    if (isShown) {
        // Nothing can be done about a terminal that is gone.
        [[maybe_unused]] const auto written = ::write(STDERR_FILENO, erasure, sizeof erasure - 1);
    }
#endif
}

}  // namespace corvale::Cli
