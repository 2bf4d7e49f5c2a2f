#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "Corvale/style/FocusRing.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

// A window of three controls, with the keyboard.
struct FocusRingTest : testing::Test {
    FocusRingTest() {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(button);
        column->addWidget(box);
        column->addWidget(field);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        field->setFocus(Qt::MouseFocusReason);
    }

    // The control that has a ring, or null.
    QWidget* ringed() const {
        for (const auto* frame : window.findChildren<QFocusFrame*>()) {
            if (frame->widget() != nullptr && frame->isVisible()) {
                return frame->widget();
            }
        }
        return nullptr;
    }

    Theme theme{*qApp};
    QWidget window;
    QPushButton* button = new QPushButton(QStringLiteral("Cancel"), &window);
    QCheckBox* box = new QCheckBox(QStringLiteral("Ignore case"), &window);
    QLineEdit* field = new QLineEdit(&window);
};

TEST_F(FocusRingTest, FollowsTheTabKey) {
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), button);
    QTest::keyClick(button, Qt::Key_Tab);
    EXPECT_EQ(ringed(), box);
}

TEST_F(FocusRingTest, AFieldShowsItsFocusItself) {
    button->setFocus(Qt::TabFocusReason);
    field->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(ringed(), nullptr);
}

TEST_F(FocusRingTest, IsNotForTheMouse) {
    button->setFocus(Qt::MouseFocusReason);
    EXPECT_TRUE(button->hasFocus());
    EXPECT_EQ(ringed(), nullptr);
}

TEST_F(FocusRingTest, ComesBackWhenAMenuCloses) {
    button->setFocus(Qt::TabFocusReason);
    button->clearFocus();
    EXPECT_EQ(ringed(), nullptr);
    button->setFocus(Qt::PopupFocusReason);
    EXPECT_EQ(ringed(), button);
}

TEST_F(FocusRingTest, AWidgetMayAskForIt) {
    auto* chip = new QWidget(&window);
    chip->setFocusPolicy(Qt::StrongFocus);
    chip->resize(50, 32);
    chip->show();
    chip->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), nullptr);
    chip->clearFocus();
    chip->setProperty("focusRing", true);
    chip->setProperty("cornerRadius", 8);
    chip->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), chip);
    EXPECT_EQ(ringedRadius(*chip), 8);
}

TEST_F(FocusRingTest, SurvivesItsControl) {
    auto* pane = new QWidget(&window);
    auto* inner = new QPushButton(pane);
    pane->show();
    inner->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), inner);
    pane->deleteLater();
    const QPointer<QWidget> gone(pane);
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.isNull(); }));
    button->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringed(), button);
}

TEST_F(FocusRingTest, IsAPixelAwayFromTheControl) {
    button->setFocus(Qt::TabFocusReason);
    const QImage image = window.grab().toImage();
    const QPoint left(button->geometry().left(), button->geometry().center().y());
    EXPECT_NE(image.pixelColor(left - QPoint(1, 0)), theme.palette().accent);
    EXPECT_EQ(image.pixelColor(left - QPoint(2, 0)), theme.palette().accent);
    EXPECT_EQ(image.pixelColor(left - QPoint(3, 0)), theme.palette().accent);
    EXPECT_NE(image.pixelColor(left - QPoint(4, 0)), theme.palette().accent);
}

TEST_F(FocusRingTest, OfACheckBoxItGoesAroundTheBox) {
    EXPECT_EQ(ringedPart(*box).size(), QSize(Metrics::checkBox, Metrics::checkBox));
    EXPECT_EQ(ringedRadius(*box), Metrics::checkBoxRadius);
    EXPECT_EQ(ringedPart(*button), button->rect());
    EXPECT_EQ(ringedRadius(*button), Metrics::controlRadius);
}

}  // namespace
}  // namespace corvale
