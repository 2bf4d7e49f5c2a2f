#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QWidget>

#include "Corvale/style/Look.h"
#include "Corvale/style/Theme.h"

namespace corvale {
namespace {

QColor middleOf(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(image.rect().center());
}

TEST(Look, IsReadBack) {
    QWidget widget;
    EXPECT_EQ(lookOf(widget), Look::none);
    setLook(widget, Look::sidebar);
    EXPECT_EQ(lookOf(widget), Look::sidebar);
    setLook(widget, Look::none);
    EXPECT_EQ(lookOf(widget), Look::none);
}

TEST(Look, ChangesAWidgetThatIsShown) {
    const Theme theme(*qApp);
    QWidget window;
    auto* card = new QWidget(&window);
    card->setFixedSize(100, 60);
    window.show();
    setLook(*card, Look::card);
    EXPECT_EQ(middleOf(*card), theme.palette().surface);
    setLook(*card, Look::dropTarget);
    EXPECT_EQ(middleOf(*card), theme.palette().accentTint);
    setLook(*card, Look::emptyCard);
    EXPECT_EQ(middleOf(*card), theme.palette().window);
    setLook(*card, Look::none);
    EXPECT_EQ(middleOf(*card), theme.palette().window);
}

TEST(Look, AnEmptyCardHasADashedEdge) {
    const Theme theme(*qApp);
    QWidget window;
    auto* card = new QWidget(&window);
    card->setFixedSize(120, 60);
    setLook(*card, Look::emptyCard);
    const QImage image = window.grab().toImage();
    int dark = 0;
    for (int x = 20; x < 100; ++x) {
        dark += image.pixelColor(x, 0).lightness() < 200 ? 1 : 0;
    }
    EXPECT_GT(dark, 25);
    EXPECT_LT(dark, 60);
}

}  // namespace
}  // namespace corvale
