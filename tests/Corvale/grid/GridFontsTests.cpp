#include <gtest/gtest.h>

#include <QApplication>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
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

// Texts of plain characters, with kerned pairs and ligatures among them, and of others.
class RandomTexts {
public:
    QString next() {
        const QString letters = QStringLiteral("0123456789.-AVToWfijlx ,äß…م");
        QString text;
        for (int length = upTo(11); length > 0; --length) {
            text += letters[upTo(static_cast<int>(letters.size()) - 1)];
        }
        return text;
    }
    int upTo(int limit) { return std::uniform_int_distribution<int>(0, limit)(m_random); }

private:
    std::mt19937 m_random{7};
};

TEST(GridFonts, TextsAreAsWideAsWhenShaped) {
    RandomTexts texts;
    for (const bool isScaled : {false, true}) {
        const GridFonts fonts(base(), isScaled ? ViewMode::sideBySide : ViewMode::unified, isScaled);
        for (const GridFont* font : all(fonts)) {
            for (int round = 0; round < 300; ++round) {
                const QString text = texts.next();
                EXPECT_NEAR(font->width(text), font->metrics().horizontalAdvance(text), 0.1) << text.toStdString();
            }
        }
    }
}

TEST(GridFonts, ElidedTextsHoldAllThatFits) {
    const GridFonts fonts(base(), ViewMode::unified, false);
    const QFontMetricsF& metrics = fonts.cell.metrics();
    constexpr qreal rounding = 0.1;
    RandomTexts texts;
    for (int round = 0; round < 3000; ++round) {
        const QString text = texts.next();
        const qreal width = 15 + texts.upTo(90);
        const QString shown = fonts.cell.elided(text, width);
        if (shown == metrics.elidedText(text, Qt::ElideRight, width)) {
            continue;
        }
        // Where they cut elsewhere, ours is still as much as fits.
        const qsizetype kept = shown.size() - 1;
        ASSERT_EQ(shown, text.first(kept) + u'…') << width;
        EXPECT_LE(metrics.horizontalAdvance(shown), width + rounding) << text.toStdString() << " in " << width;
        EXPECT_GT(metrics.horizontalAdvance(text.first(kept + 1) + u'…'), width - rounding) << text.toStdString();
    }
}

TEST(GridFonts, TheMiddleIsElidedAsTheMetricsDo) {
    const GridFonts fonts(base(), ViewMode::unified, false);
    RandomTexts texts;
    for (int round = 0; round < 500; ++round) {
        const QString text = texts.next();
        const qreal width = 15 + texts.upTo(90);
        EXPECT_EQ(fonts.key.elided(text, width, Qt::ElideMiddle),
                  fonts.key.metrics().elidedText(text, Qt::ElideMiddle, width))
            << text.toStdString();
    }
}

// What a text looks like, drawn by the font or by the painter.
QImage drawn(const GridFont& font, const QString& text, bool byPainter) {
    QImage image(160, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    if (byPainter) {
        painter.setFont(font.font());
        painter.drawText(QPointF(10, 20), text);
    } else {
        font.draw(painter, {10, 20}, text);
    }
    return image;
}

TEST(GridFonts, TextsLookAsThePainterDrawsThem) {
    RandomTexts texts;
    const GridFonts fonts(base(), ViewMode::unified, false);
    for (const GridFont* font : all(fonts)) {
        for (int round = 0; round < 60; ++round) {
            const QString text = texts.next();
            EXPECT_EQ(drawn(*font, text, false), drawn(*font, text, true)) << text.toStdString();
        }
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
