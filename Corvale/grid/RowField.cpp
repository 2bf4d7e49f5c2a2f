#include "Corvale/grid/RowField.h"

#include "Corvale/grid/CellText.h"
#include "Corvale/grid/GridRow.h"
#include "Corvale/grid/RowTexts.h"
#include "Corvale/grid/TextDifference.h"
#include "Corvale/grid/VisibleSpaces.h"

namespace corvale {

namespace {

std::optional<ChangeKind> changeIn(const DiffRow& row, std::size_t column) {
    for (const CellChange& change : row.changes) {
        if (static_cast<std::size_t>(change.column) == column) {
            return change.kind;
        }
    }
    return std::nullopt;
}

FieldValue note(const QString& text) {
    FieldValue value;
    value.text = text;
    value.isNote = true;
    return value;
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
        VisibleSpaces spaces = VisibleSpaces::of(text);
        const auto shownAt = [&spaces](int unit) {
            return static_cast<int>(std::ranges::lower_bound(spaces.origins, unit) - spaces.origins.begin());
        };
        value.markBegin = shownAt(value.markBegin);
        value.markEnd = shownAt(value.markEnd);
        value.text = spaces.text;
        value.origins = std::move(spaces.origins);
    }
    return value;
}

FieldValue valueOf(const RowField& field, const std::optional<std::string_view>& text, bool isAfter) {
    if (!text) {
        return note(RowTexts::notInThisFile());
    }
    if (text->empty()) {
        return note(field.isKey ? RowTexts::blankKey() : RowTexts::emptyCell());
    }
    if (field.kind == RowField::Kind::plain || !field.before || !field.after) {
        return written(field, *text, 0, 0);
    }
    const auto difference = TextDifference::of(*field.before, *field.after);
    return written(field, *text, difference.begin, isAfter ? difference.afterEnd : difference.beforeEnd);
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
    if (const auto kind = changeIn(diffRow, column)) {
        field.kind = *kind == ChangeKind::value ? Kind::changed : Kind::formatOnly;
        field.isSpacing = *kind == ChangeKind::whitespace;
    }
    return field;
}

bool RowField::showsSpaces() const {
    return isSpacing || (kind != Kind::plain && before && after && differOnlyInSpaces(*before, *after));
}

FieldValue FieldValue::before(const RowField& field) { return valueOf(field, field.before, false); }

FieldValue FieldValue::after(const RowField& field) { return valueOf(field, field.after, true); }

}  // namespace corvale
