#include "Corvale/grid/GridFonts.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QPainter>
#include <QStringView>
#include <QVarLengthArray>
#include <algorithm>
#include <optional>

#include "Corvale/style/Typography.h"

namespace corvale {

namespace {

// Taller text would not fit a line of 28 pixels.
constexpr int largestBase = 18;
constexpr qreal tightSpacing = 98;  // percent

// The glyphs of a text and where they are, as far as it is made of pairs that the font just puts together.
class PlainText {
public:
    PlainText(QStringView text, const PairAdvances& pairs) : m_text(text), m_pairs(pairs) {
        qreal x = 0;
        for (qsizetype i = 0; i < text.size() && m_isWhole; ++i) {
            const auto glyph = pairs.glyph(text[i]);
            const bool isLast = i + 1 == text.size();
            m_isWhole = glyph && (isLast || pairs.glyph(text[i + 1]));
            if (m_isWhole) {
                m_glyphs.append(*glyph);
                m_places.append({x, 0});
                const auto advance = isLast ? std::optional(pairs.width(text[i])) : pairs.advance(text[i], text[i + 1]);
                m_isWhole = advance.has_value();
                x += advance.value_or(0);
            }
        }
        m_width = x;
    }

    // False when some of it has to be shaped.
    bool isWhole() const { return m_isWhole; }
    qreal width() const { return m_width; }

    // How many characters from the start take no more than `width` with an ellipsis behind them.
    qsizetype charactersWithin(qreal width) const {
        const qreal left = width - m_pairs.width(u'…');
        qsizetype fitting = 0;
        while (fitting < m_text.size() && endBeforeEllipsis(fitting) <= left) {
            ++fitting;
        }
        return fitting;
    }

    void draw(QPainter& painter, const QPointF& baseline) const {
        QGlyphRun run;
        run.setRawFont(m_pairs.rawFont());
        run.setRawData(m_glyphs.constData(), m_places.constData(), static_cast<int>(m_glyphs.size()));
        painter.drawGlyphRun(baseline, run);
    }

private:
    static constexpr qsizetype usualLength = 64;

    qreal endBeforeEllipsis(qsizetype at) const {
        return m_places[at].x() + m_pairs.advance(m_text[at], u'…').value_or(m_pairs.width(m_text[at]));
    }

    QStringView m_text;
    const PairAdvances& m_pairs;
    QVarLengthArray<quint32, usualLength> m_glyphs;
    QVarLengthArray<QPointF, usualLength> m_places;
    bool m_isWhole = true;
    qreal m_width = 0;
};

QFont sized(const QFont& base, TextRole role, QFont::Weight weight) {
    QFont limited(base);
    limited.setPixelSize(std::min(QFontInfo(base).pixelSize(), largestBase));
    QFont font = fontFor(role, limited);
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

TextRole cellRole(ViewMode view) { return view == ViewMode::unified ? TextRole::body : TextRole::sideBySideCell; }

}  // namespace

GridFont::GridFont(const QFont& font) : m_font(font), m_metrics(font), m_pairs(std::make_shared<PairAdvances>(font)) {}

qreal GridFont::width(const QString& text) const {
    const PlainText plain(text, *m_pairs);
    return plain.isWhole() ? plain.width() : m_metrics.horizontalAdvance(text);
}

QString GridFont::elided(const QString& text, qreal width, Qt::TextElideMode mode) const {
    const PlainText plain(text, *m_pairs);
    if (plain.isWhole() && plain.width() <= width) {
        return text;
    }
    if (!plain.isWhole() || mode != Qt::ElideRight || !m_pairs->glyph(u'…')) {
        return m_metrics.elidedText(text, mode, width);
    }
    return text.first(plain.charactersWithin(width)) + u'…';
}

void GridFont::draw(QPainter& painter, const QPointF& baseline, const QString& text) const {
    const PlainText plain(text, *m_pairs);
    if (plain.isWhole()) {
        plain.draw(painter, baseline);
    } else {
        painter.setFont(m_font);
        painter.drawText(baseline, text);
    }
}

qreal GridFont::baseline(qreal top, qreal height) const {
    return qRound(top + (height - m_metrics.height()) / 2 + m_metrics.ascent());
}

GridFonts::GridFonts(const QFont& base, ViewMode view, bool isScaled)
    : cell(narrowed(sized(base, cellRole(view), QFont::Normal), isScaled)),
      newValue(narrowed(sized(base, cellRole(view), QFont::Bold), isScaled)),
      key(tightened(
          narrowed(sized(base, cellRole(view), view == ViewMode::unified ? QFont::Medium : QFont::Normal), isScaled),
          isScaled)),
      number(sized(base, TextRole::rowNumber, QFont::Normal)),
      longNumber(sized(base, TextRole::longRowNumber, QFont::Normal)),
      selectedNumber(sized(base, TextRole::rowNumber, QFont::DemiBold)),
      status(sized(base, TextRole::body, QFont::Medium)),
      unchangedStatus(sized(base, TextRole::body, QFont::Normal)),
      header(narrowed(sized(base, TextRole::secondary, QFont::DemiBold), isScaled)),
      headerNote(narrowed(sized(base, TextRole::secondary, QFont::Normal), isScaled)),
      sideTitle(sized(base, TextRole::secondary, QFont::DemiBold)) {}

}  // namespace corvale
