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

TEST(Look, ChangesAWidgetThatIsShown) {
    const Theme theme(*qApp);
    QWidget window;
    auto* card = new QWidget(&window);
    card->setFixedSize(100, 60);
    window.show();
    setLook(*card, Look::card);
    EXPECT_EQ(middleOf(*card), theme.palette().surface);
    setLook(*card, Look::sidebar);
    EXPECT_EQ(middleOf(*card), theme.palette().window);
    setLook(*card, Look::surface);
    EXPECT_EQ(middleOf(*card), theme.palette().surface);
    setLook(*card, Look::none);
    EXPECT_EQ(middleOf(*card), theme.palette().window);
}

TEST(Look, OnlyACardHasAnEdgeAllAround) {
    const Theme theme(*qApp);
    QWidget window;
    auto* card = new QWidget(&window);
    card->setFixedSize(120, 60);
    setLook(*card, Look::card);
    const QImage whole = window.grab().toImage();
    EXPECT_EQ(whole.pixelColor(60, 0), theme.palette().border);
    EXPECT_EQ(whole.pixelColor(0, 30), theme.palette().border);
    setLook(*card, Look::nextLine);
    const QImage line = window.grab().toImage();
    EXPECT_EQ(line.pixelColor(60, 0), theme.palette().line);
    EXPECT_EQ(line.pixelColor(0, 30), theme.palette().window);
}

}  // namespace
}  // namespace corvale
