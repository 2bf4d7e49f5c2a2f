#include "cli/RowBlocks.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "CorvaleKit/engine/DisplayKey.h"
#include "CorvaleKit/engine/KeyMatching.h"
#include "CorvaleKit/text/Text.h"
#include "cli/ChangeLine.h"
#include "cli/ContentLines.h"
#include "cli/DisplayText.h"

namespace corvale::Cli {

namespace {

// Old values no wider than this line their arrows up; one long value would push all of them away.
constexpr std::size_t widestAligned = 24;
// Names no wider than this line their values up.
constexpr std::size_t widestName = 32;

struct Mark {
    std::string_view sign;
    Ink ink = Ink::plain;
};

Mark markOf(DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return {"+", Ink::added};
        case DiffRow::Status::removed:
            return {"-", Ink::removed};
        case DiffRow::Status::changed:
            return {"~", Ink::changed};
        case DiffRow::Status::same:
            return {"=", Ink::faint};
    }
    return {"?", Ink::plain};
}

// The widest name of a column with changes, within what leaves room for the values.
std::size_t nameWidth(const DiffResult& result, const std::vector<std::string>& names, const TextStyle& style) {
    const std::size_t most =
        style.width ? std::min(widestName, std::max<std::size_t>(*style.width / 3, 8)) : widestName;
    std::size_t width = 0;
    for (const auto& [column, count] : result.summary.changesByColumn) {
        width = std::max(width, Text::displayWidth(names[static_cast<std::size_t>(column)]));
    }
    return std::min(width, most);
}

}  // namespace

RowBlocks::RowBlocks(const DiffResult& result, const TextStyle& style)
    : m_result(result), m_style(style), m_isKeyColumn(KeyMatching::areKeyColumns(result)) {
    m_beforeColumns.resize(result.before.headers().size());
    m_afterColumns.resize(result.after.headers().size());
    for (std::size_t i = 0; i < result.columns.size(); ++i) {
        const ColumnPair& column = result.columns[i];
        m_names.push_back(DisplayText::printable(column.name));
        if (column.left) {
            m_beforeColumns[static_cast<std::size_t>(*column.left)] = i;
        }
        if (column.right) {
            m_afterColumns[static_cast<std::size_t>(*column.right)] = i;
        }
    }
    m_nameWidth = nameWidth(result, m_names, style);
}

void RowBlocks::append(std::string& target, const DiffRow& row) const {
    appendTitle(target, row);
    switch (row.status) {
        case DiffRow::Status::changed:
            appendChanges(target, row);
            break;
        case DiffRow::Status::added:
        case DiffRow::Status::removed:
            appendContent(target, row);
            break;
        case DiffRow::Status::same:
            break;
    }
}

std::string RowBlocks::keyText(std::string_view key) const {
    return DisplayKey::isBlank(key, m_result.match.columns().size()) ? "(no key)" : DisplayText::printable(key);
}

std::string RowBlocks::rowLabel(const DiffRow& row) const {
    const auto before = m_result.rowNumber(DuplicateKey::Side::before, row);
    const auto after = m_result.rowNumber(DuplicateKey::Side::after, row);
    if (before && after && *before != *after) {
        return "row " + std::to_string(*before) + " → " + std::to_string(*after);
    }
    return "row " + std::to_string(m_result.rowNumber(row));
}

void RowBlocks::appendTitle(std::string& target, const DiffRow& row) const {
    const Mark mark = markOf(row.status);
    const std::string label = rowLabel(row);
    TextLine line(target, m_style);
    line.add(mark.sign, mark.ink);
    line.add(" ");
    // By row order the key is the row number, which the label tells.
    if (m_result.match.isKey()) {
        line.addKey(keyText(row.key),
                    Text::displayWidth(label) + 2,
                    row.status == DiffRow::Status::same ? Ink::faint : Ink::strong);
        line.add("  ");
    }
    line.add(label, Ink::faint);
    line.end();
}

void RowBlocks::appendChanges(std::string& target, const DiffRow& row) const {
    std::vector<ShownChange> shown;
    std::size_t beforeWidth = 0;
    for (const CellChange& change : row.changes) {
        const ColumnPair& column = m_result.columns[static_cast<std::size_t>(change.column)];
        shown.emplace_back(m_result.cellBefore(row, column), m_result.cellAfter(row, column), change.kind);
        const std::size_t width = Text::displayWidth(shown.back().before);
        beforeWidth = width <= widestAligned ? std::max(beforeWidth, width) : beforeWidth;
    }
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const std::string& name = m_names[static_cast<std::size_t>(row.changes[i].column)];
        TextLine line(target, m_style);
        line.add(blockIndent);
        line.add(m_style.width ? DisplayText::shortened(name, m_nameWidth) : name);
        line.add(":", Ink::faint);
        line.padTo(blockIndent.size() + m_nameWidth + 2);
        addChange(line, shown[i], beforeWidth);
        line.end();
    }
}

void RowBlocks::appendContent(std::string& target, const DiffRow& row) const {
    const bool isAdded = row.status == DiffRow::Status::added;
    const CellRow cells = isAdded ? m_result.after.rows()[static_cast<std::size_t>(*row.right)]
                                  : m_result.before.rows()[static_cast<std::size_t>(*row.left)];
    const std::vector<std::size_t>& resultColumns = isAdded ? m_afterColumns : m_beforeColumns;
    std::vector<std::pair<std::size_t, std::string_view>> shown;
    cells.forEachStored([&](std::size_t column, std::string_view cell) {
        if (!cell.empty() && !m_isKeyColumn[resultColumns[column]]) {
            shown.emplace_back(resultColumns[column], cell);
        }
    });
    std::sort(shown.begin(), shown.end());
    ContentLines lines(target, m_style, markOf(row.status).ink);
    for (const auto& [column, cell] : shown) {
        if (!lines.add(m_names[column], DisplayText::printable(cell))) {
            break;
        }
    }
    lines.end();
}

}  // namespace corvale::Cli
