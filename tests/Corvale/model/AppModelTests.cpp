#include <gtest/gtest.h>

#include "Corvale/model/AppModel.h"
#include "tests/Corvale/model/ScriptedPlatform.h"

namespace corvale {
namespace {

using TestSupport::ScriptedPlatform;

const char* const octoberFile = "ID,Name,Price\n1,Pen,2\n2,Cup,3\n3,Hat,5\n";
const char* const novemberFile = "ID,Name,Price\n1,Pen,2\n2,Cup,4\n4,Ink,1\n";

class AppModelTest : public testing::Test {
protected:
    AppModelTest() {
        m_platform.files = {{"october.csv", octoberFile}, {"november.csv", novemberFile}};
    }

    void openPair() {
        m_model.open({ScriptedPlatform::url("october.csv"), ScriptedPlatform::url("november.csv")}, Side::before);
        m_platform.settle();
    }

    ScriptedPlatform m_platform;
    AppModel m_model{m_platform};
};

TEST_F(AppModelTest, TwoFilesAreComparedByTheSuggestedKey) {
    openPair();
    ASSERT_TRUE(m_model.result());
    EXPECT_EQ(m_model.match(), MatchChoice::key("ID"));
    EXPECT_EQ(m_model.result()->summary.added, 1);
    EXPECT_EQ(m_model.result()->summary.removed, 1);
    EXPECT_EQ(m_model.result()->summary.changed, 1);
    EXPECT_EQ(m_model.visible().size(), 3U);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_TRUE(m_model.loading().empty());
}

}  // namespace
}  // namespace corvale
