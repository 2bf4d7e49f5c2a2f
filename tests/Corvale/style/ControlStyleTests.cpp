#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QTest>
#include <QToolButton>

#include "Corvale/style/ControlStyle.h"
#include "Corvale/style/Metrics.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

bool shows(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color) {
                return true;
            }
        }
    }
    return false;
}

struct ControlStyleTest : testing::Test {
    // What an item of the menu looks like, once the menu has been shown.
    QImage imageOf(QAction* action) {
        menu.popup(QPoint(0, 0));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&menu));
        QImage image = menu.grab(menu.actionGeometry(action)).toImage();
        menu.hide();
        return image;
    }

    // How many pixels of a button are not its face.
    int inked(const QImage& image) const {
        int count = 0;
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                count += image.pixelColor(x, y) != colors.control ? 1 : 0;
            }
        }
        return count;
    }

    Theme theme{*qApp};
    const Palette& colors = theme.palette();
    QMenu menu;
};

TEST_F(ControlStyleTest, AMenuIsMadeOfLinesOf27) {
    QAction* item = menu.addAction(QStringLiteral("Open Before…"));
    QAction* separator = menu.addSeparator();
    menu.addAction(QStringLiteral("Open After…"));
    QAction* section = menu.addSection(QStringLiteral("What doesn’t count as a change"));
    menu.addAction(QStringLiteral("Ignore case"));
    EXPECT_EQ(menu.actionGeometry(item).height(), Metrics::menuItemHeight);
    EXPECT_EQ(menu.actionGeometry(separator).height(), Metrics::menuSeparatorHeight);
    EXPECT_GE(menu.actionGeometry(section).height(), Metrics::menuSectionHeight);
    EXPECT_EQ(menu.actionGeometry(item).topLeft(), QPoint(Metrics::menuPadding, Metrics::menuPadding));
}

TEST_F(ControlStyleTest, AMenuHasRoomForTextAndShortcut) {
    QAction* item = menu.addAction(QStringLiteral("Open Before…"));
    const int plain = menu.sizeHint().width();
    item->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    const QFontMetrics metrics(menu.font());
    EXPECT_GE(plain, Metrics::menuTextLeft + metrics.horizontalAdvance(item->text()));
    EXPECT_GE(menu.sizeHint().width(),
              plain + Metrics::menuShortcutGap + metrics.horizontalAdvance(QStringLiteral("Ctrl+O")));
}

TEST_F(ControlStyleTest, TheItemUnderThePointerIsAccented) {
    QAction* item = menu.addAction(QStringLiteral("Quit"));
    EXPECT_FALSE(shows(imageOf(item), colors.accent));
    menu.popup(QPoint(0, 0));
    menu.setActiveAction(item);
    EXPECT_TRUE(shows(menu.grab(menu.actionGeometry(item)).toImage(), colors.accent));
    menu.hide();
}

TEST_F(ControlStyleTest, OnlyACheckedItemHasACheckMark) {
    QAction* item = menu.addAction(QString());
    item->setCheckable(true);
    const QImage off = imageOf(item);
    EXPECT_FALSE(shows(off, colors.text));
    item->setChecked(true);
    EXPECT_NE(imageOf(item), off);
}

TEST_F(ControlStyleTest, ACheckBoxIsFilledWhenItIsOn) {
    QCheckBox box;
    box.resize(Metrics::checkBox, Metrics::checkBox);
    EXPECT_FALSE(shows(box.grab().toImage(), colors.accent));
    box.setChecked(true);
    EXPECT_TRUE(shows(box.grab().toImage(), colors.accent));
    box.setEnabled(false);
    EXPECT_FALSE(shows(box.grab().toImage(), colors.accent));
}

TEST_F(ControlStyleTest, AnUndecidedCheckBoxHasADash) {
    QCheckBox box;
    box.resize(Metrics::checkBox, Metrics::checkBox);
    box.setTristate(true);
    box.setCheckState(Qt::PartiallyChecked);
    const QImage image = box.grab().toImage();
    EXPECT_EQ(image.pixelColor(5, 8), colors.onAccent);
    EXPECT_EQ(image.pixelColor(5, 4), colors.accent);
}

TEST_F(ControlStyleTest, AMenuButtonHasAChevronAtItsEndAndTextClearOfIt) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QToolButton button;
        button.setLayoutDirection(direction);
        button.setText(QStringLiteral("Any Column"));
        button.setPopupMode(QToolButton::InstantPopup);
        button.setMenu(&menu);
        button.resize(button.sizeHint());
        EXPECT_EQ(button.height(), Metrics::controlHeight);
        const int left = direction == Qt::LeftToRight ? button.width() - 8 - Metrics::chevron : 8;
        const int gap = direction == Qt::LeftToRight ? left - 3 : left + Metrics::chevron + 1;
        const QImage image = button.grab().toImage();
        EXPECT_GT(inked(image.copy(left, 8, Metrics::chevron, Metrics::chevron)), 8) << direction;
        EXPECT_EQ(inked(image.copy(gap, 4, 2, 20)), 0) << direction;
    }
}

TEST_F(ControlStyleTest, AComboBoxIsAsWideAsItsListNeeds) {
    QComboBox combo;
    combo.addItem(QStringLiteral("Numbers: automatic"));
    const int text = combo.fontMetrics().horizontalAdvance(combo.itemText(0));
    EXPECT_GE(combo.sizeHint().width(), text + Metrics::menuTextLeft + Metrics::menuTextRight);
}

TEST_F(ControlStyleTest, NothingMovesByItself) {
    EXPECT_EQ(qApp->style()->styleHint(QStyle::SH_Widget_Animation_Duration), 0);
}

}  // namespace
}  // namespace corvale
