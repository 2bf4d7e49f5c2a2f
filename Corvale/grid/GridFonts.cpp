#include "Corvale/grid/GridFonts.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QPainter>
#include <algorithm>

namespace corvale {

namespace {

constexpr qreal basePixels = 13;
// Taller text would not fit a line of 28 pixels.
constexpr int largestBase = 18;
constexpr qreal tightSpacing = 98;  // percent
constexpr char16_t firstPlain = u' ';
constexpr char16_t lastPlain = 0x7F;
constexpr qsizetype longestNumber = 24;
constexpr qreal mostKerning = 1;  // by which a text may be wider than its characters

// What numbers and dates are written with. No font kerns digits, and so nor these between them.
bool isOfNumbers(QChar character) {
    const char16_t unit = character.unicode();
    return (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u',' || unit == u'-' || unit == u':' ||
           unit == u'%';
}

qreal extraSpacing(const QFont& font, qreal advance) {
    const bool isRelative = font.letterSpacingType() == QFont::PercentageSpacing && font.letterSpacing() > 0;
    return isRelative ? advance * (font.letterSpacing() - 100) / 100 : 0;
}

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

GridFont::GridFont(const QFont& font) : m_font(font), m_metrics(font), m_raw(QRawFont::fromFont(font)) {
    m_widths.fill(-1);
    QString plain;
    for (char16_t character = firstPlain; character < lastPlain; ++character) {
        plain += character;
    }
    const QList<quint32> glyphs = m_raw.glyphIndexesForString(plain);
    const QList<QPointF> advances = m_raw.advancesForGlyphIndexes(glyphs);
    if (glyphs.size() != plain.size() || advances.size() != plain.size()) {
        return;
    }
    for (qsizetype i = 0; i < plain.size(); ++i) {
        const auto character = static_cast<std::size_t>(plain[i].unicode());
        m_glyphs.at(character) = glyphs[i];
        m_widths.at(character) = glyphs[i] == 0 ? -1 : advances[i].x() + extraSpacing(font, advances[i].x());
    }
}

qreal GridFont::unkernedWidth(const QString& text) const {
    qreal sum = 0;
    for (const QChar character : text) {
        const std::size_t unit = character.unicode();
        if (unit >= plainCharacters || m_widths[unit] < 0) {
            return -1;
        }
        sum += m_widths[unit];
    }
    return sum;
}

bool GridFont::isUnkerned(const QString& text) const {
    return m_font.letterSpacing() == 0 && text.size() <= longestNumber &&
           std::all_of(
               text.begin(), text.end(), [this](QChar c) { return isOfNumbers(c) && m_widths[c.unicode()] >= 0; });
}

qreal GridFont::width(const QString& text) const {
    return isUnkerned(text) ? unkernedWidth(text) : m_metrics.horizontalAdvance(text);
}

QString GridFont::elided(const QString& text, qreal width, Qt::TextElideMode mode) const {
    const qreal unkerned = unkernedWidth(text);
    if (unkerned >= 0 && unkerned + mostKerning <= width) {
        return text;
    }
    return m_metrics.elidedText(text, mode, width);
}

void GridFont::draw(QPainter& painter, const QPointF& baseline, const QString& text) const {
    if (!isUnkerned(text)) {
        painter.setFont(m_font);
        painter.drawText(baseline, text);
        return;
    }
    std::array<quint32, longestNumber> glyphs{};
    std::array<QPointF, longestNumber> places{};
    int count = 0;
    qreal x = 0;
    for (const QChar character : text) {
        const auto at = static_cast<std::size_t>(count++);
        glyphs.at(at) = m_glyphs[character.unicode()];
        places.at(at) = {x, 0};
        x += m_widths[character.unicode()];
    }
    QGlyphRun run;
    run.setRawFont(m_raw);
    run.setRawData(glyphs.data(), places.data(), count);
    painter.drawGlyphRun(baseline, run);
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
