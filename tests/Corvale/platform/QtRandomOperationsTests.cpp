#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSettings>
#include <functional>
#include <memory>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/PanelAnswers.h"
#include "tests/Corvale/model/RandomUser.h"
#include "tests/Corvale/platform/WatchedPlatform.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::PanelAnswers;
using TestSupport::RandomUser;

// The real platform with a user who answers panels at once.
class BusyQtPlatform : public TestSupport::WatchedPlatform {
public:
    using WatchedPlatform::WatchedPlatform;

    PanelAnswers answers;

    void showOpenPanel(const OpenPanel& /*panel*/, std::function<void(const QList<QUrl>&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), files = answers.files] { whenChosen(files); });
    }
    void showSavePanel(const SavePanel& /*panel*/, std::function<void(const QUrl&)> whenChosen) override {
        runOnMain([whenChosen = std::move(whenChosen), target = answers.target] { whenChosen(target); });
    }
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
