#include "Corvale/grid/PairAdvances.h"

#include <QGlyphRun>
#include <QString>
#include <QTextLayout>

namespace corvale {

namespace {

constexpr float unknown = -1;
constexpr float noPair = -2;

// The glyphs that a text becomes, all of one font; empty when several fonts take part.
QList<quint32> shapedGlyphs(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return runs.size() == 1 ? runs[0].glyphIndexes() : QList<quint32>();
}

}  // namespace

PairAdvances::PairAdvances(const QFont& font)
    : m_font(font), m_metrics(font), m_raw(QRawFont::fromFont(font)), m_pairs(count * count, unknown) {
    for (char16_t unit = first; unit <= afterLast; ++unit) {
        const QString character(QChar(unit < afterLast ? unit : ellipsis));
        m_glyphs.at(place(character[0])) = m_raw.glyphIndexesForString(character).value(0);
        // Of a text: that of a character leaves the font's spacing out.
        m_widths.at(place(character[0])) = m_metrics.horizontalAdvance(character);
    }
}

std::optional<quint32> PairAdvances::glyph(QChar character) const {
    const char16_t unit = character.unicode();
    if ((unit < first || unit >= afterLast) && unit != ellipsis) {
        return std::nullopt;
    }
    const quint32 found = m_glyphs[place(character)];
    return found == 0 ? std::nullopt : std::optional(found);
}

qreal PairAdvances::width(QChar character) const { return m_widths[place(character)]; }

std::optional<qreal> PairAdvances::advance(QChar character, QChar next) const {
    float& known = m_pairs[place(character) * count + place(next)];
    if (known == unknown) {
        known = learn(character, next);
    }
    return known == noPair ? std::nullopt : std::optional<qreal>(known);
}

float PairAdvances::learn(QChar character, QChar next) const {
    const QString pair = QString(character) + next;
    // A line has no glyphs for the spaces at its ends.
    if (character != u' ' && next != u' ' && shapedGlyphs(pair, m_font) != QList{*glyph(character), *glyph(next)}) {
        return noPair;
    }
    return static_cast<float>(m_metrics.horizontalAdvance(pair) - width(next));
}

}  // namespace corvale
