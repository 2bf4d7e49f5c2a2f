#include <gtest/gtest.h>

#include <QPalette>
#include <QSet>
#include <algorithm>
#include <cmath>

#include "Corvale/style/Palette.h"

namespace corvale {
namespace {

// As the Web Content Accessibility Guidelines 2 define it: of light that a colour gives, 0 to 1.
double luminance(const QColor& color) {
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

std::string hex(const QColor& color) { return color.name(QColor::HexArgb).toStdString(); }

struct PaletteTest : testing::TestWithParam<Scheme> {
    const Palette& palette = Palette::forScheme(GetParam());

    // The faces that text is put on.
    QList<QColor> faces() const {
        return {palette.window,
                palette.surface,
                palette.surface2,
                palette.menu,
                palette.control,
                palette.accentTint,
                palette.added.fill,
                palette.removed.fill,
                palette.changed.fill,
                palette.formatOnly.fill};
    }

    QList<ChangeColors> kinds() const { return {palette.added, palette.removed, palette.changed, palette.formatOnly}; }
};

void expectContrast(const QColor& color, const QList<QColor>& faces, double least) {
    for (const QColor& face : faces) {
        EXPECT_GE(contrast(color, face), least) << hex(color) << " on " << hex(face);
    }
}

TEST(Contrast, IsTheOneOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrast(Qt::red, Qt::red), 1);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
}

TEST_P(PaletteTest, LacksNoColour) {
    QSet<QString> names;
    for (const auto& [name, color] : namedColors(palette)) {
        EXPECT_TRUE(color.isValid()) << name.toStdString();
        names.insert(name);
    }
    EXPECT_EQ(names.size(), namedColors(palette).size());
    // One QColor after another is all that a palette is made of.
    EXPECT_EQ(std::size_t(names.size()), sizeof(Palette) / sizeof(QColor));
}

TEST_P(PaletteTest, IsOpaqueButForWhatVeils) {
    for (const auto& [name, color] : namedColors(palette)) {
        EXPECT_EQ(color.alpha() == 255, name != u"veil" && name != u"scrim") << name.toStdString();
    }
}

TEST_P(PaletteTest, TextStandsOutOnEveryFace) { expectContrast(palette.text, faces(), 10); }

TEST_P(PaletteTest, TextStandsOutOnAButtonUnderThePointer) {
    expectContrast(palette.text, {palette.controlHover, palette.controlPressed, palette.pressed}, 7.7);
}

TEST_P(PaletteTest, SecondaryTextStandsOutWhereItIsUsed) {
    expectContrast(
        palette.text2, {palette.window, palette.surface, palette.surface2, palette.menu, palette.control}, 5.5);
    expectContrast(palette.text2, {palette.segmentTrack}, 5.5);
}

TEST_P(PaletteTest, PlaceholdersStandOutWhereTheyAreUsed) {
    expectContrast(palette.text3, {palette.window, palette.surface, palette.surface2}, 4.5);
}

TEST_P(PaletteTest, WordsOfAChangeStandOutOnTheirFillAndOnASelectedRow) {
    for (const ChangeColors& kind : kinds()) {
        expectContrast(kind.text, {kind.fill, palette.accentTint, palette.surface}, 5.8);
    }
}

TEST_P(PaletteTest, MarksAndBordersOfCheckBoxesStandOut) {
    for (const ChangeColors& kind : kinds()) {
        expectContrast(kind.mark, {palette.surface2}, 3);
    }
    expectContrast(palette.field, {palette.surface}, 3);
}

TEST_P(PaletteTest, TheAccentStandsOut) {
    expectContrast(palette.onAccent, {palette.accent}, 4.5);
    expectContrast(palette.accent, {palette.window, palette.surface, palette.accentTint}, 4.5);
    expectContrast(palette.onToolTip, {palette.toolTip}, 10);
}

INSTANTIATE_TEST_SUITE_P(BothSchemes, PaletteTest, testing::Values(Scheme::light, Scheme::dark),
                         [](const auto& scheme) { return scheme.param == Scheme::dark ? "dark" : "light"; });

QPalette desktop(const QColor& window, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

TEST(Scheme, IsDarkWhereTextIsLighterThanWindows) {
    EXPECT_EQ(schemeOf(desktop(Qt::white, Qt::black)), Scheme::light);
    EXPECT_EQ(schemeOf(desktop(QColor(0xF0, 0xF0, 0xF0), QColor(0x30, 0x30, 0x30))), Scheme::light);
    EXPECT_EQ(schemeOf(desktop(QColor(0x30, 0x30, 0x30), QColor(0xF0, 0xF0, 0xF0))), Scheme::dark);
    EXPECT_EQ(schemeOf(desktop(Qt::gray, Qt::gray)), Scheme::light);
}

}  // namespace
}  // namespace corvale
