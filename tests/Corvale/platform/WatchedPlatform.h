#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <atomic>
#include <functional>
#include <utility>

#include "Corvale/platform/QtPlatform.h"

namespace corvale::TestSupport {

// The application's platform, which knows when nothing is left to do, the destruction of what was replaced included.
class WatchedPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;

    bool isIdle() const { return m_left == 0; }
    // Runs the event loop until then.
    void settle() const {
        while (!isIdle()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    void runInBackground(std::function<void()> work) override { QtPlatform::runInBackground(counted(std::move(work))); }
    void runOnMain(std::function<void()> work) override { QtPlatform::runOnMain(counted(std::move(work))); }

private:
    // Until it is done, so that what it asks for is counted before it counts as done itself.
    std::function<void()> counted(std::function<void()> work) {
        ++m_left;
        return [this, work = std::move(work)] {
            work();
            --m_left;
            QAbstractEventDispatcher::instance(QCoreApplication::instance()->thread())->wakeUp();
        };
    }

    std::atomic<int> m_left = 0;
};

}  // namespace corvale::TestSupport
