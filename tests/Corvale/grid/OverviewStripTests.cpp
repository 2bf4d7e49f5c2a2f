#include <gtest/gtest.h>

#include <QScrollBar>
#include <QWheelEvent>

#include "tests/Corvale/grid/GridScene.h"

namespace corvale {
namespace {

using TestSupport::wideTable;
using Show = DiffFilter::Show;

class OverviewStripTest : public TestSupport::GridScene {
protected:
    void click(int y) { QTest::mouseClick(&m_overview, Qt::LeftButton, {}, {8, y}); }
};

TEST_F(OverviewStripTest, CountsTheWholeResultWhateverIsListed) {
    EXPECT_EQ(m_overview.counts().rows, 0);
    openSample();
    EXPECT_EQ(m_overview.counts().rows, 27);
    setFilter(Show::changes, "lamp");
    EXPECT_EQ(m_overview.counts().rows, 27);
    m_model.close(Side::after);
    EXPECT_EQ(m_overview.counts().rows, 0);
}

TEST_F(OverviewStripTest, FramesWhatIsOnScreenUnlessAllIs) {
    openSample();
    EXPECT_EQ(m_overview.frame(), std::nullopt);
    open(wideTable(1000, 2, false), wideTable(1000, 2, true));
    ASSERT_TRUE(m_overview.frame());
    EXPECT_EQ(m_overview.frame()->top, m_grid.headerHeight());
    EXPECT_EQ(m_overview.frame()->height, 14);
    m_grid.centerOn(999);
    EXPECT_NEAR(m_overview.frame()->top + m_overview.frame()->height, m_overview.height(), 0.001);
}

TEST_F(OverviewStripTest, TheSelectedRowIsAtItsPlaceInTheResult) {
    openSample();
    EXPECT_EQ(m_overview.selectionLine(), std::nullopt);
    m_grid.selectLine(2);
    // Row 6 of 27.
    const double height = m_overview.height() - m_grid.headerHeight();
    ASSERT_TRUE(m_overview.selectionLine());
    EXPECT_NEAR(*m_overview.selectionLine(), m_grid.headerHeight() + height * 6.5 / 27, 0.001);
}

TEST_F(OverviewStripTest, AClickCentersTheNearestListedRow) {
    open(wideTable(1000, 2, false), wideTable(1000, 2, true));
    m_grid.selectLine(3);
    const int middle = m_grid.headerHeight() + (m_overview.height() - m_grid.headerHeight()) / 2;
    click(middle);
    const auto lines = m_grid.linesOnScreen();
    EXPECT_NEAR(static_cast<double>(lines.begin + lines.end) / 2, 500, 3);
    EXPECT_EQ(m_grid.selectedLine(), 3);
    click(m_overview.height() - 1);
    EXPECT_EQ(m_grid.linesOnScreen().end, 1000);
    click(2);
    EXPECT_EQ(m_grid.linesOnScreen().begin, 0);
}

TEST_F(OverviewStripTest, ADragMovesAlong) {
    open(wideTable(1000, 2, false), wideTable(1000, 2, true));
    QTest::mousePress(&m_overview, Qt::LeftButton, {}, {8, m_grid.headerHeight() + 10});
    const auto before = m_grid.linesOnScreen().begin;
    QTest::mouseMove(&m_overview, {8, m_overview.height() - 20});
    QMouseEvent move(QEvent::MouseMove,
                     QPointF(8, m_overview.height() - 20),
                     m_overview.mapToGlobal(QPointF(8, m_overview.height() - 20)),
                     Qt::NoButton,
                     Qt::LeftButton,
                     {});
    QApplication::sendEvent(&m_overview, &move);
    EXPECT_GT(m_grid.linesOnScreen().begin, before + 500);
}

TEST_F(OverviewStripTest, ALargeResultIsCountedInTheBackground) {
    std::string csv = "ID\n";
    for (int row = 0; row <= 100000; ++row) {
        csv += std::to_string(row) + "\n";
    }
    m_platform.files = {{"before.csv", csv}, {"after.csv", csv + "new\n"}};
    m_model.open({TestSupport::ScriptedPlatform::url("before.csv"), TestSupport::ScriptedPlatform::url("after.csv")},
                 Side::before);
    while (!m_model.result()) {
        m_platform.work();
        m_platform.deliver();
    }
    EXPECT_EQ(m_overview.counts().rows, 0);
    settle();
    EXPECT_EQ(m_overview.counts().rows, 100002);
    EXPECT_EQ(m_overview.counts().stretches.back()[2], 1);
}

TEST_F(OverviewStripTest, TheWheelGoesToTheGrid) {
    open(wideTable(1000, 2, false), wideTable(1000, 2, true));
    const QPointF place(8, 100);
    QWheelEvent wheel(place, m_overview.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_overview, &wheel);
    EXPECT_GT(m_grid.verticalScrollBar()->value(), 0);
}

TEST_F(OverviewStripTest, QtHasNothingToSayAgainstAnySize) {
    open(wideTable(1000, 2, false), wideTable(1000, 2, true));
    for (const int height : {20, 60, 400, 1400}) {
        m_window.resize(900, height);
        settle();
        // A warning of Qt fails the test.
        m_overview.grab();
    }
}

}  // namespace
}  // namespace corvale
