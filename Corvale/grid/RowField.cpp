#include "Corvale/grid/RowField.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/GridRow.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/ShownStretch.h"
#include "Corvale/grid/TextDifference.h"
#include "Corvale/grid/VisibleSpaces.h"
#include "CorvaleKit/engine/RowCells.h"

namespace corvale {

namespace {

constexpr QStringView lineBreakPair = u"\r\n";

// What shows the text makes one line break of the two characters, and all places behind it would be one less.
void joinLineBreaks(FieldValue& value) {
    const QStringView original = value.original;
    value.text.clear();
    for (qsizetype i = 0; i < original.size(); ++i) {
        value.origins.push_back(static_cast<int>(i));
        if (original.mid(i).startsWith(lineBreakPair)) {
            ++i;
        }
        value.text += original[i];
    }
}

void showSpaces(FieldValue& value, std::string_view text) {
    VisibleSpaces spaces = VisibleSpaces::of(text);
    value.text = spaces.text;
    value.origins = std::move(spaces.origins);
}

// In a line of its own in front of the shown text, which stands for what of the original is not there.
void noteLeftOutBefore(FieldValue& value, std::size_t characters) {
    const QString note = RowTexts::leftOut(characters) + u'\n';
    value.text.prepend(note);
    value.origins.insert(value.origins.begin(), static_cast<std::size_t>(note.size()), 0);
    value.markBegin += static_cast<int>(note.size());
    value.markEnd += static_cast<int>(note.size());
}

void noteLeftOutBehind(FieldValue& value, std::size_t characters, int origin) {
    const QString note = u'\n' + RowTexts::leftOut(characters);
    value.text += note;
    value.origins.insert(value.origins.end(), static_cast<std::size_t>(note.size()), origin);
}

// Of `piece`, the shown stretch of the text, to the same of the whole text.
FieldValue inWhole(FieldValue piece, std::string_view text, const ShownStretch& shown) {
    const auto unitsIn = [](const QString& some) { return static_cast<int>(some.size()); };
    const int end = unitsIn(piece.original);
    if (piece.origins.empty()) {
        piece.origins.resize(static_cast<std::size_t>(end));
        std::iota(piece.origins.begin(), piece.origins.end(), 0);
    }
    const QString head = CellText::whole(text.substr(0, shown.begin));
    for (int& origin : piece.origins) {
        origin += unitsIn(head);
    }
    piece.original = CellText::whole(text);
    if (shown.begin > 0) {
        noteLeftOutBefore(piece, characterCount(text.substr(0, shown.begin)));
    }
    if (shown.end < text.size()) {
        noteLeftOutBehind(piece, characterCount(text.substr(shown.end)), unitsIn(head) + end);
    }
    return piece;
}

// `begin` and `end` are the stretch of the text that differs, in bytes.
FieldValue written(const RowField& field, std::string_view text, std::size_t begin, std::size_t end) {
    FieldValue value;
    value.original = CellText::whole(text);
    value.text = value.original;
    const auto unitsBefore = [&](std::size_t bytes) {
        return static_cast<int>(CellText::whole(text.substr(0, bytes)).size());
    };
    if (field.kind != RowField::Kind::plain && end - begin < text.size()) {
        value.markBegin = unitsBefore(begin);
        value.markEnd = unitsBefore(end);
    }
    if (field.showsSpaces()) {
        showSpaces(value, text);
    } else if (value.original.contains(lineBreakPair)) {
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

// The same of as much as is shown, `place` among it.
FieldValue shownPart(const RowField& field, std::string_view text, std::size_t begin, std::size_t end,
                     std::size_t place) {
    const auto shown = ShownStretch::of(text, place);
    if (shown == ShownStretch{0, text.size()}) {
        return written(field, text, begin, end);
    }
    const std::string_view piece = text.substr(shown.begin, shown.end - shown.begin);
    const std::size_t first = std::clamp(begin, shown.begin, shown.end);
    const std::size_t last = std::clamp(end, shown.begin, shown.end);
    return inWhole(written(field, piece, first - shown.begin, last - shown.begin), text, shown);
}

FieldValue valueOf(const RowField& field, const std::optional<std::string_view>& text, bool isAfter) {
    if (!text || text->empty()) {
        FieldValue value;
        value.text = FieldValue::note(field, text.has_value());
        value.isNote = true;
        return value;
    }
    if (field.kind == RowField::Kind::plain || !field.before || !field.after) {
        return shownPart(field, *text, 0, 0, 0);
    }
    const auto differs = std::ranges::mismatch(*field.before, *field.after).in1 - field.before->begin();
    const auto difference = TextDifference::of(*field.before, *field.after);
    return shownPart(field,
                     *text,
                     difference.begin,
                     isAfter ? difference.afterEnd : difference.beforeEnd,
                     static_cast<std::size_t>(differs));
}

}  // namespace

RowField RowField::of(const DiffResult& result, const GridColumns& columns, std::int64_t row, std::size_t column) {
    const DiffRow diffRow = result.rows[static_cast<std::size_t>(row)];
    const ColumnPair& pair = result.columns[column];
    const RowCells cells(result, diffRow);
    RowField field;
    field.name = columns.name(static_cast<std::int64_t>(column), GridGeometry::CellSide::both);
    field.isKey = columns.isKey(static_cast<std::int64_t>(column));
    if (diffRow.left && pair.left) {
        field.before = cells.before(pair);
    }
    if (diffRow.right && pair.right) {
        field.after = cells.after(pair);
    }
    if (const auto kind = changeIn(diffRow.changes, static_cast<std::int64_t>(column))) {
        field.kind = *kind == ChangeKind::value ? Kind::changed : Kind::formatOnly;
        field.isSpacing = *kind == ChangeKind::whitespace;
    }
    return field;
}

bool RowField::showsSpaces() const {
    return isSpacing || (kind != Kind::plain && before && after && differOnlyInSpaces(*before, *after));
}

QString FieldValue::note(const RowField& field, bool isThere) {
    if (!isThere) {
        return RowTexts::notInThisFile();
    }
    return field.isKey ? RowTexts::blankKey() : RowTexts::emptyCell();
}

FieldValue FieldValue::before(const RowField& field) { return valueOf(field, field.before, false); }

FieldValue FieldValue::after(const RowField& field) { return valueOf(field, field.after, true); }

}  // namespace corvale
