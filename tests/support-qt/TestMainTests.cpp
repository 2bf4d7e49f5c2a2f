#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QString>

namespace {

TEST(TestMain, FailsATestThatQtWarnsAbout) {
    EXPECT_NONFATAL_FAILURE(qWarning("of something"), "Qt warns: of something");
    EXPECT_NONFATAL_FAILURE(qCritical("of something"), "Qt warns: of something");
}

TEST(TestMain, NeedsNoScreen) {
    // What the main sets unless it was set before.
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen") {
        GTEST_SKIP() << "QT_QPA_PLATFORM names a screen.";
    }
    EXPECT_EQ(QApplication::platformName(), QStringLiteral("offscreen"));
}

}  // namespace
