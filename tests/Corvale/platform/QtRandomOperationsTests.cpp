#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSettings>
#include <memory>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/RandomUser.h"
#include "tests/Corvale/platform/BusyQtPlatform.h"
#include "tests/support/ScratchFolder.h"

namespace corvale {
namespace {

using TestSupport::BusyQtPlatform;
using TestSupport::RandomUser;

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
