#include "Corvale/grid/GridFonts.h"

#include <QFontInfo>
#include <algorithm>

namespace corvale {

namespace {

constexpr qreal basePixels = 13;
// Taller text would not fit a line of 28 pixels.
constexpr int largestBase = 18;
constexpr qreal tightSpacing = 98;  // percent

QFont sized(const QFont& base, qreal pixelsAtBase, QFont::Weight weight) {
    const int basePixelSize = std::min(QFontInfo(base).pixelSize(), largestBase);
    QFont font(base);
    font.setPixelSize(std::max(1, qRound(basePixelSize * pixelsAtBase / basePixels)));
    font.setWeight(weight);
    return font;
}

// A family whose digits are wide, such as the one that every system has, is narrowed rather than cut everywhere.
QFont narrowed(QFont font, bool isScaled) {
    constexpr qreal wideDigit = 0.625;
    const qreal digit = QFontMetricsF(font).horizontalAdvance(u'0') / QFontInfo(font).pixelSize();
    if (isScaled && digit > wideDigit) {
        font.setStretch(QFont::SemiCondensed);
    }
    return font;
}

QFont tightened(QFont font, bool isTight) {
    if (isTight) {
        font.setLetterSpacing(QFont::PercentageSpacing, tightSpacing);
    }
    return font;
}

qreal cellPixels(ViewMode view) { return view == ViewMode::unified ? 13 : 12; }

}  // namespace

GridFont::GridFont(const QFont& font) : m_font(font), m_metrics(font), m_widestCharacter(m_metrics.maxWidth()) {}

QString GridFont::elided(const QString& text, qreal width, Qt::TextElideMode mode) const {
    // Most texts are short, and asking the metrics means shaping the text once more.
    if (static_cast<qreal>(text.size()) * m_widestCharacter <= width) {
        return text;
    }
    return m_metrics.elidedText(text, mode, width);
}

qreal GridFont::baseline(qreal top, qreal height) const {
    return qRound(top + (height - m_metrics.height()) / 2 + m_metrics.ascent());
}

GridFonts::GridFonts(const QFont& base, ViewMode view, bool isScaled)
    : cell(narrowed(sized(base, cellPixels(view), QFont::Normal), isScaled)),
      newValue(narrowed(sized(base, cellPixels(view), QFont::Bold), isScaled)),
      key(tightened(
          narrowed(sized(base, cellPixels(view), view == ViewMode::unified ? QFont::Medium : QFont::Normal), isScaled),
          isScaled)),
      number(sized(base, 11.5, QFont::Normal)),
      longNumber(sized(base, 9, QFont::Normal)),
      selectedNumber(sized(base, 11.5, QFont::DemiBold)),
      status(sized(base, 13, QFont::Medium)),
      unchangedStatus(sized(base, 13, QFont::Normal)),
      header(narrowed(sized(base, 12, QFont::DemiBold), isScaled)),
      headerNote(narrowed(sized(base, 12, QFont::Normal), isScaled)),
      sideTitle(sized(base, 12, QFont::DemiBold)) {}

}  // namespace corvale
