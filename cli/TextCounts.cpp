#include "cli/TextCounts.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "CorvaleKit/text/Text.h"
#include "cli/DisplayText.h"
#include "cli/TextLine.h"

namespace corvale::Cli {

namespace {

// Of a long list the start tells what to look for.
constexpr std::size_t mostKeys = 10;
constexpr std::size_t mostNumbers = 10;

std::string grouped(std::int64_t number) { return DisplayText::grouped(static_cast<std::size_t>(number)); }

void addCount(TextLine& line, std::int64_t count, std::string_view word, Ink ink) {
    line.add(grouped(count) + " " + std::string(word), count == 0 ? Ink::faint : ink);
}

void appendRowCounts(std::string& target, const DiffSummary& summary, const TextStyle& style) {
    TextLine line(target, style);
    line.add("Rows     ");
    addCount(line, summary.added, "added", Ink::added);
    line.add(", ");
    addCount(line, summary.removed, "removed", Ink::removed);
    line.add(", ");
    addCount(line, summary.changed, "changed", Ink::changed);
    line.add(", ");
    addCount(line, summary.same, "the same", Ink::plain);
    line.end();
}

void appendCellCounts(std::string& target, const DiffSummary& summary, const TextStyle& style) {
    if (summary.changedCells == 0) {
        return;
    }
    TextLine line(target, style);
    line.add("Cells    ");
    addCount(line, summary.changedCells, "changed", Ink::changed);
    if (summary.typeOnlyCells > 0) {
        line.add(summary.typeOnlyCells == summary.changedCells ? ", all" : ", " + grouped(summary.typeOnlyCells));
        line.add(" only in number format, letter case or spaces");
    }
    line.end();
}

void appendColumnCounts(std::string& target, const DiffSummary& summary, const TextStyle& style) {
    if (summary.addedColumns + summary.removedColumns == 0) {
        return;
    }
    TextLine line(target, style);
    line.add("Columns  ");
    addCount(line, summary.addedColumns, "added", Ink::added);
    line.add(", ");
    addCount(line, summary.removedColumns, "removed", Ink::removed);
    line.end();
}

void appendListed(std::string& target, const DiffResult& result, std::size_t listed, const ListChoice& list) {
    if (list == ListChoice{}) {
        return;
    }
    target += "Listed   " + DisplayText::grouped(listed) + " of " +
              DisplayText::counted(result.rows.size(), "row", "rows") + "\n";
}

// "3, 9, 12 and 4 more".
std::string numberList(const std::vector<std::int64_t>& numbers) {
    const std::size_t shown = std::min(numbers.size(), mostNumbers);
    std::string list;
    for (std::size_t i = 0; i < shown; ++i) {
        list += (i == 0 ? "" : ", ") + std::to_string(numbers[i]);
    }
    return numbers.size() == shown ? list : list + " and " + DisplayText::grouped(numbers.size() - shown) + " more";
}

std::string rowList(std::string_view side, const std::vector<std::int64_t>& numbers) {
    return std::string(side) + (numbers.size() == 1 ? " row " : " rows ") + numberList(numbers);
}

std::string_view sideName(DuplicateKey::Side side) { return side == DuplicateKey::Side::before ? "Before" : "After"; }

// What a list of rows gets of a line that it shares with a key.
std::size_t roomForRows(std::string_view rows, std::size_t room) {
    // The side and the first numbers.
    constexpr std::size_t least = 20;
    return std::min(Text::displayWidth(rows), std::max(room / 2, least));
}

void appendDuplicates(std::string& target, const std::vector<DuplicateKey>& duplicates, const TextStyle& style) {
    if (duplicates.empty()) {
        return;
    }
    target += "\nRepeated keys, paired in order:\n";
    const std::size_t shown = std::min(duplicates.size(), mostKeys);
    for (std::size_t i = 0; i < shown; ++i) {
        TextLine line(target, style);
        line.add("    ");
        const std::string rows = "  " + rowList(sideName(duplicates[i].side), duplicates[i].rowNumbers);
        line.addKey(DisplayText::printable(duplicates[i].key), roomForRows(rows, line.room()), Ink::strong);
        line.addFitting(rows);
        line.end();
    }
    if (shown < duplicates.size()) {
        target += "    and " + DisplayText::grouped(duplicates.size() - shown) + " more\n";
    }
}

void appendBlankKeys(std::string& target, const BlankKeys& blankKeys, const TextStyle& style) {
    if (blankKeys.before.empty() && blankKeys.after.empty()) {
        return;
    }
    target += "\nRows without a key, never paired:\n";
    for (const auto& [side, numbers] : {std::pair{"Before", &blankKeys.before}, std::pair{"After", &blankKeys.after}}) {
        if (!numbers->empty()) {
            TextLine line(target, style);
            line.add("    ");
            line.addFitting(rowList(side, *numbers));
            line.end();
        }
    }
}

}  // namespace

void appendCounts(std::string& target, const DiffResult& result, std::size_t listed, const TextReportContext& context) {
    if (!result.summary.hasDifferences()) {
        TextLine line(target, context.style);
        line.add("No differences", Ink::strong);
        line.add(": " + DisplayText::counted(static_cast<std::size_t>(result.summary.same), "row is", "rows are") +
                 " the same.");
        line.end();
    } else {
        appendRowCounts(target, result.summary, context.style);
        appendCellCounts(target, result.summary, context.style);
        appendColumnCounts(target, result.summary, context.style);
    }
    appendListed(target, result, listed, context.list);
    appendDuplicates(target, result.duplicates, context.style);
    appendBlankKeys(target, result.blankKeys, context.style);
}

}  // namespace corvale::Cli
