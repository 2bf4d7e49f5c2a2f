#include "Corvale/grid/CellText.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <cstddef>

#include "CorvaleKit/text/Text.h"

namespace corvale::CellText {

namespace {

// A character takes two pixels or more, but marks piled on one may be many bytes.
constexpr int pixelsPerCharacter = 2;
constexpr std::size_t bytesPerCharacter = 8;
constexpr qsizetype longestToolTip = 1000;
constexpr int longestWord = 60;
constexpr QChar breakHere(0x200B);

void breakNoLine(QString& text) {
    for (QChar& character : text) {
        const char16_t unit = character.unicode();
        if (Text::isSpaceOrLineBreak(unit)) {
            character = u' ';
        }
    }
}

// A tooltip gets as wide as its longest word, which may be wider than the screen.
QString withBreaksInWords(const QString& text) {
    QString breakable;
    int characters = 0;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype begin = 0, end = finder.toNextBoundary(); end > 0; begin = end, end = finder.toNextBoundary()) {
        characters = text[begin].isSpace() ? 0 : characters + 1;
        if (characters > longestWord) {
            breakable += breakHere;
            characters = 1;
        }
        breakable += QStringView(text).mid(begin, end - begin);
    }
    return breakable;
}

}  // namespace

QString shortened(std::string_view text, std::size_t characters) {
    // Cut first, or the marks on a single character could make it a long walk; a scalar cut in two is not shown.
    const std::string_view near = text.substr(0, characters * bytesPerCharacter);
    const std::string_view shown = Text::firstCharacters(near, characters);
    QString line = whole(shown);
    if (shown.size() < text.size()) {
        while (line.endsWith(QChar::ReplacementCharacter)) {
            line.chop(1);
        }
        line += u'…';
    }
    breakNoLine(line);
    return line;
}

QString onOneLine(std::string_view text, int width) {
    return shortened(text, static_cast<std::size_t>(std::max(width, 0) / pixelsPerCharacter) + 1);
}

QString cut(const QString& text, qsizetype units) {
    if (text.size() <= units) {
        return text;
    }
    const bool splitsPair = units > 0 && text[units].isLowSurrogate();
    return text.first(splitsPair ? units - 1 : units) + u'…';
}

QString toolTip(const QString& text) {
    const QString shown = withBreaksInWords(cut(text, longestToolTip));
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(shown.toHtmlEscaped());
}

}  // namespace corvale::CellText
