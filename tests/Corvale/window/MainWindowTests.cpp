#include <QTest>

#include "Corvale/window/MainWindow.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::WindowTest;

class MainWindowTest : public WindowTest {
protected:
    void startExport() {
        compare("ID,Name\n1,Pen\n2,Cup\n", "ID,Name\n1,Pen\n2,Mug\n");
        model.exportReport(ReportKind::html);
        platform.chooseTarget("report.html");
        ASSERT_TRUE(model.exporting());
    }
};

TEST_F(MainWindowTest, IsNamedAndNeverTooSmall) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Corvale"));
    EXPECT_EQ(window.minimumSize(), QSize(760, 480));
}

TEST_F(MainWindowTest, Closes) {
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, ClosesOnceTheReportIsWritten) {
    startExport();
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    platform.settle();
    EXPECT_EQ(platform.files.count("report.html"), 1U);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, StaysOpenToTellThatTheReportFailed) {
    platform.writeFailure = "Disk full";
    startExport();
    window.close();
    platform.settle();
    EXPECT_EQ(model.problem(), QStringLiteral("The report couldn’t be saved: Disk full"));
    EXPECT_TRUE(window.isVisible());
    model.dismissProblem();
    EXPECT_TRUE(window.close());
}

TEST_F(MainWindowTest, AReportAloneClosesNothing) {
    startExport();
    platform.settle();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MainWindowTest, FollowsTheDesktopBetweenLightAndDark) {
    const auto backgroundOf = [this] { return window.grab().toImage().pixelColor(640, 50); };
    const QColor light = backgroundOf();
    const QPalette desktop = QApplication::palette();
    QPalette dark = desktop;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    QApplication::processEvents();
    EXPECT_LT(backgroundOf().lightness(), light.lightness());
    QApplication::setPalette(desktop);
    QApplication::processEvents();
    EXPECT_EQ(backgroundOf(), light);
}

}  // namespace
}  // namespace corvale
