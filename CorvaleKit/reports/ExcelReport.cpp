#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/WorkbookLimits.h"
#include "CorvaleKit/engine/RowCells.h"
#include "CorvaleKit/reports/ReportTexts.h"
#include "CorvaleKit/reports/Reports.h"
#include "CorvaleKit/reports/WorkbookPackage.h"
#include "CorvaleKit/reports/WorksheetPart.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::Reports {

namespace {

using Style = WorksheetPart::Style;
using Side = DuplicateKey::Side;

void numberCell(WorksheetPart& sheet, std::int64_t number, Style style = Style::plain) {
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    sheet.cell({digits.data(), static_cast<std::size_t>(end - digits.data())}, style, true);
}

void textRow(WorksheetPart& sheet, const std::vector<std::string_view>& texts, Style style = Style::plain) {
    sheet.beginRow();
    for (const auto text : texts) {
        sheet.cell(text, style);
    }
    sheet.endRow();
}

// A list that a cell cannot hold ends behind a whole number.
std::string rowNumbersThatFit(const std::vector<std::int64_t>& numbers) {
    std::string all = ReportTexts::rowNumbers(numbers);
    if (!WorksheetPart::fitsCell(all)) {
        constexpr std::string_view separator = ", ";
        const std::size_t room = WorkbookLimits::textLength - Utf8::scalarCount(WorksheetPart::leftOutMark);
        all.resize(all.rfind(separator, room - separator.size()) + separator.size());
        all += WorksheetPart::leftOutMark;
    }
    return all;
}

// Two values as their cells show them: where both starts that would fit are the same, without them, so that the
// difference is seen.
class DifferingValues {
public:
    DifferingValues(std::string_view before, std::string_view after) : m_before(before), m_after(after) {
        constexpr std::size_t shownBehindDifference = 1000;  // in bytes
        constexpr std::size_t shownBeforeDifference = 100;
        if (WorksheetPart::fitsCell(before) && WorksheetPart::fitsCell(after)) {
            return;
        }
        auto start = static_cast<std::size_t>(std::ranges::mismatch(before, after).in1 - before.begin());
        if (start + shownBehindDifference < WorkbookLimits::textLength) {
            return;
        }
        start -= shownBeforeDifference;
        while (start > 0 && Utf8::isContinuation(before[start])) {
            --start;
        }
        for (std::string* const shown : {&m_shownBefore, &m_shownAfter}) {
            *shown = WorksheetPart::leftOutMark;
            *shown += ' ';
        }
        m_before = m_shownBefore += before.substr(start);
        m_after = m_shownAfter += after.substr(start);
    }
    DifferingValues(const DifferingValues&) = delete;
    DifferingValues& operator=(const DifferingValues&) = delete;

    std::string_view before() const { return m_before; }
    std::string_view after() const { return m_after; }

private:
    std::string m_shownBefore;
    std::string m_shownAfter;
    std::string_view m_before;
    std::string_view m_after;
};

Style rowStyle(DiffRow::Status status) {
    switch (status) {
        case DiffRow::Status::added:
            return Style::added;
        case DiffRow::Status::removed:
            return Style::removed;
        case DiffRow::Status::changed:
        case DiffRow::Status::same:
            break;
    }
    return Style::plain;
}

// Of status, key and the two row numbers, before the compared columns.
constexpr std::array columnWidthsBefore = {12.0, 18.0, 10.0, 10.0};

double columnWidth(const ColumnPair& column) {
    constexpr std::size_t margin = 4;
    constexpr std::size_t narrowest = 10;
    constexpr std::size_t widest = 40;
    return static_cast<double>(std::clamp(Text::characterCount(column.name) + margin, narrowest, widest));
}

class ExcelReport {
public:
    ExcelReport(const DiffResult& result, const ReportStrings& strings, bool includeUnchanged)
        : m_result(result), m_strings(strings), m_includeUnchanged(includeUnchanged) {
        forEachListed([this](std::size_t i) {
            ++m_listedRows;
            m_listedChanges += m_result.rows.changes(i).size();
        });
        requireRoom();
    }

