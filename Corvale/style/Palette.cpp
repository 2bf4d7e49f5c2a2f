#include "Corvale/style/Palette.h"

#include <QPalette>

namespace corvale {

namespace {

QColor rgb(QRgb value) { return QColor(value); }

QColor translucent(QRgb value, int percent) {
    QColor color(value);
    color.setAlphaF(float(percent) / 100);
    return color;
}

Palette light() {
    return {
        .window = rgb(0xF2F3F5),
        .surface = rgb(0xFFFFFF),
        .surface2 = rgb(0xF7F8FA),
        .menu = rgb(0xFFFFFF),
        .control = rgb(0xFFFFFF),
        .controlHover = rgb(0xF7F8FA),
        .controlPressed = rgb(0xE6E8EC),
        .pressed = rgb(0xE6E8EC),
        .segmentTrack = rgb(0xE6E8EC),
        .segmentOn = rgb(0xFFFFFF),
        .border = rgb(0xDADDE3),
        .line = rgb(0xECEEF1),
        .controlBorder = rgb(0xC3C8D0),
        .field = rgb(0x868D98),
        .popupBorder = rgb(0xCDD1D8),
        .text = rgb(0x1B1F26),
        .text2 = rgb(0x535B67),
        .text3 = rgb(0x636B77),
        .disabled = rgb(0x989FAA),
        .accent = rgb(0x4B4FC4),
        .onAccent = rgb(0xFFFFFF),
        .accentTint = rgb(0xEDEDFB),
        .accentLine = rgb(0xB9BBEE),
        .added = {rgb(0x17692E), rgb(0xE4F5E8), rgb(0xA3D6B0), rgb(0x2E9A4B)},
        .removed = {rgb(0xA8261E), rgb(0xFCE9E7), rgb(0xF0B7B2), rgb(0xD6453B)},
        .changed = {rgb(0x7A5200), rgb(0xFFF3CC), rgb(0xE6CA73), rgb(0xB97D00)},
        .formatOnly = {rgb(0x0B5CA6), rgb(0xE3F0FD), rgb(0xA2CBF1), rgb(0x2F83D6)},
        .thumb = rgb(0xC0C5CD),
        .hatch = rgb(0xEEF0F3),
        .veil = translucent(0xFFFFFF, 66),
        .scrim = translucent(0x181B22, 34),
        .toolTip = rgb(0x2A2E36),
        .onToolTip = rgb(0xF3F4F6),
    };
}

Palette dark() {
    return {
        .window = rgb(0x232529),
        .surface = rgb(0x1A1C1F),
        .surface2 = rgb(0x26292E),
        .menu = rgb(0x2A2D32),
        .control = rgb(0x2D3036),
        .controlHover = rgb(0x363A41),
        .controlPressed = rgb(0x42474F),
        .pressed = rgb(0x363A41),
        .segmentTrack = rgb(0x1A1C1F),
        .segmentOn = rgb(0x3C4149),
        .border = rgb(0x3A3E45),
        .line = rgb(0x2B2E33),
        .controlBorder = rgb(0x4C515A),
        .field = rgb(0x7C8490),
        .popupBorder = rgb(0x4C515A),
        .text = rgb(0xE8EAED),
        .text2 = rgb(0xB0B6C0),
        .text3 = rgb(0x979EA9),
        .disabled = rgb(0x6A717C),
        .accent = rgb(0xA3A7FF),
        .onAccent = rgb(0x15161F),
        .accentTint = rgb(0x2E3054),
        .accentLine = rgb(0x565A9E),
        .added = {rgb(0x7CD992), rgb(0x18321F), rgb(0x2F6B40), rgb(0x46B463)},
        .removed = {rgb(0xFF9D94), rgb(0x3B1F1E), rgb(0x7E3B36), rgb(0xE5645A)},
        .changed = {rgb(0xF0CB62), rgb(0x382E12), rgb(0x7A6320), rgb(0xE0AE2D)},
        .formatOnly = {rgb(0x8FC8FF), rgb(0x152D48), rgb(0x2F5F91), rgb(0x4C9BEA)},
        .thumb = rgb(0x565C66),
        .hatch = rgb(0x24272B),
        .veil = translucent(0x1A1C1F, 70),
        .scrim = translucent(0x000000, 55),
        .toolTip = rgb(0x2A2E36),
        .onToolTip = rgb(0xF3F4F6),
    };
}

void append(QList<NamedColor>& list, const QString& kind, const ChangeColors& colors) {
    list.append({
        {kind + QStringLiteral("Text"), colors.text},
        {kind + QStringLiteral("Fill"), colors.fill},
        {kind + QStringLiteral("Edge"), colors.edge},
        {kind + QStringLiteral("Mark"), colors.mark},
    });
}

}  // namespace

Scheme schemeOf(const QPalette& system) {
    const int text = system.color(QPalette::WindowText).lightness();
    return text > system.color(QPalette::Window).lightness() ? Scheme::dark : Scheme::light;
}

const Palette& Palette::forScheme(Scheme scheme) {
    static const Palette lightPalette = light();
    static const Palette darkPalette = dark();
    return scheme == Scheme::dark ? darkPalette : lightPalette;
}

QList<NamedColor> namedColors(const Palette& palette) {
    QList<NamedColor> list{
        {QStringLiteral("window"), palette.window},
        {QStringLiteral("surface"), palette.surface},
        {QStringLiteral("surface2"), palette.surface2},
        {QStringLiteral("menu"), palette.menu},
        {QStringLiteral("control"), palette.control},
        {QStringLiteral("controlHover"), palette.controlHover},
        {QStringLiteral("controlPressed"), palette.controlPressed},
        {QStringLiteral("pressed"), palette.pressed},
        {QStringLiteral("segmentTrack"), palette.segmentTrack},
        {QStringLiteral("segmentOn"), palette.segmentOn},
        {QStringLiteral("border"), palette.border},
        {QStringLiteral("line"), palette.line},
        {QStringLiteral("controlBorder"), palette.controlBorder},
        {QStringLiteral("field"), palette.field},
        {QStringLiteral("popupBorder"), palette.popupBorder},
        {QStringLiteral("text"), palette.text},
        {QStringLiteral("text2"), palette.text2},
        {QStringLiteral("text3"), palette.text3},
        {QStringLiteral("disabled"), palette.disabled},
        {QStringLiteral("accent"), palette.accent},
        {QStringLiteral("onAccent"), palette.onAccent},
        {QStringLiteral("accentTint"), palette.accentTint},
        {QStringLiteral("accentLine"), palette.accentLine},
    };
    append(list, QStringLiteral("added"), palette.added);
    append(list, QStringLiteral("removed"), palette.removed);
    append(list, QStringLiteral("changed"), palette.changed);
    append(list, QStringLiteral("formatOnly"), palette.formatOnly);
    list.append({
        {QStringLiteral("thumb"), palette.thumb},
        {QStringLiteral("hatch"), palette.hatch},
        {QStringLiteral("veil"), palette.veil},
        {QStringLiteral("scrim"), palette.scrim},
        {QStringLiteral("toolTip"), palette.toolTip},
        {QStringLiteral("onToolTip"), palette.onToolTip},
    });
    return list;
}

}  // namespace corvale
