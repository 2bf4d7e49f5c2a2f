#include "Corvale/grid/VisibleSpaces.h"

#include "Corvale/grid/CellText.h"
#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

constexpr char16_t noBreakSpace = 0x00A0;
constexpr char16_t narrowNoBreakSpace = 0x202F;

bool isLineBreak(char16_t unit) { return Text::isSpaceOrLineBreak(unit) && !Text::isSpace(unit); }

// Marks a single character; itself when it is no white space.
QChar visibleSpace(QChar character) {
    const char16_t unit = character.unicode();
    if (unit == u'\t') {
        return u'→';
    }
    if (unit == noBreakSpace || unit == narrowNoBreakSpace) {
        return u'␣';
    }
    if (isLineBreak(unit)) {
        return u'⏎';
    }
    return Text::isSpace(unit) ? QChar(u'·') : character;
}

}  // namespace

bool differOnlyInSpaces(std::string_view a, std::string_view b) {
    const auto withoutSpaces = [](std::string_view text) {
        QString kept = CellText::whole(text);
        kept.removeIf([](QChar c) { return Text::isSpaceOrLineBreak(c.unicode()); });
        return kept;
    };
    return withoutSpaces(a) == withoutSpaces(b);
}

VisibleSpaces VisibleSpaces::of(std::string_view original) {
    const QString plain = CellText::whole(original);
    VisibleSpaces visible;
    visible.text.reserve(plain.size());
    for (int i = 0; i < plain.size(); ++i) {
        visible.text += visibleSpace(plain[i]);
        visible.origins.push_back(i);
        const bool isPair = plain[i] == u'\r' && i + 1 < plain.size() && plain[i + 1] == u'\n';
        if (isLineBreak(plain[i].unicode()) && !isPair) {
            visible.text += u'\n';
            visible.origins.push_back(i);
        }
    }
    return visible;
}

}  // namespace corvale
