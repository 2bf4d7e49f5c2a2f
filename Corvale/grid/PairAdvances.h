#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QRawFont>
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace corvale {

// Where a font puts plain characters behind one another, kerning and spacing included: learnt by having Qt shape each
// pair once, so that a text of such pairs need not be shaped again. On one thread.
class PairAdvances {
public:
    explicit PairAdvances(const QFont& font);

    const QRawFont& rawFont() const { return m_raw; }
    // The glyph of a printable ASCII character or an ellipsis; none for others, and where the font lacks it.
    std::optional<quint32> glyph(QChar character) const;
    // From the start of a character to that of the next, both with a glyph; none where the two become something else
    // together, such as a ligature.
    std::optional<qreal> advance(QChar character, QChar next) const;
    // Of a last character.
    qreal width(QChar character) const;

private:
    static constexpr char16_t first = 0x20;
    static constexpr char16_t afterLast = 0x7F;
    static constexpr char16_t ellipsis = u'…';
    static constexpr std::size_t count = afterLast - first + 1;  // the ellipsis is the last

    static std::size_t place(QChar character) { return std::min(character.unicode(), afterLast) - std::size_t{first}; }
    float learn(QChar character, QChar next) const;

    QFont m_font;
    QFontMetricsF m_metrics;
    QRawFont m_raw;
    std::array<quint32, count> m_glyphs{};
    std::array<qreal, count> m_widths{};
    mutable std::vector<float> m_pairs;  // what is not learnt yet, and pairs that are none, have values of their own
};

}  // namespace corvale
