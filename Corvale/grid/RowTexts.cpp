#include "Corvale/grid/RowTexts.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <string_view>

#include "Corvale/grid/CellText.h"
#include "CorvaleKit/engine/DisplayKey.h"
#include "CorvaleKit/engine/RowCells.h"

namespace corvale {

namespace {

using Side = DuplicateKey::Side;

constexpr std::size_t listedChanges = 3;
constexpr std::size_t longestInSummary = 60;

QString quotedForClipboard(std::string_view cell) {
    QString text = CellText::whole(cell);
    if (std::none_of(
            text.begin(), text.end(), [](QChar c) { return c == u'\t' || c == u'\n' || c == u'\r' || c == u'"'; })) {
        return text;
    }
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

// One change alone is as short as a note that counts it.
std::size_t changesListed(std::size_t changes) { return changes == listedChanges + 1 ? changes : listedChanges; }

bool setsDirection(QChar character) {
    switch (character.direction()) {
        case QChar::DirR:
        case QChar::DirAL:
        case QChar::DirRLE:
        case QChar::DirRLO:
        case QChar::DirLRE:
        case QChar::DirLRO:
            return true;
        default:
            return false;
    }
}

// A text in a sentence, whose words keep their order whatever the text's own is (UAX #9, isolates).
QString isolated(const QString& text) {
    constexpr QChar firstStrongIsolate(0x2068);
    constexpr QChar popDirectionalIsolate(0x2069);
    return std::any_of(text.begin(), text.end(), setsDirection) ? firstStrongIsolate + text + popDirectionalIsolate
                                                                : text;
}

QString valueInSummary(std::string_view text) {
    return text.empty() ? RowTexts::emptyCell() : isolated(CellText::shortened(text, longestInSummary));
}

}  // namespace

QString RowTexts::statusWord(DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return tr("Added");
        case DiffRow::Status::removed:
            return tr("Removed");
        case DiffRow::Status::changed:
            return tr("Changed");
        case DiffRow::Status::same:
            break;
    }
    return tr("Unchanged");
}

QString RowTexts::statusSymbol(DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return QStringLiteral("plus.circle.fill");
        case DiffRow::Status::removed:
            return QStringLiteral("minus.circle.fill");
        case DiffRow::Status::changed:
            return QStringLiteral("pencil.circle.fill");
        case DiffRow::Status::same:
            break;
    }
    return QStringLiteral("equal.circle");
}

QString RowTexts::number(const DiffResult& result, const DiffRow& row, Side side) {
    const auto number = result.rowNumber(side, row);
    return number ? QString::number(*number) : QStringLiteral("–");
}

QString RowTexts::labelledNumber(const DiffResult& result, const DiffRow& row, Side side) {
    return (side == Side::before ? tr("Before: ") : tr("After: ")) + number(result, row, side);
}

QString RowTexts::labelledNumbers(const DiffResult& result, const DiffRow& row) {
    return labelledNumber(result, row, Side::before) + tr(", ") + labelledNumber(result, row, Side::after);
}

QString RowTexts::title(const DiffResult& result, const DiffRow& row, std::size_t endCharacters) {
    if (!result.match.isKey()) {
        return tr("Row %1").arg(result.rowNumber(row));
    }
    return DisplayKey::isBlank(row.key, result.match.columns().size()) ? blankKey()
                                                                       : CellText::ends(row.key, endCharacters);
}

QString RowTexts::summary(const DiffResult& result, const DiffRow& row) {
    const RowCells cells(result, row);
    QStringList parts;
    const std::size_t listed = std::min(changesListed(row.changes.size()), row.changes.size());
    for (const CellChange& change : row.changes.first(listed)) {
        const ColumnPair& column = result.columns[static_cast<std::size_t>(change.column)];
        parts += tr("%1: %2 to %3", "a changed cell: column, old value, new value")
                     .arg(isolated(CellText::shortened(column.name, longestInSummary)),
                          valueInSummary(cells.before(column)),
                          valueInSummary(cells.after(column)));
    }
    if (row.changes.size() > listed) {
        parts += tr("and %1 more changes").arg(row.changes.size() - listed);
    }
    return parts.join(tr(", "));
}

QString RowTexts::spoken(const DiffResult& result, const DiffRow& row) {
    QStringList parts{statusWord(row.status), labelledNumbers(result, row), title(result, row, longestInSummary / 2)};
    if (!row.changes.empty()) {
        parts += summary(result, row);
    }
    return parts.join(tr(", "));
}

QString RowTexts::copied(const DiffResult& result, const DiffRow& row) {
    const RowCells cells(result, row);
    QStringList lines;
    for (const Side side : {Side::before, Side::after}) {
        if (!result.rowNumber(side, row)) {
            continue;
        }
        QStringList fields{sideName(side), number(result, row, side)};
        for (const ColumnPair& column : result.columns) {
            fields += quotedForClipboard(side == Side::before ? cells.before(column) : cells.after(column));
        }
        lines += fields.join(u'\t');
    }
    return lines.join(u'\n');
}

QString RowTexts::cell(const GridCell& cell, qsizetype longestValue) {
    const auto cut = [longestValue](std::string_view text) { return CellText::cut(text, longestValue); };
    switch (cell.kind) {
        case GridCell::Kind::missing:
            return notInThisFile();
        case GridCell::Kind::plain:
            return cut(cell.text);
        case GridCell::Kind::changed:
        case GridCell::Kind::formatOnly:
            break;
    }
    const auto shown = [&cut](std::string_view text) { return text.empty() ? emptyCell() : cut(text); };
    switch (cell.side) {
        case GridGeometry::CellSide::before:
            return shown(cell.before);
        case GridGeometry::CellSide::after:
            return shown(cell.after);
        case GridGeometry::CellSide::both:
            break;
    }
    return tr("%1 to %2", "old and new value of a cell").arg(shown(cell.before), shown(cell.after));
}

QString RowTexts::heading(const DiffResult& result, const DiffRow& row, Side side) {
    const auto number = result.rowNumber(side, row);
    if (!number) {
        return (side == Side::before ? tr("Before: ") : tr("After: ")) + notInThisFile();
    }
    return (side == Side::before ? tr("Before: row ") : tr("After: row ")) + QString::number(*number);
}

QString RowTexts::blankKey() { return tr("(blank key)"); }

QString RowTexts::emptyCell() { return tr("(empty)"); }

QString RowTexts::notInThisFile() { return tr("(not in this file)"); }

QString RowTexts::leftOut(std::size_t characters) {
    return tr("[%1 characters left out]").arg(QLocale().toString(static_cast<qulonglong>(characters)));
}

QString RowTexts::sideName(Side side) { return side == Side::before ? tr("Before") : tr("After"); }

}  // namespace corvale
