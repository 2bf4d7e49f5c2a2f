#include "tests/Corvale/model/ThreadPlatform.h"

#include <fstream>
#include <iterator>
#include <utility>

#include "CorvaleKit/base/Failures.h"

namespace corvale::TestSupport {

ThreadPlatform::ThreadPlatform(std::size_t threads) {
    for (std::size_t thread = 0; thread < threads; ++thread) {
        m_threads.emplace_back([this] { workUntilStopped(); });
    }
}

ThreadPlatform::~ThreadPlatform() {
    std::deque<std::function<void()>> dropped;
    {
        const std::lock_guard guard(m_lock);
        m_stops = true;
        dropped.swap(m_background);
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads) {
        thread.join();
    }
}

void ThreadPlatform::deliver() {
    std::deque<std::function<void()>> posted;
    {
        const std::lock_guard guard(m_lock);
        posted.swap(m_main);
    }
    for (const auto& work : posted) {
        work();
    }
}

void ThreadPlatform::settle() {
    for (bool isSettled = false; !isSettled;) {
        {
            std::unique_lock guard(m_lock);
            m_changed.wait(guard, [this] { return !m_main.empty() || isIdle(); });
            isSettled = m_main.empty();
        }
        deliver();
    }
}

void ThreadPlatform::workUntilStopped() {
    std::unique_lock guard(m_lock);
    for (;;) {
        m_changed.wait(guard, [this] { return m_stops || !m_background.empty(); });
        if (m_stops) {
            return;
        }
        std::function<void()> work = std::move(m_background.front());
        m_background.pop_front();
        ++m_running;
        guard.unlock();
        work();
        work = nullptr;
        guard.lock();
        --m_running;
        m_changed.notify_all();
    }
}

void ThreadPlatform::showOpenPanel(const OpenPanel& /*panel*/, std::function<void(const QList<QUrl>&)> whenChosen) {
    runOnMain([whenChosen = std::move(whenChosen), files = answers.files] { whenChosen(files); });
}

void ThreadPlatform::showSavePanel(const SavePanel& /*panel*/, std::function<void(const QUrl&)> whenChosen) {
    runOnMain([whenChosen = std::move(whenChosen), target = answers.target] { whenChosen(target); });
}

// A file that was opened stays whole, even where it is replaced or removed meanwhile.
Bytes ThreadPlatform::readFile(const QUrl& url) {
    std::ifstream file(url.toLocalFile().toStdString(), std::ios::binary);
    if (!file) {
        throw UserFailure("“" + url.fileName().toStdString() + "” couldn’t be opened: No such file or directory.");
    }
    return Bytes(std::string(std::istreambuf_iterator<char>(file), {}));
}

void ThreadPlatform::writeFile(const QUrl& url, std::string_view bytes) {
    std::ofstream file(url.toLocalFile().toStdString(), std::ios::binary);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush()) {
        throw UserFailure("It cannot be written.");
    }
}

std::optional<std::string> ThreadPlatform::storedData(const std::string& key) {
    const auto found = m_stored.find(key);
    return found == m_stored.end() ? std::nullopt : std::optional(found->second);
}

void ThreadPlatform::storeData(const std::string& key, std::string_view data) { m_stored[key] = data; }

void ThreadPlatform::runInBackground(std::function<void()> work) {
    {
        const std::lock_guard guard(m_lock);
        m_background.push_back(std::move(work));
    }
    m_changed.notify_all();
}

void ThreadPlatform::runOnMain(std::function<void()> work) {
    {
        const std::lock_guard guard(m_lock);
        m_main.push_back(std::move(work));
    }
    m_changed.notify_all();
}

}  // namespace corvale::TestSupport
