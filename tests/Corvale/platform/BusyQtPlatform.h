#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <atomic>
#include <functional>
#include <utility>

#include "Corvale/platform/QtPlatform.h"
#include "tests/Corvale/model/PanelAnswers.h"

namespace corvale::TestSupport {

// The real platform with a user who answers panels at once, and that can be waited for.
class BusyQtPlatform : public QtPlatform {
public:
    using QtPlatform::QtPlatform;

    PanelAnswers answers;

    void settle() const {
        while (m_left > 0) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    void showOpenPanel(const OpenPanel& /*panel*/, std::function<void(const QList<QUrl>&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), files = answers.files] { whenChosen(files); });
    }
    void showSavePanel(const SavePanel& /*panel*/, std::function<void(const QUrl&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), target = answers.target] { whenChosen(target); });
    }
    void runInBackground(std::function<void()> work) override { QtPlatform::runInBackground(counted(std::move(work))); }
    void runOnMain(std::function<void()> work) override { QtPlatform::runOnMain(counted(std::move(work))); }

private:
    // Until it is done, and what it asked for is counted too.
    std::function<void()> counted(std::function<void()> work) {
        ++m_left;
        return [this, work = std::move(work)] {
            work();
            --m_left;
            QAbstractEventDispatcher::instance(qApp->thread())->wakeUp();
        };
    }

    std::atomic<int> m_left = 0;
};

}  // namespace corvale::TestSupport
