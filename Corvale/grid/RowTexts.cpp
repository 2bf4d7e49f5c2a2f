#include "Corvale/grid/RowTexts.h"

#include <QStringList>
#include <algorithm>
#include <span>
#include <string_view>

#include "Corvale/grid/CellText.h"

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

QString valueInSummary(std::string_view text) {
    return text.empty() ? RowTexts::emptyCell() : CellText::shortened(text, longestInSummary);
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

QString RowTexts::title(const DiffResult& result, const DiffRow& row) {
    if (!result.match.isKey()) {
        return tr("Row %1").arg(result.rowNumber(row));
    }
    return row.key.empty() ? tr("(blank key)") : CellText::whole(row.key);
}

QString RowTexts::summary(const DiffResult& result, const DiffRow& row) {
    const RowCells cells(result, row);
    QStringList parts;
    for (const CellChange& change : row.changes.first(std::min(listedChanges, row.changes.size()))) {
        const ColumnPair& column = result.columns[static_cast<std::size_t>(change.column)];
        parts += tr("%1: %2 to %3", "a changed cell: column, old value, new value")
                     .arg(CellText::shortened(column.name, longestInSummary),
                          valueInSummary(cells.before(column)),
                          valueInSummary(cells.after(column)));
    }
    if (row.changes.size() > listedChanges) {
        const auto others = row.changes.size() - listedChanges;
        parts += others == 1 ? tr("and 1 more change") : tr("and %1 more changes").arg(others);
    }
    return parts.join(tr(", "));
}

QString RowTexts::spoken(const DiffResult& result, const DiffRow& row) {
    QStringList parts{statusWord(row.status),
                      labelledNumber(result, row, Side::before),
                      labelledNumber(result, row, Side::after),
                      CellText::shortened(title(result, row).toStdString(), longestInSummary)};
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

QString RowTexts::emptyCell() { return tr("(empty)"); }

QString RowTexts::notInThisFile() { return tr("(not in this file)"); }

QString RowTexts::sideName(Side side) { return side == Side::before ? tr("Before") : tr("After"); }

}  // namespace corvale
