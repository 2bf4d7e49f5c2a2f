#include "Corvale/grid/CellText.h"

#include <QTextBoundaryFinder>
#include <algorithm>
#include <cstddef>

#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::CellText {

namespace {

// A character takes two pixels or more, but marks piled on one may be many bytes.
constexpr int pixelsPerCharacter = 2;
constexpr std::size_t bytesPerCharacter = 8;
constexpr std::size_t bytesPerUnit = 3;  // of UTF-16, at most
constexpr int longestWord = 60;
constexpr QChar breakHere(0x200B);

bool isTabOrLineBreak(QChar character) {
    const char16_t unit = character.unicode();
    return unit == u'\t' || (Text::isSpaceOrLineBreak(unit) && !Text::isSpace(unit));
}

void breakNoLine(QString& text) {
    for (QChar& character : text) {
        const char16_t unit = character.unicode();
        if (Text::isSpaceOrLineBreak(unit)) {
            character = u' ';
        }
    }
}

std::size_t charactersIn(int width) { return static_cast<std::size_t>(std::max(width, 0) / pixelsPerCharacter) + 1; }

// Cut before they are counted, or the marks on a single character could make it a long walk.
std::string_view firstCharacters(std::string_view text, std::size_t characters) {
    std::size_t end = std::min(characters * bytesPerCharacter, text.size());
    while (end > 0 && end < text.size() && Utf8::isContinuation(text[end])) {
        --end;
    }
    return Text::firstCharacters(text.substr(0, end), characters);
}

std::string_view lastScalars(std::string_view text, std::size_t scalars) {
    std::size_t begin = text.size();
    for (; scalars > 0 && begin > 0; --scalars) {
        begin -= Utf8::scalarBefore(text, begin).length;
    }
    return text.substr(begin);
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
    const std::string_view shown = firstCharacters(text, characters);
    QString line = whole(shown);
    if (shown.size() < text.size()) {
        line += u'…';
    }
    breakNoLine(line);
    return line;
}

QString ends(std::string_view text, std::size_t characters) {
    const std::string_view first = firstCharacters(text, characters);
    const std::string_view last = lastScalars(text.substr(first.size()), characters);
    QString line = whole(first);
    if (first.size() + last.size() < text.size()) {
        line += u'…';
    }
    line += whole(last);
    breakNoLine(line);
    return line;
}

QString onOneLine(std::string_view text, int width) { return shortened(text, charactersIn(width)); }

QString endsOnOneLine(std::string_view text, int width) { return ends(text, charactersIn(width)); }

bool isAllOf(const QString& line, std::string_view text) {
    if (text.size() / bytesPerUnit > static_cast<std::size_t>(line.size())) {
        return false;
    }
    QString shown = whole(text);
    if (std::any_of(shown.begin(), shown.end(), isTabOrLineBreak)) {
        return false;
    }
    breakNoLine(shown);
    return shown == line;
}

QString cut(const QString& text, qsizetype units) {
    if (text.size() <= units) {
        return text;
    }
    const bool splitsPair = units > 0 && text[units].isLowSurrogate();
    return text.first(splitsPair ? units - 1 : units) + u'…';
}

QString cut(std::string_view text, qsizetype units) {
    // One more than is shown tells that more follows.
    const auto wanted = static_cast<std::size_t>(units) + 1;
    if (text.size() / bytesPerUnit > wanted) {
        std::size_t end = wanted * bytesPerUnit;
        while (end < text.size() && Utf8::isContinuation(text[end])) {
            ++end;
        }
        text = text.substr(0, end);
    }
    return cut(whole(text), units);
}

QString toolTip(const QString& text) {
    const QString shown = withBreaksInWords(cut(text, longestToolTip));
    return QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(shown.toHtmlEscaped());
}

}  // namespace corvale::CellText
