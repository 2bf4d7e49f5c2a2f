#include <gtest/gtest.h>

#include <QApplication>

#include "Corvale/style/Typography.h"

namespace corvale {
namespace {

TEST(Typography, TheBodyIsTheFontOfTheSystem) {
    EXPECT_EQ(fontFor(TextRole::body), QApplication::font());
    EXPECT_EQ(fontFor(TextRole::bodyStrong).weight(), QFont::DemiBold);
}

TEST(Typography, SizesAreRelativeToThatOfTheSystem) {
    QFont system;
    system.setPointSizeF(9.75);  // 13 pixels
    EXPECT_DOUBLE_EQ(fontFor(TextRole::stateTitle, system).pointSizeF(), 13.5);
    system.setPointSizeF(19.5);
    EXPECT_DOUBLE_EQ(fontFor(TextRole::stateTitle, system).pointSizeF(), 27);
    EXPECT_EQ(fontFor(TextRole::stateTitle, system).weight(), QFont::DemiBold);
}

TEST(Typography, AFontInPixelsStaysInPixels) {
    QFont system;
    system.setPixelSize(13);
    const struct {
        TextRole role;
        int pixels;
    } cases[] = {
        {TextRole::stateTitle, 18},
        {TextRole::cardName, 14},
        {TextRole::detailsKey, 15},
        {TextRole::chipCount, 15},
        {TextRole::secondary, 12},
        {TextRole::caption, 11},
        {TextRole::helpText, 14},
        {TextRole::welcomeTitle, 24},
        {TextRole::helpTitle, 20},
        {TextRole::body, 13},
        {TextRole::bodyBold, 13},
        {TextRole::sideBySideCell, 12},
        {TextRole::panelTitle, 14},
        {TextRole::rowNumber, 12},
        {TextRole::longRowNumber, 9},
    };
    for (const auto& [role, pixels] : cases) {
        EXPECT_EQ(fontFor(role, system).pixelSize(), pixels) << int(role);
    }
}

TEST(Typography, TheFamilyIsThatOfTheSystem) {
    QFont system(QStringLiteral("DejaVu Serif"), 10);
    EXPECT_EQ(fontFor(TextRole::helpTitle, system).family(), QStringLiteral("DejaVu Serif"));
}

}  // namespace
}  // namespace corvale
