#include "Corvale/grid/FieldValue.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/ShownStretch.h"
#include "Corvale/grid/TextDifference.h"
#include "Corvale/grid/VisibleSpaces.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale {

namespace {

constexpr QStringView lineBreakPair = u"\r\n";

// What shows the text makes one line break of CR LF, and all places behind it would be one less. A CR that stays could
// meet an LF that is put behind it.
void joinLineBreaks(FieldValue& value) {
    const QStringView original = value.original;
    value.text.clear();
    for (qsizetype i = 0; i < original.size(); ++i) {
        value.origins.push_back(static_cast<int>(i));
        if (original.mid(i).startsWith(lineBreakPair)) {
            ++i;
        }
        value.text += original[i] == u'\r' ? u'\n' : original[i];
    }
}

void showSpaces(FieldValue& value, std::string_view text) {
    VisibleSpaces spaces = VisibleSpaces::of(text);
    value.text = spaces.text;
    value.origins = std::move(spaces.origins);
}

// A value with the stretch that differs, in bytes.
struct MarkedText {
    std::string_view text;
    std::size_t begin = 0;
    std::size_t end = 0;
};

FieldValue written(const MarkedText& marked, bool showsSpaces) {
    FieldValue value;
    value.original = CellText::whole(marked.text);
    value.text = value.original;
    const auto unitsBefore = [&marked](std::size_t bytes) {
        return static_cast<int>(CellText::whole(marked.text.substr(0, bytes)).size());
    };
    if (marked.end - marked.begin < marked.text.size()) {
        value.markBegin = unitsBefore(marked.begin);
        value.markEnd = unitsBefore(marked.end);
    }
    if (showsSpaces) {
        showSpaces(value, marked.text);
    } else if (value.original.contains(u'\r')) {
        joinLineBreaks(value);
    }
    if (!value.origins.empty()) {
        const auto shownAt = [&value](int unit) {
            return static_cast<int>(std::ranges::lower_bound(value.origins, unit) - value.origins.begin());
        };
        value.markBegin = shownAt(value.markBegin);
        value.markEnd = shownAt(value.markEnd);
    }
    return value;
}

// In a line of its own. Copied with the value, it says that this is not all of it.
void noteLeftOutBefore(FieldValue& value, std::size_t characters) {
    const QString note = RowTexts::leftOut(characters) + u'\n';
    value.noteBefore = static_cast<int>(note.size());
    value.text.prepend(note);
    value.original.prepend(note);
    value.markBegin += value.noteBefore;
    value.markEnd += value.noteBefore;
    if (!value.origins.empty()) {
        for (int& origin : value.origins) {
            origin += value.noteBefore;
        }
        value.origins.insert(value.origins.begin(), static_cast<std::size_t>(note.size()), 0);
        std::iota(value.origins.begin(), value.origins.begin() + note.size(), 0);
    }
}

void noteLeftOutBehind(FieldValue& value, std::size_t characters) {
    const QString note = u'\n' + RowTexts::leftOut(characters);
    value.noteBehind = static_cast<int>(note.size());
    if (!value.origins.empty()) {
        const std::size_t end = value.origins.size();
        value.origins.resize(end + static_cast<std::size_t>(note.size()));
        std::iota(value.origins.begin() + static_cast<std::ptrdiff_t>(end),
                  value.origins.end(),
                  static_cast<int>(value.original.size()));
    }
    value.text += note;
    value.original += note;
}

FieldValue shown(const MarkedText& marked, bool showsSpaces) {
    const auto stretch = ShownStretch::of(marked.text, marked.begin);
    const auto inStretch = [&stretch](std::size_t place) {
        return std::clamp(place, stretch.begin, stretch.end) - stretch.begin;
    };
    FieldValue value = written({marked.text.substr(stretch.begin, stretch.end - stretch.begin),
                                inStretch(marked.begin),
                                inStretch(marked.end)},
                               showsSpaces);
    if (stretch.begin > 0) {
        noteLeftOutBefore(value, Utf8::scalarCount(marked.text.substr(0, stretch.begin)));
    }
    if (stretch.end < marked.text.size()) {
        noteLeftOutBehind(value, Utf8::scalarCount(marked.text.substr(stretch.end)));
    }
    return value;
}

FieldValue noted(const RowField& field, bool isThere) {
    FieldValue value;
    value.text = FieldValue::note(field, isThere);
    value.isNote = true;
    return value;
}

}  // namespace

QString FieldValue::note(const RowField& field, bool isThere) {
    if (!isThere) {
        return RowTexts::notInThisFile();
    }
    return field.isKey ? RowTexts::blankKey() : RowTexts::emptyCell();
}

FieldValues FieldValues::of(const RowField& field) {
    TextDifference difference;
    bool showsSpaces = false;
    if (field.kind != RowField::Kind::plain && field.before && field.after) {
        difference = TextDifference::of(*field.before, *field.after);
        showsSpaces = field.showsSpaces();
    }
    const auto valueOf = [&](const std::optional<std::string_view>& text, std::size_t end) {
        return text && !text->empty() ? shown({*text, difference.begin, end}, showsSpaces)
                                      : noted(field, text.has_value());
    };
    return {valueOf(field.before, difference.beforeEnd), valueOf(field.after, difference.afterEnd)};
}

}  // namespace corvale
