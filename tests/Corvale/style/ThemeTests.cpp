#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QSignalSpy>
#include <QToolTip>

#include "Corvale/style/Metrics.h"
#include "Corvale/style/StyleSheet.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

// As when the user switches the desktop.
void switchDesktop(Scheme scheme) {
    const bool dark = scheme == Scheme::dark;
    QPalette palette;
    palette.setColor(QPalette::Window, dark ? Qt::black : Qt::white);
    palette.setColor(QPalette::WindowText, dark ? Qt::white : Qt::black);
    QApplication::setPalette(palette);
}

struct ThemeTest : testing::Test {
    ThemeTest() { switchDesktop(Scheme::light); }
    ~ThemeTest() override { switchDesktop(Scheme::light); }
};

TEST_F(ThemeTest, TakesTheSchemeOfTheDesktopAtStart) {
    EXPECT_EQ(Theme(*qApp).scheme(), Scheme::light);
    switchDesktop(Scheme::dark);
    EXPECT_EQ(Theme(*qApp).scheme(), Scheme::dark);
}

TEST_F(ThemeTest, FollowsTheDesktopWhileRunning) {
    const Theme theme(*qApp);
    QSignalSpy changes(&theme, &Theme::changed);
    switchDesktop(Scheme::dark);
    EXPECT_EQ(theme.scheme(), Scheme::dark);
    EXPECT_EQ(&theme.palette(), &Palette::forScheme(Scheme::dark));
    EXPECT_EQ(changes.count(), 1);
    switchDesktop(Scheme::light);
    EXPECT_EQ(theme.scheme(), Scheme::light);
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(ThemeTest, IsSilentWhenTheSchemeStays) {
    const Theme theme(*qApp);
    QSignalSpy changes(&theme, &Theme::changed);
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::yellow);
    palette.setColor(QPalette::WindowText, Qt::black);
    QApplication::setPalette(palette);
    EXPECT_EQ(changes.count(), 0);
}

TEST_F(ThemeTest, ADesktopWithOtherColoursOfTheSameSchemeDoesNotTakeOursAway) {
    const Theme theme(*qApp);
    QWidget early;
    early.show();
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::yellow);
    palette.setColor(QPalette::WindowText, Qt::blue);
    QApplication::setPalette(palette);
    QWidget late;
    late.show();
    for (const QWidget* window : {&early, &late}) {
        EXPECT_EQ(window->palette().color(QPalette::WindowText), theme.palette().text);
        EXPECT_EQ(window->palette().color(QPalette::Window), theme.palette().window);
    }
}

TEST_F(ThemeTest, TheChangeIsToldWhenTheWidgetsAreDressed) {
    const Theme theme(*qApp);
    QWidget widget;
    widget.ensurePolished();
    QColor seen;
    QObject::connect(&theme, &Theme::changed, &widget, [&] { seen = widget.palette().color(QPalette::Window); });
    switchDesktop(Scheme::dark);
    EXPECT_EQ(seen, Palette::forScheme(Scheme::dark).window);
}

TEST_F(ThemeTest, WidgetsTakeThePaletteOfTheScheme) {
    const Theme theme(*qApp);
    QWidget window;
    auto* label = new QLabel(&window);
    window.show();
    for (const Scheme scheme : {Scheme::light, Scheme::dark}) {
        switchDesktop(scheme);
        const Palette& colors = Palette::forScheme(scheme);
        EXPECT_EQ(window.palette().color(QPalette::Window), colors.window);
        EXPECT_EQ(label->palette().color(QPalette::WindowText), colors.text);
        EXPECT_EQ(label->palette().color(QPalette::Disabled, QPalette::WindowText), colors.disabled);
        EXPECT_EQ(window.palette().color(QPalette::Active, QPalette::Highlight), colors.accent);
        EXPECT_EQ(QApplication::palette("QMenu").color(QPalette::Base), colors.menu);
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), colors.onToolTip);
        EXPECT_EQ(qApp->styleSheet(), StyleSheet::make(colors));
    }
}

TEST_F(ThemeTest, ControlsHaveTheirHeights) {
    const Theme theme(*qApp);
    QWidget window;
    auto* button = new QPushButton(QStringLiteral("Choose Files…"), &window);
    auto* combo = new QComboBox(&window);
    combo->addItem(QStringLiteral("Numbers: automatic"));
    EXPECT_EQ(button->sizeHint().height(), Metrics::buttonHeight);
    EXPECT_EQ(combo->sizeHint().height(), Metrics::controlHeight);
}

}  // namespace
}  // namespace corvale
