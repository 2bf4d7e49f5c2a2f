#include <QApplication>
#include <QFileOpenEvent>

#include "tests/Corvale/commands/AppTest.h"

namespace corvale {
namespace {

class AppDelegateTest : public TestSupport::AppTest {
protected:
    AppDelegateTest() {
        m_platform.files["a.csv"] = "id,n\n1,x\n";
        m_platform.files["b.csv"] = "id,n\n1,y\n";
    }
};

TEST_F(AppDelegateTest, OneFileFillsBefore) {
    start({QStringLiteral("/a.csv")});
    ASSERT_TRUE(model().before());
    EXPECT_EQ(model().before()->name, "a.csv");
    EXPECT_FALSE(model().after());
}

TEST_F(AppDelegateTest, TwoFilesFillBothSides) {
    start({QStringLiteral("/a.csv"), QStringLiteral("file:///b.csv")});
    ASSERT_TRUE(model().result());
    EXPECT_EQ(model().before()->name, "a.csv");
    EXPECT_EQ(model().after()->name, "b.csv");
}

TEST_F(AppDelegateTest, AFileThatIsNotThereIsTold) {
    start({QStringLiteral("/missing.csv")});
    EXPECT_EQ(model().problem(), QStringLiteral("“missing.csv” couldn’t be opened: No such file or directory"));
    EXPECT_FALSE(model().before());
}

TEST_F(AppDelegateTest, SaysWhichFilesItDoesNotOpen) {
    testing::internal::CaptureStderr();
    start({QStringLiteral("/a.csv"), QStringLiteral("/b.csv"), QStringLiteral("/c.csv")});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "corvale: Two files can be compared at a time; “/c.csv” was not opened.\n");
    ASSERT_TRUE(model().result());
    EXPECT_EQ(model().before()->name, "a.csv");
    EXPECT_EQ(model().after()->name, "b.csv");
}

TEST_F(AppDelegateTest, PassesOverAnEmptyName) {
    testing::internal::CaptureStderr();
    start({QString()});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "corvale: A file name is empty and was passed over.\n");
    EXPECT_FALSE(model().before());
    EXPECT_EQ(model().problem(), std::nullopt);
}

TEST_F(AppDelegateTest, WhatLooksLikeAnOptionIsAFileToo) {
    start({QStringLiteral("--help")});
    EXPECT_EQ(model().problem(), QStringLiteral("“--help” couldn’t be opened: No such file or directory"));
}

TEST_F(AppDelegateTest, TakesTheFilesOfOneOpeningTogether) {
    start();
    for (const QString& path : {QStringLiteral("file:///a.csv"), QStringLiteral("file:///b.csv")}) {
        QFileOpenEvent event{QUrl(path)};
        QApplication::sendEvent(qApp, &event);
    }
    EXPECT_TRUE(model().loading().empty());
    QApplication::processEvents();
    m_platform.settle();
    ASSERT_TRUE(model().result());
    EXPECT_EQ(model().before()->name, "a.csv");
    EXPECT_EQ(model().after()->name, "b.csv");
}

}  // namespace
}  // namespace corvale
