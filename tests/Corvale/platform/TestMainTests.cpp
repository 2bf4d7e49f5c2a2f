#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QString>

namespace {

TEST(TestMain, FailsATestThatQtWarnsAbout) {
    EXPECT_NONFATAL_FAILURE(qWarning("of something"), "Qt warns: of something");
    EXPECT_NONFATAL_FAILURE(qCritical("of something"), "Qt warns: of something");
}

TEST(TestMain, NeedsNoScreen) { EXPECT_EQ(QApplication::platformName(), QStringLiteral("offscreen")); }

}  // namespace
