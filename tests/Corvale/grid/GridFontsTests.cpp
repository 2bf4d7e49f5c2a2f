#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <random>

#include "Corvale/grid/GridFonts.h"

namespace corvale {
namespace {

QFont base(int pixels = 13) {
    QFont font = QApplication::font();
    font.setPixelSize(pixels);
    return font;
}

std::vector<const GridFont*> all(const GridFonts& fonts) {
    return {&fonts.cell, &fonts.newValue, &fonts.key, &fonts.number, &fonts.status, &fonts.header, &fonts.headerNote};
}

TEST(GridFonts, NumbersAreAsWideAsWhenShaped) {
    for (const bool isScaled : {false, true}) {
        const GridFonts fonts(base(), isScaled ? ViewMode::sideBySide : ViewMode::unified, isScaled);
        for (const GridFont* font : all(fonts)) {
            for (const char16_t* number : {u"", u"0", u"42.00", u"1,048,576", u"2025-10-31", u"-7", u"12:30", u"50%"}) {
                const QString text = QString::fromUtf16(number);
                EXPECT_NEAR(font->width(text), font->metrics().horizontalAdvance(text), 0.51) << text.toStdString();
            }
        }
    }
}

TEST(GridFonts, ElidingAgreesWithTheMetrics) {
    const GridFonts fonts(base(), ViewMode::unified, false);
    std::mt19937 random(7);
    const auto upTo = [&](int limit) { return std::uniform_int_distribution<int>(0, limit)(random); };
    const QString letters = QStringLiteral("0123456789.-AVToWfijlx ,äß…م");
    for (int round = 0; round < 2000; ++round) {
        QString text;
        for (int length = upTo(11); length > 0; --length) {
            text += letters[upTo(static_cast<int>(letters.size()) - 1)];
        }
        const qreal width = 10 + upTo(90);
        const auto mode = round % 2 == 0 ? Qt::ElideRight : Qt::ElideMiddle;
        EXPECT_EQ(fonts.cell.elided(text, width, mode), fonts.cell.metrics().elidedText(text, mode, width))
            << text.toStdString() << " in " << width;
    }
}

TEST(GridFonts, FollowTheFontOfTheWindowAsFarAsALineIsHigh) {
    const auto pixels = [](const GridFont& font) { return QFontInfo(font.font()).pixelSize(); };
    EXPECT_EQ(pixels(GridFonts(base(13), ViewMode::unified, false).cell), 13);
    EXPECT_EQ(pixels(GridFonts(base(13), ViewMode::sideBySide, false).cell), 12);
    EXPECT_EQ(pixels(GridFonts(base(16), ViewMode::unified, false).cell), 16);
    const GridFonts largest(base(60), ViewMode::unified, false);
    for (const GridFont* font : all(largest)) {
        EXPECT_LE(font->metrics().height(), 27);
    }
}

}  // namespace
}  // namespace corvale
