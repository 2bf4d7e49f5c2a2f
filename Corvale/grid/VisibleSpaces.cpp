#include "Corvale/grid/VisibleSpaces.h"

#include "Corvale/grid/CellText.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

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

std::string_view withoutLeadingSpaces(std::string_view text) {
    while (!text.empty()) {
        const Utf8::Scalar scalar = Utf8::scalarAt(text, 0);
        if (!Text::isSpaceOrLineBreak(scalar.value)) {
            break;
        }
        text.remove_prefix(scalar.length);
    }
    return text;
}

}  // namespace

bool differOnlyInSpaces(std::string_view a, std::string_view b) {
    for (;;) {
        a = withoutLeadingSpaces(a);
        b = withoutLeadingSpaces(b);
        if (a.empty() || b.empty()) {
            return a.empty() && b.empty();
        }
        const std::size_t length = Utf8::scalarAt(a, 0).length;
        if (a.substr(0, length) != b.substr(0, length)) {
            return false;
        }
        a.remove_prefix(length);
        b.remove_prefix(length);
    }
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
