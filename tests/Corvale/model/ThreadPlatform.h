#pragma once

#include <QList>
#include <QUrl>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Corvale/model/Platform.h"
#include "tests/Corvale/model/PanelAnswers.h"

namespace corvale::TestSupport {

// The system with background work on threads of the standard library, which the thread sanitizer sees through, and
// files on disk. The test is the main thread and says when it takes what was posted to it.
class ThreadPlatform : public Platform {
public:
    explicit ThreadPlatform(std::size_t threads = 3);
    ~ThreadPlatform() override;
    ThreadPlatform(const ThreadPlatform&) = delete;
    ThreadPlatform& operator=(const ThreadPlatform&) = delete;

    // What the user picks in the next panel.
    PanelAnswers answers;

    // Delivers what was posted to the main thread so far.
    void deliver();
    // Waits and delivers until nothing is left to do.
    void settle();

    void showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) override;
    void showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) override;
    Bytes readFile(const QUrl& url) override;
    void writeFile(const QUrl& url, std::string_view bytes) override;
    std::optional<std::string> storedData(const std::string& key) override;
    void storeData(const std::string& key, std::string_view data) override;
    std::string language() const override { return "en"; }
    NumberStyle numberStyle() const override { return NumberStyle::dotDecimal; }
    void runInBackground(std::function<void()> work) override;
    void runOnMain(std::function<void()> work) override;

private:
    void workUntilStopped();
    bool isIdle() const { return m_background.empty() && m_running == 0; }

    std::map<std::string, std::string> m_stored;
    std::mutex m_lock;  // of what follows
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_background;
    std::deque<std::function<void()>> m_main;
    std::size_t m_running = 0;
    bool m_stops = false;
    std::vector<std::thread> m_threads;
};

}  // namespace corvale::TestSupport
