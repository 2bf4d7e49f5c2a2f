#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>

#include "Corvale/style/Icons.h"

namespace corvale {
namespace {

// The symbols that the window shows, by the names that it uses.
const QStringList& symbols() {
    static const QStringList names =
        QStringLiteral(
            "arrow.left.arrow.right arrow.right checkmark checkmark.seal checkmark.seal.fill "
            "chevron.down chevron.right cursorarrow.click doc.on.doc doc.text.fill envelope "
            "equal.circle exclamationmark.triangle.fill gearshape highlighter info.circle key "
            "line.3.horizontal.decrease.circle lock.shield magnifyingglass minus.circle.fill "
            "pencil.circle.fill play.circle plus.circle.fill sidebar.right slider.horizontal.3 "
            "square.and.arrow.up tablecells xmark xmark.circle.fill")
            .split(u' ');
    return names;
}

QImage imageOf(const QPixmap& picture) { return picture.toImage().convertToFormat(QImage::Format_ARGB32); }

// Pixels with more than half of their colour, and among those the ones of another colour than `expected`. Blending at
// the edges may be off by a few.
struct Ink {
    int pixels = 0;
    int strange = 0;
};

Ink inkOf(const QImage& image, const QColor& expected) {
    Ink ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > 127) {
                ++ink.pixels;
                const int off = std::abs(pixel.red() - expected.red()) + std::abs(pixel.green() - expected.green()) +
                                std::abs(pixel.blue() - expected.blue());
                ink.strange += off > 9 ? 1 : 0;
            }
        }
    }
    return ink;
}

TEST(Icons, ThereIsADrawingForEverySymbolAndNoOther) {
    QStringList files = QDir(QStringLiteral(":/corvale/icons")).entryList();
    QStringList expected;
    for (QString name : symbols()) {
        expected.append(name.replace(u'.', u'-') + QStringLiteral(".svg"));
    }
    files.sort();
    expected.sort();
    EXPECT_EQ(files, expected);
}

TEST(Icons, EverySymbolIsDrawnInTheColourAskedForAtEveryRatio) {
    const QColor color(0xC0, 0x40, 0x20);
    for (const QString& symbol : symbols()) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QPixmap picture = Icons::pixmap(symbol, color, 16, ratio);
            const QImage image = imageOf(picture);
            const Ink ink = inkOf(image, color);
            EXPECT_EQ(image.size(), QSize(int(16 * ratio), int(16 * ratio)));
            EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(16, 16));
            EXPECT_GT(ink.pixels, 4) << symbol.toStdString() << " at " << ratio;
            EXPECT_EQ(ink.strange, 0) << symbol.toStdString() << " at " << ratio;
        }
    }
}

TEST(Icons, TheColourIsPartOfWhatIsKept) {
    const QString symbol = QStringLiteral("plus.circle.fill");
    EXPECT_GT(inkOf(imageOf(Icons::pixmap(symbol, Qt::red, 16, 1)), Qt::red).pixels, 50);
    const Ink blue = inkOf(imageOf(Icons::pixmap(symbol, Qt::blue, 16, 1)), Qt::blue);
    EXPECT_GT(blue.pixels, 50);
    EXPECT_EQ(blue.strange, 0);
}

TEST(Icons, ATranslucentColourMakesATranslucentPicture) {
    const QImage image = imageOf(Icons::pixmap(QStringLiteral("plus.circle.fill"), QColor(255, 0, 0, 100), 24, 1));
    EXPECT_NEAR(image.pixelColor(5, 12).alpha(), 100, 1);
}

TEST(Icons, ThePictureIsDrawnOnce) {
    QPixmapCache::clear();
    const QPixmap first = Icons::pixmap(QStringLiteral("key"), Qt::red, 16, 1);
    const QPixmap second = Icons::pixmap(QStringLiteral("key"), Qt::red, 16, 1);
    EXPECT_EQ(first.cacheKey(), second.cacheKey());
    EXPECT_NE(first.cacheKey(), Icons::pixmap(QStringLiteral("key"), Qt::red, 12, 1).cacheKey());
}

TEST(IconsDeathTest, AnUnknownNameEndsTheProcess) {
    EXPECT_DEATH(Icons::pixmap(QStringLiteral("no.such.symbol"), Qt::red, 16, 1),
                 "there is no drawing :/corvale/icons/no-such-symbol.svg");
}

// The colour that most of an icon's picture has.
struct IconTest : testing::Test {
    Ink inkIn(QIcon::Mode mode, QIcon::State state, const QColor& color) const {
        return inkOf(imageOf(icon.pixmap(QSize(16, 16), 1, mode, state)), color);
    }

    QIcon icon = Icons::icon(QStringLiteral("key"), {Qt::red, Qt::green, Qt::blue});
};

TEST_F(IconTest, HasAColourForEachState) {
    const struct {
        QIcon::Mode mode;
        QIcon::State state;
        QColor color;
    } cases[] = {
        {QIcon::Normal, QIcon::Off, Qt::red},
        {QIcon::Active, QIcon::Off, Qt::red},
        {QIcon::Normal, QIcon::On, Qt::blue},
        {QIcon::Selected, QIcon::Off, Qt::blue},
        {QIcon::Disabled, QIcon::Off, Qt::green},
        {QIcon::Disabled, QIcon::On, Qt::green},
    };
    for (const auto& [mode, state, color] : cases) {
        const Ink ink = inkIn(mode, state, color);
        EXPECT_GT(ink.pixels, 4) << mode << ' ' << state;
        EXPECT_EQ(ink.strange, 0) << mode << ' ' << state;
    }
}

TEST_F(IconTest, IsSharpAtEveryRatio) {
    const QPixmap picture = icon.pixmap(QSize(16, 16), 1.5);
    EXPECT_EQ(picture.size(), QSize(24, 24));
    EXPECT_EQ(picture.deviceIndependentSize(), QSizeF(16, 16));
}

TEST_F(IconTest, PaintsItselfInTheMiddleOfItsPlace) {
    QImage canvas(40, 16, QImage::Format_ARGB32);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    icon.paint(&painter, canvas.rect());
    painter.end();
    EXPECT_EQ(inkOf(canvas.copy(0, 0, 12, 16), Qt::red).pixels, 0);
    EXPECT_GT(inkOf(canvas.copy(12, 0, 16, 16), Qt::red).pixels, 4);
    EXPECT_EQ(inkOf(canvas.copy(28, 0, 12, 16), Qt::red).pixels, 0);
}

TEST(Icons, TheProgramHasItsIconInTheUsualSizes) {
    const QIcon icon = Icons::application();
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        const QImage image = imageOf(icon.pixmap(QSize(size, size), 1));
        EXPECT_EQ(image.size(), QSize(size, size));
        // The violet of the ground, above the sheets.
        EXPECT_GT(image.pixelColor(size / 2, size / 8).blue(), 180);
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    }
}

}  // namespace
}  // namespace corvale
