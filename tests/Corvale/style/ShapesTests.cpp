#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QPen>

#include "Corvale/style/Icons.h"
#include "Corvale/style/Shapes.h"

namespace corvale {
namespace {

constexpr QRect area(4, 4, 12, 12);

QImage picture() {
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QImage boxed(const QBrush& fill, const QPen& border) {
    QImage image = picture();
    QPainter painter(&image);
    Shapes::box(painter, area, 3, fill, border);
    return image;
}

TEST(Shapes, AreCenteredAsSquares) {
    EXPECT_EQ(Shapes::centered(4, {0, 0, 10, 10}), QRect(3, 3, 4, 4));
    EXPECT_EQ(Shapes::centered(12, {10, 20, 30, 12}), QRect(19, 20, 12, 12));
    EXPECT_EQ(Shapes::centered(6, {0, 0, 2, 2}).size(), QSize(6, 6));
}

TEST(Shapes, ABoxKeepsItsBorderWithinItsArea) {
    for (const int width : {1, 2}) {
        const QImage image = boxed(Qt::blue, QPen(Qt::red, width));
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                const bool isUntouched = image.pixelColor(x, y) == Qt::white;
                EXPECT_TRUE(area.contains(x, y) || isUntouched) << x << ", " << y;
            }
        }
        EXPECT_EQ(image.pixelColor(4, 10), QColor(Qt::red));
        EXPECT_EQ(image.pixelColor(15, 10), QColor(Qt::red));
        EXPECT_EQ(image.pixelColor(4 + width, 10), QColor(Qt::blue));
        EXPECT_EQ(image.pixelColor(10, 10), QColor(Qt::blue));
    }
}

TEST(Shapes, WithoutABorderTheFillReachesTheEdge) {
    const QImage image = boxed(Qt::blue, Qt::NoPen);
    EXPECT_EQ(image.pixelColor(4, 10), QColor(Qt::blue));
    EXPECT_EQ(image.pixelColor(3, 10), QColor(Qt::white));
}

TEST(Shapes, ASymbolFillsItsSquare) {
    QImage image = picture();
    QPainter painter(&image);
    Shapes::symbol(painter, QStringLiteral("checkmark"), Qt::black, area);
    QImage expected = picture();
    QPainter onExpected(&expected);
    onExpected.drawPixmap(area.topLeft(), Icons::pixmap(QStringLiteral("checkmark"), Qt::black, 12, 1));
    EXPECT_EQ(image, expected);
    EXPECT_NE(image, picture());
}

}  // namespace
}  // namespace corvale
