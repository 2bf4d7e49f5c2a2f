#pragma once

#include <QString>
#include <cstddef>
#include <string_view>

// Texts of the core as the window shows them.
namespace corvale::CellText {

inline QString whole(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// As much of a text as can show on one line of `width` pixels, with "…" where more follows. Line breaks and tabs become
// spaces. Costs what is shown, however long the text is.
QString onOneLine(std::string_view text, int width);

// The first `characters` on one line, then "…" where more follow.
QString shortened(std::string_view text, std::size_t characters);

// The first `units` in UTF-16 at most, whole characters of Unicode, then "…" where more follow.
QString cut(const QString& text, qsizetype units);

// For a tooltip, which wraps it: rich text that shows this very text, cut where it would fill the screen.
QString toolTip(const QString& text);

}  // namespace corvale::CellText
