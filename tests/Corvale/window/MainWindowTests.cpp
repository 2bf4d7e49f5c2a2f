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
        m_model.exportReport(ReportKind::html);
        m_platform.chooseTarget("report.html");
        ASSERT_TRUE(m_model.exporting());
    }
};

TEST_F(MainWindowTest, IsNamedAndNeverTooSmall) {
    EXPECT_EQ(m_window.windowTitle(), QStringLiteral("Corvale"));
    EXPECT_EQ(m_window.minimumSize(), QSize(760, 480));
}

TEST_F(MainWindowTest, Closes) {
    EXPECT_TRUE(m_window.close());
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(MainWindowTest, ClosesOnceTheReportIsWritten) {
    startExport();
    EXPECT_FALSE(m_window.close());
    EXPECT_TRUE(m_window.isVisible());
    m_platform.settle();
    EXPECT_EQ(m_platform.files.count("report.html"), 1U);
    EXPECT_FALSE(m_window.isVisible());
}

TEST_F(MainWindowTest, StaysOpenToTellThatTheReportFailed) {
    m_platform.writeFailure = "Disk full";
    startExport();
    m_window.close();
    m_platform.settle();
    EXPECT_EQ(m_model.problem(), QStringLiteral("The report couldn’t be saved: Disk full"));
    EXPECT_TRUE(m_window.isVisible());
    m_model.dismissProblem();
    EXPECT_TRUE(m_window.close());
}

TEST_F(MainWindowTest, AReportAloneClosesNothing) {
    startExport();
    m_platform.settle();
    EXPECT_TRUE(m_window.isVisible());
}

TEST_F(MainWindowTest, FollowsTheDesktopBetweenLightAndDark) {
    const auto backgroundOf = [this] { return m_window.grab().toImage().pixelColor(640, 50); };
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