    std::string workbook() const {
        WorkbookPackage package({m_strings.summary, m_strings.changes, m_strings.cellChanges});
        package.addSheet(summarySheet());
        package.addSheet(changesSheet());
        package.addSheet(cellChangesSheet());
        return package.finish();
    }

private:
    template <typename Visit>
    void forEachListed(Visit visit) const {
        for (std::size_t i = 0; i < m_result.rows.size(); ++i) {
            if (m_includeUnchanged || m_result.rows.status(i) != DiffRow::Status::same) {
                visit(i);
            }
        }
    }

    void requireRoom() const {
        constexpr std::size_t header = 1;
        if (std::max({summaryRows(), m_listedRows + header, m_listedChanges + header}) > WorkbookLimits::rows) {
            throw Failure("A workbook holds 1,048,576 rows at most. Save the report as an HTML page instead.");
        }
        if (columnWidthsBefore.size() + m_result.columns.size() > WorkbookLimits::columns) {
            throw Failure("A workbook holds 16,384 columns at most. Save the report as an HTML page instead.");
        }
    }

    std::size_t summaryRows() const {
        constexpr std::size_t rowsAlways = 14;
        constexpr std::size_t rowsAboveDuplicates = 2;
        const std::size_t duplicates = m_result.duplicates.size();
        return rowsAlways + (m_result.columnOrderChanged ? 1 : 0) +
               (duplicates == 0 ? 0 : rowsAboveDuplicates + duplicates);
    }
    std::string summarySheet() const;
    void settings(WorksheetPart& sheet) const;
    void counts(WorksheetPart& sheet) const;
    void duplicates(WorksheetPart& sheet) const;

    std::string changesSheet() const;
    void changesHeader(WorksheetPart& sheet) const;
    void changesRow(WorksheetPart& sheet, const DiffRow& row) const;
    void rowNumber(WorksheetPart& sheet, Side side, const DiffRow& row, Style style) const;

    std::string cellChangesSheet() const;
    void cellChange(WorksheetPart& sheet, const DiffRow& row, const CellChange& change) const;

