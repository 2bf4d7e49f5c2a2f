#include <gtest/gtest.h>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QSettings>
#include <atomic>
#include <functional>
#include <memory>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/platform/QtPlatform.h"
#include "tests/Corvale/model/PanelAnswers.h"
#include "tests/Corvale/model/RandomUser.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::PanelAnswers;
using TestSupport::RandomUser;

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

class QtRandomOperations : public testing::TestWithParam<unsigned> {
protected:
    std::unique_ptr<BusyQtPlatform> platform() const {
        return std::make_unique<BusyQtPlatform>(
            std::make_unique<QSettings>(QString::fromStdString(m_folder.at("settings.ini")), QSettings::IniFormat));
    }
    static RandomUser::Surroundings surroundings(BusyQtPlatform& platform) {
        return {[] { QCoreApplication::processEvents(); }, [&platform] { platform.settle(); }, platform.answers};
    }

    TestSupport::ScratchFolder m_folder;
};

TEST_P(QtRandomOperations, LeaveTheModelInOrder) {
    const auto system = platform();
    AppModel model(*system);
    RandomUser user(model, surroundings(*system), GetParam());
    user.work(2000);
    user.expectVariety();
}

// As when the user quits: what is under way goes nowhere.
TEST_P(QtRandomOperations, MayEndAtAnyTime) {
    for (unsigned end = 0; end < 50; ++end) {
        const auto system = platform();
        AppModel model(*system);
        RandomUser(model, surroundings(*system), GetParam() + end).rush(20);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, QtRandomOperations, testing::Values(3));

}  // namespace
}  // namespace corvale
