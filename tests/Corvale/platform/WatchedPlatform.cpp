#include "tests/Corvale/platform/WatchedPlatform.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <utility>

namespace corvale::TestSupport {

void WatchedPlatform::runInBackground(std::function<void()> work) {
    QtPlatform::runInBackground(counted(std::move(work)));
}

void WatchedPlatform::runOnMain(std::function<void()> work) { QtPlatform::runOnMain(counted(std::move(work))); }

void WatchedPlatform::settle() const {
    while (m_left > 0) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

std::function<void()> WatchedPlatform::counted(std::function<void()> work) {
    ++m_left;
    return [this, work = std::move(work)] {
        work();
        --m_left;
        QAbstractEventDispatcher::instance(QCoreApplication::instance()->thread())->wakeUp();
    };
}

}  // namespace corvale::TestSupport