    const DiffResult& m_result;
    const ReportStrings& m_strings;
    bool m_includeUnchanged;
    std::size_t m_listedRows = 0;
    std::size_t m_listedChanges = 0;
};

std::string ExcelReport::summarySheet() const {
    constexpr std::array widths = {44.0, 36.0, 30.0};
    WorksheetPart sheet({summaryRows(), 2, widths});
    settings(sheet);
    textRow(sheet, {});
    counts(sheet);
    if (m_result.columnOrderChanged) {
        textRow(sheet, {m_strings.columnOrderChanged, m_strings.yes});
    }
    if (!m_result.duplicates.empty()) {
        duplicates(sheet);
    }
    return sheet.finish();
}

void ExcelReport::settings(WorksheetPart& sheet) const {
    textRow(sheet, {m_strings.title}, Style::bold);
    textRow(sheet, {m_strings.beforeFile, m_result.before.sourceName()});
    textRow(sheet, {m_strings.afterFile, m_result.after.sourceName()});
    textRow(sheet, {m_strings.matchedBy, ReportTexts::matchDescription(m_result.match, m_strings)});
    textRow(sheet, {m_strings.ignored, ReportTexts::optionsDescription(m_result.options, m_strings)});
}

void ExcelReport::counts(WorksheetPart& sheet) const {
    struct Count {
        const std::string& label;
        Style style;
        std::int64_t count;
    };
    const DiffSummary& summary = m_result.summary;
    const std::array<Count, 8> all = {{{m_strings.rowsAdded, Style::added, summary.added},
                                       {m_strings.rowsRemoved, Style::removed, summary.removed},
                                       {m_strings.rowsChanged, Style::changed, summary.changed},
                                       {m_strings.rowsSame, Style::plain, summary.same},
                                       {m_strings.cellsChanged, Style::plain, summary.changedCells},
                                       {m_strings.typeOnlyCells, Style::typeOnly, summary.typeOnlyCells},
                                       {m_strings.columnsAdded, Style::plain, summary.addedColumns},
                                       {m_strings.columnsRemoved, Style::plain, summary.removedColumns}}};
    for (const auto& [label, style, count] : all) {
        sheet.beginRow();
        sheet.cell(label, style);
        numberCell(sheet, count);
        sheet.endRow();
    }
}

void ExcelReport::duplicates(WorksheetPart& sheet) const {
    textRow(sheet, {});
    textRow(sheet, {m_strings.duplicateKeys, m_strings.key, m_strings.rows}, Style::bold);
    for (const DuplicateKey& duplicate : m_result.duplicates) {
        textRow(sheet,
                {ReportTexts::sideLabel(duplicate.side, m_strings),
                 duplicate.key,
                 rowNumbersThatFit(duplicate.rowNumbers)});
    }
}

std::string ExcelReport::changesSheet() const {
    std::vector<double> widths(columnWidthsBefore.begin(), columnWidthsBefore.end());
    const std::size_t cellsOfRow = widths.size() + m_result.columns.size();
    std::transform(m_result.columns.begin(), m_result.columns.end(), std::back_inserter(widths), columnWidth);
    WorksheetPart sheet({m_listedRows + 1, cellsOfRow, widths, true, true});
    changesHeader(sheet);
    forEachListed([&](std::size_t i) { changesRow(sheet, m_result.rows[i]); });
    return sheet.finish();
}

void ExcelReport::changesHeader(WorksheetPart& sheet) const {
    sheet.beginRow();
    for (const std::string* text : {&m_strings.status, &m_strings.key, &m_strings.rowBefore, &m_strings.rowAfter}) {
        sheet.cell(*text, Style::header);
    }
    for (const ColumnPair& column : m_result.columns) {
        sheet.cell(ReportTexts::columnHeading(column), Style::header);
    }
    sheet.endRow();
}

void ExcelReport::changesRow(WorksheetPart& sheet, const DiffRow& row) const {
    const Style style = rowStyle(row.status);
    const RowCells cells(m_result, row);
    sheet.beginRow();
    sheet.cell(ReportTexts::statusLabel(row.status, m_strings),
               row.status == DiffRow::Status::changed ? Style::changed : style);
    sheet.cell(ReportTexts::keyText(row.key, m_result.match, m_strings), style);
    rowNumber(sheet, Side::before, row, style);
    rowNumber(sheet, Side::after, row, style);
    auto change = row.changes.begin();
    for (std::size_t c = 0; c < m_result.columns.size(); ++c) {
        Style cellStyle = style;
        if (change != row.changes.end() && static_cast<std::size_t>(change->column) == c) {
            cellStyle = change->kind == ChangeKind::value ? Style::changed : Style::typeOnly;
            ++change;
        }
        sheet.cell(cells.shown(m_result.columns[c]), cellStyle, true);
    }
    sheet.endRow();
}

void ExcelReport::rowNumber(WorksheetPart& sheet, Side side, const DiffRow& row, Style style) const {
    if (const auto number = m_result.rowNumber(side, row)) {
        numberCell(sheet, *number, style);
    } else {
        sheet.cell({}, style);
    }
}

std::string ExcelReport::cellChangesSheet() const {
    constexpr std::array widths = {18.0, 20.0, 28.0, 28.0, 22.0};
    WorksheetPart sheet({std::max<std::size_t>(m_listedChanges, 1) + 1, widths.size(), widths, true, true});
    textRow(sheet,
            {m_strings.key, m_strings.column, m_strings.before, m_strings.after, m_strings.difference},
            Style::header);
    if (m_listedChanges == 0) {
        textRow(sheet, {m_strings.noDifferences}, Style::muted);
    }
    forEachListed([&](std::size_t i) {
        for (const CellChange& change : m_result.rows.changes(i)) {
            cellChange(sheet, m_result.rows[i], change);
        }
    });
    return sheet.finish();
}

void ExcelReport::cellChange(WorksheetPart& sheet, const DiffRow& row, const CellChange& change) const {
    const ColumnPair& column = m_result.columns[static_cast<std::size_t>(change.column)];
    const DifferingValues values(m_result.cellBefore(row, column), m_result.cellAfter(row, column));
    sheet.beginRow();
    sheet.cell(ReportTexts::keyText(row.key, m_result.match, m_strings));
    sheet.cell(column.name);
    sheet.cell(values.before(), Style::plain, true);
    sheet.cell(values.after(), Style::plain, true);
    sheet.cell(ReportTexts::kindLabel(change.kind, m_strings),
               change.kind == ChangeKind::value ? Style::plain : Style::typeOnly);
    sheet.endRow();
}

}  // namespace

std::string excelReport(const DiffResult& result, const ReportStrings& strings, bool includeUnchanged) {
    return ExcelReport(result, strings, includeUnchanged).workbook();
}

}  // namespace corvale::Reports
