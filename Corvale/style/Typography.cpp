#include "Corvale/style/Typography.h"

#include <QGuiApplication>

namespace corvale {

namespace {

struct Shape {
    double size;  // where the body is 13
    QFont::Weight weight;
};

constexpr double bodySize = 13;

Shape shapeOf(TextRole role) {
    switch (role) {
        case TextRole::body:
            return {bodySize, QFont::Normal};
        case TextRole::bodyStrong:
            return {bodySize, QFont::DemiBold};
        case TextRole::bodyBold:
            return {bodySize, QFont::Bold};
        case TextRole::stateTitle:
            return {18, QFont::DemiBold};
        case TextRole::cardName:
            return {14, QFont::DemiBold};
        case TextRole::detailsKey:
            return {15, QFont::DemiBold};
        case TextRole::chipCount:
            return {15, QFont::Bold};
        case TextRole::secondary:
            return {12, QFont::Normal};
        case TextRole::rowNumber:
            return {11.5, QFont::Normal};
        case TextRole::longRowNumber:
            return {9, QFont::Normal};
        case TextRole::caption:
            return {11, QFont::DemiBold};
        case TextRole::helpText:
            return {14, QFont::Normal};
        case TextRole::helpTitle:
            return {20, QFont::Bold};
        case TextRole::welcomeTitle:
            return {24, QFont::Bold};
        case TextRole::panelTitle:
            return {14, QFont::DemiBold};
        case TextRole::sideBySideCell:
            return {12, QFont::Normal};
    }
    return {bodySize, QFont::Normal};
}

}  // namespace

QFont fontFor(TextRole role, const QFont& system) {
    const Shape shape = shapeOf(role);
    const double factor = shape.size / bodySize;
    QFont font = system;
    if (system.pixelSize() > 0) {
        font.setPixelSize(qRound(system.pixelSize() * factor));
    } else {
        font.setPointSizeF(system.pointSizeF() * factor);
    }
    font.setWeight(shape.weight);
    return font;
}

QFont fontFor(TextRole role) { return fontFor(role, QGuiApplication::font()); }

}  // namespace corvale
