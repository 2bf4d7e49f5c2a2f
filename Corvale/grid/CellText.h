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

// The same of a text that is elided in its middle: as much of each end, with "…" between where there is more.
QString endsOnOneLine(std::string_view text, int width);

// Whether a text was put on that line as a whole and has neither tabs nor line breaks; other spaces look like any.
// Costs what the line is long.
bool isAllOf(const QString& line, std::string_view text);

// The first `characters` on one line, then "…" where more follow.
QString shortened(std::string_view text, std::size_t characters);
// The first and the last `characters` on one line, with "…" between where there are more.
QString ends(std::string_view text, std::size_t characters);

// The first `units` in UTF-16 at most, whole characters of Unicode, then "…" where more follow.
QString cut(const QString& text, qsizetype units);
// The same of a text of the core. Costs what is shown.
QString cut(std::string_view text, qsizetype units);

// In UTF-16 units; more would fill the screen.
inline constexpr qsizetype longestToolTip = 1000;

// For a tooltip, which wraps it: rich text that shows this very text, cut where it is longer.
QString toolTip(const QString& text);

}  // namespace corvale::CellText
