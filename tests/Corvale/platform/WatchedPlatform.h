#pragma once

#include <atomic>
#include <functional>

#include "Corvale/platform/QtPlatform.h"

namespace corvale::TestSupport {

// The application's platform, which knows when nothing is left to do, the destruction of what was replaced included.
class WatchedPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;

    void runInBackground(std::function<void()> work) override;
    void runOnMain(std::function<void()> work) override;

    // Turns the event loop until nothing is left to do.
    void settle() const;

private:
    // Until it is done, so that what it asks for is counted before it is done itself.
    std::function<void()> counted(std::function<void()> work);

    std::atomic<int> m_left = 0;
};

}  // namespace corvale::TestSupport
