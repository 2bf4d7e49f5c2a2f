#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

#include "Corvale/window/PopupMenu.h"
#include "Corvale/window/ProgressOverlay.h"
#include "tests/Corvale/window/WindowFixture.h"

namespace corvale {
namespace {

using TestSupport::ScriptedPlatform;
using TestSupport::WindowTest;

constexpr auto before = "ID,Name\n1,Pen\n2,Cup\n";
constexpr auto after = "ID,Name\n1,Pen\n2,Mug\n";

class ProgressOverlayTest : public WindowTest {
protected:
    bool appears() const {
        return QTest::qWaitFor([this] { return m_overlay.isVisible(); });
    }
    bool goes() const {
        return QTest::qWaitFor([this] { return !m_overlay.isVisible(); });
    }
    std::string title() const { return m_overlay.findChild<QLabel*>()->text().toStdString(); }
    QPushButton& cancel() const { return *m_overlay.findChild<QPushButton*>(); }
    void startReading() {
        m_platform.files["before.csv"] = before;
        m_model.load(ScriptedPlatform::url("before.csv"), Side::before);
    }

    ProgressOverlay& m_overlay = *m_window.findChild<ProgressOverlay*>();
};

TEST_F(ProgressOverlayTest, QuickWorkDoesNotFlash) {
    compare(before, after);
    EXPECT_FALSE(m_overlay.isVisible());
    m_model.compare();
    EXPECT_FALSE(m_overlay.isVisible());
    m_platform.settle();
    EXPECT_FALSE(m_overlay.isVisible());
}

TEST_F(ProgressOverlayTest, ReadingShowsABusyBar) {
    startReading();
    ASSERT_TRUE(appears());
    EXPECT_EQ(title(), "Opening…");
    EXPECT_EQ(m_overlay.findChild<QProgressBar*>()->maximum(), 0);
    EXPECT_EQ(cancel().text(), QStringLiteral("Cancel"));
    m_platform.settle();
    EXPECT_TRUE(goes());
}

TEST_F(ProgressOverlayTest, CancelEndsReading) {
    startReading();
    ASSERT_TRUE(appears());
    EXPECT_TRUE(cancel().hasFocus());
    QTest::mouseClick(&cancel(), Qt::LeftButton);
    EXPECT_TRUE(m_model.loading().empty());
    EXPECT_TRUE(goes());
    m_platform.settle();
    EXPECT_FALSE(m_model.before());
}

TEST_F(ProgressOverlayTest, ComparingShowsHowFarItIs) {
    compare(before, after);
    m_model.compare();
    ASSERT_TRUE(appears());
    EXPECT_EQ(title(), "Comparing…");
    const auto& bar = *m_overlay.findChild<QProgressBar*>();
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(bar.maximum(), 1000);
    EXPECT_EQ(bar.accessibleName(), QStringLiteral("Comparing…"));
    m_platform.settle();
    // At once, since the result is there.
    EXPECT_FALSE(m_overlay.isVisible());
}

TEST_F(ProgressOverlayTest, EscapeCancelsComparing) {
    compare(before, after);
    const auto result = m_model.result();
    m_model.compare();
    ASSERT_TRUE(appears());
    QTest::keyClick(&cancel(), Qt::Key_Escape);
    EXPECT_EQ(m_model.progress(), std::nullopt);
    EXPECT_FALSE(m_overlay.isVisible());
    m_platform.settle();
    EXPECT_EQ(m_model.result(), result);
}

TEST_F(ProgressOverlayTest, CoversWhatIsOutOfDate) {
    compare(before, after);
    m_model.compare();
    ASSERT_TRUE(appears());
    EXPECT_EQ(m_overlay.geometry(), m_overlay.parentWidget()->rect());
    m_window.resize(900, 600);
    QApplication::processEvents();
    EXPECT_EQ(m_overlay.geometry(), m_overlay.parentWidget()->rect());
    EXPECT_TRUE(m_overlay.rect().contains(cancel().geometry()));
}

TEST_F(ProgressOverlayTest, TypingGoesOnUnderIt) {
    compare(before, after);
    auto& search = named<QWidget>("Search rows");
    search.setFocus();
    m_model.compare();
    ASSERT_TRUE(appears());
    EXPECT_TRUE(search.hasFocus());
    m_platform.settle();
    EXPECT_TRUE(search.hasFocus());
}

TEST_F(ProgressOverlayTest, AnOpenMenuKeepsTheKeyboard) {
    compare(before, after);
    Button& ignore = button("Ignoring 2 of 4");
    ignore.setFocus();
    ignore.menu()->open();
    m_model.compare();
    ASSERT_TRUE(appears());
    m_platform.settle();
    EXPECT_TRUE(ignore.menu()->isVisible());
    ignore.menu()->close();
    EXPECT_EQ(m_window.focusWidget(), &ignore);
}

TEST_F(ProgressOverlayTest, GivesTheKeyboardBackWhenCancelled) {
    compare(before, after);
    Button& ignore = button("Ignoring 2 of 4");
    ignore.setFocus();
    m_model.compare();
    ASSERT_TRUE(appears());
    EXPECT_TRUE(cancel().hasFocus());
    QTest::keyClick(&cancel(), Qt::Key_Escape);
    EXPECT_TRUE(ignore.hasFocus());
}

}  // namespace
}  // namespace corvale
