#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include "Corvale/style/Theme.h"
#include "Corvale/window/Button.h"
#include "tests/Corvale/commands/AppTest.h"

namespace corvale {
namespace {

class GeneralSettingsTest : public TestSupport::AppTest {
protected:
    GeneralSettingsTest() {
        start();
        trigger("Settings…");
    }

    SettingsView& view() { return window<SettingsView>(); }
    QCheckBox& box(const QString& text) { return child<QCheckBox>(view(), text); }
    QComboBox& numbers() { return *view().findChild<QComboBox*>(); }
    AppSettings stored() { return AppSettings::decoded(m_platform.stored.at("settings")); }
};

TEST_F(GeneralSettingsTest, ShowWhatHolds) {
    EXPECT_TRUE(view().isVisible());
    EXPECT_FALSE(box(QStringLiteral("Ignore case")).isChecked());
    EXPECT_TRUE(box(QStringLiteral("Ignore extra spaces")).isChecked());
    EXPECT_FALSE(box(QStringLiteral("Ignore number formatting")).isChecked());
    EXPECT_TRUE(box(QStringLiteral("Ignore column order (match columns by name)")).isChecked());
    EXPECT_FALSE(box(QStringLiteral("Include unchanged rows in Excel reports")).isChecked());
    EXPECT_EQ(numbers().currentText(), QStringLiteral("Numbers: automatic"));
    for (const QString& title :
         {QStringLiteral("Comparing"),
          QStringLiteral("Reports"),
          QStringLiteral("Getting started"),
          QStringLiteral("Corvale reads your files on this Mac and writes reports only where you "
                         "save them. Nothing is uploaded.")}) {
        EXPECT_TRUE(child<QLabel>(view(), title).isVisible());
    }
}

TEST_F(GeneralSettingsTest, ComeOneAfterTheOtherByTab) {
    QStringList order;
    QWidget* const first = &box(QStringLiteral("Ignore case"));
    for (QWidget* widget = first; order.isEmpty() || widget != first; widget = widget->nextInFocusChain()) {
        if (auto* const button = qobject_cast<QAbstractButton*>(widget)) {
            order.append(button->text() + button->accessibleName());
        } else if (widget == &numbers()) {
            order.append(QStringLiteral("Numbers"));
        }
    }
    EXPECT_EQ(order,
              (QStringList{QStringLiteral("Ignore case"),
                           QStringLiteral("Ignore extra spaces"),
                           QStringLiteral("Ignore number formatting"),
                           QStringLiteral("Ignore column order (match columns by name)"),
                           QStringLiteral("Numbers"),
                           QStringLiteral("Unified"),
                           QStringLiteral("Side by side"),
                           QStringLiteral("Include unchanged rows in Excel reports"),
                           QStringLiteral("Show the Welcome Screen Again")}));
}

TEST_F(GeneralSettingsTest, HaveAHairlineBetweenTheLinesOfACard) {
    const QImage picture = view().grab().toImage();
    const Palette& palette = TestSupport::theme().palette();
    // Down the middle between text and edge, where there is nothing else.
    const QWidget& first = box(QStringLiteral("Ignore case"));
    const int x = first.mapTo(&view(), first.rect().topRight()).x() - 2;
    int lines = 0;
    for (int y = first.mapTo(&view(), QPoint()).y(); y < numbers().mapTo(&view(), QPoint()).y(); ++y) {
        lines += picture.pixelColor(x, y) == palette.line ? 1 : 0;
    }
    EXPECT_EQ(lines, 4);
}

TEST_F(GeneralSettingsTest, NameTheTabAndItsPage) {
    QStringList names;
    QList<QAccessible::Role> roles;
    for (QWidget* part : view().findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        names.append(part->accessibleName());
        roles.append(QAccessible::queryAccessibleInterface(part)->role());
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("General"), QStringLiteral("General")}));
    EXPECT_EQ(roles, (QList{QAccessible::PageTab, QAccessible::Client}));
}

TEST_F(GeneralSettingsTest, HoldAtOnce) {
    box(QStringLiteral("Ignore case")).click();
    EXPECT_TRUE(stored().options.ignoreCase);
    box(QStringLiteral("Ignore extra spaces")).click();
    EXPECT_FALSE(stored().options.ignoreWhitespace);
    box(QStringLiteral("Ignore number formatting")).click();
    EXPECT_TRUE(stored().options.ignoreNumberFormat);
    box(QStringLiteral("Ignore column order (match columns by name)")).click();
    EXPECT_FALSE(stored().options.ignoreColumnOrder);
    box(QStringLiteral("Include unchanged rows in Excel reports")).click();
    EXPECT_TRUE(stored().includeUnchangedInReports);
    numbers().setCurrentIndex(2);
    Q_EMIT numbers().activated(2);
    EXPECT_EQ(stored().options.numberStyle, NumberStyle::commaDecimal);
    for (Button* segment : view().findChildren<Button*>()) {
        if (segment->label() == QStringLiteral("Side by side")) {
            segment->click();
        }
    }
    EXPECT_EQ(stored().view, ViewMode::sideBySide);
}

TEST_F(GeneralSettingsTest, FollowWhatIsSetElsewhere) {
    AppSettings settings = model().settings();
    settings.options.ignoreCase = true;
    settings.options.numberStyle = NumberStyle::dotDecimal;
    model().setSettings(settings);
    EXPECT_TRUE(box(QStringLiteral("Ignore case")).isChecked());
    EXPECT_EQ(numbers().currentText(), QStringLiteral("Numbers like 1,234.56"));
}

TEST_F(GeneralSettingsTest, CompareAnewWhenWhatCountsIsAnother) {
    openSamples();
    const std::uint64_t before = model().compareGeneration();
    box(QStringLiteral("Ignore case")).click();
    m_platform.settle();
    EXPECT_GT(model().compareGeneration(), before);
}

}  // namespace
}  // namespace corvale
