#include "MacMenuBaseline/MainThread.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>
#include <cstdlib>

namespace MacMenuBaseline {

void requireMainThread(const char* operation) {
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->thread() != QThread::currentThread()) {
        std::fprintf(stderr, "MacMenuBaseline: %s must run on the main thread\n", operation);
        std::abort();
    }
}

}  // namespace MacMenuBaseline
