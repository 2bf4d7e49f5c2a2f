#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/engine/RowCells.h"
#include "CorvaleKit/reports/Markup.h"
#include "CorvaleKit/reports/ReportTexts.h"
#include "CorvaleKit/reports/Reports.h"

namespace corvale::Reports {

namespace {

constexpr std::size_t shownDuplicates = 50;
// Rows that differ are far apart in large tables, and fetching a cell takes longer than writing a few rows.
constexpr std::size_t rowsAhead = 4;
// The fixed pieces of a page; what the rows take is anybody's guess.
constexpr std::size_t firstReserve = 1632;

// Chips and rows share the colours of the status; print and mail clients need nothing beyond this block.
constexpr std::string_view styleBlock =
    "</title>\n<style>"
    "body{font:14px -apple-system,BlinkMacSystemFont,\"Segoe UI\",Helvetica,Arial,sans-serif;"
    "color:#1d1d1f;margin:24px;background:#fff}\n"
    "h1{font-size:22px;margin:0 0 4px}\n"
    ".files{color:#555;margin:0 0 16px}\n"
    ".chips{display:flex;flex-wrap:wrap;gap:8px;margin:12px 0 18px}\n"
    ".chip{border-radius:8px;padding:8px 12px;background:#f2f2f4}.chip b{display:block;font-size:20px}\n"
    ".a{background:#d8f0d2}.r{background:#f8d7d5}.c{background:#ffe9a8}.t{background:#dce9f7}\n"
    "table{border-collapse:collapse;font-size:13px}\n"
    "th,td{border:1px solid #ddd;padding:4px 8px;text-align:left;vertical-align:top}"
    "th{background:#e7e6e6;position:sticky;top:0}td.n{color:#777;text-align:right}\n"
    "del{color:#a1261c;text-decoration:line-through}ins{color:#1d6b2a;text-decoration:none;font-weight:600}\n"
    ".meta{color:#555;font-size:13px}.note{color:#777;font-size:12px;margin-top:18px}\n"
    "@media (prefers-color-scheme:dark){body{background:#1e1e1e;color:#eee}.chip{background:#333}"
    "th{background:#3a3a3a}th,td{border-color:#444}\n"
    ".a{background:#24452a}.r{background:#4d2522}.c{background:#4d4116}.t{background:#1f3550}\n"
    "del{color:#ff8a80}ins{color:#8be28f}.files,.meta{color:#bbb}}"
    "</style></head><body>\n<h1>";
static_assert(styleBlock.size() == 1167);

// Collects the page; what is not a literal goes through text(). A page is made of very short pieces, so they are put
// together in a block first, and the long string is appended to once a block.
class Page {
public:
    Page() { m_html.reserve(firstReserve); }

    Page& literal(std::string_view html) {
        if (html.size() > m_block.size() - m_used) {
            flush();
        }
        if (html.size() > m_block.size()) {
            m_html += html;
            return *this;
        }
        m_used += html.copy(m_block.data() + m_used, html.size());
        return *this;
    }
    Page& text(std::string_view value) {
        std::size_t begin = 0;
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (Markup::isSpecial(value[i])) {
                literal(value.substr(begin, i - begin)).literal(Markup::escape(value[i]));
                begin = i + 1;
            }
        }
        return literal(value.substr(begin));
    }
    Page& number(std::int64_t value) { return literal(std::to_string(value)); }

    std::string take() {
        flush();
        return std::move(m_html);
    }

private:
    void flush() {
        m_html.append(m_block.data(), m_used);
        m_used = 0;
    }

    std::string m_html;
    std::array<char, 4096> m_block;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled before it is read
    std::size_t m_used = 0;
};

class HtmlReport {
public:
    HtmlReport(const DiffResult& result, const ReportStrings& strings) : m_result(result), m_strings(strings) {}

    std::string page(std::string_view lang) {
        head(lang);
        files();
        chips();
        settings();
        if (!m_result.duplicates.empty()) {
            duplicates();
        }
        if (m_result.summary.added + m_result.summary.removed + m_result.summary.changed > 0) {
            table();
        } else {
            m_page.literal("<p class=\"meta\">").text(m_strings.noDifferences).literal("</p>\n");
        }
        m_page.literal("<p class=\"note\">").text(m_strings.generated).literal("</p>\n</body></html>\n");
        return m_page.take();
    }

private:
    void head(std::string_view lang);
    void files();
    void chips();
    void settings();
    void countIfAny(const std::string& label, std::int64_t count);
    void duplicates();
    void table();
    std::vector<std::size_t> differingRows() const;
    void prefetch(const DiffRow& row) const;
    void headerCell(const ColumnPair& column);
    void row(const DiffRow& row);
    void changedCell(const RowCells& cells, const CellChange& change);

    const DiffResult& m_result;
    const ReportStrings& m_strings;
    Page m_page;
};

void HtmlReport::head(std::string_view lang) {
    m_page.literal("<!doctype html>\n<html lang=\"")
        .text(lang)
        .literal("\"><head><meta charset=\"utf-8\">")
        .literal("<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>")
        .text(m_strings.title)
        .literal(": ")
        .text(m_result.before.sourceName())
        .literal(" → ")
        .text(m_result.after.sourceName())
        .literal(styleBlock)
        .text(m_strings.title);
}

void HtmlReport::files() {
    m_page.literal("</h1>\n<p class=\"files\">")
        .text(m_strings.before)
        .literal(": <b>")
        .text(m_result.before.sourceName())
        .literal("</b> · ")
        .text(m_strings.after)
        .literal(": <b>")
        .text(m_result.after.sourceName())
        .literal("</b></p>\n");
}

void HtmlReport::chips() {
    struct Chip {
        std::string_view className;
        const std::string& label;
        std::int64_t count;
    };
    const DiffSummary& summary = m_result.summary;
    const std::array<Chip, 5> all = {{{"chip a", m_strings.rowsAdded, summary.added},
                                      {"chip r", m_strings.rowsRemoved, summary.removed},
                                      {"chip c", m_strings.rowsChanged, summary.changed},
                                      {"chip", m_strings.cellsChanged, summary.changedCells},
                                      {"chip", m_strings.rowsSame, summary.same}}};
    m_page.literal("<div class=\"chips\">\n");
    for (const auto& [className, label, count] : all) {
        m_page.literal("<div class=\"").literal(className).literal("\">");
        m_page.text(label).literal("<b>").number(count).literal("</b></div>\n");
    }
    m_page.literal("</div>\n");
}

void HtmlReport::settings() {
    m_page.literal("<p class=\"meta\">")
        .text(m_strings.matchedBy)
        .literal(": ")
        .text(ReportTexts::matchDescription(m_result.match, m_strings))
        .literal(" · ")
        .text(m_strings.ignored)
        .literal(": ")
        .text(ReportTexts::optionsDescription(m_result.options, m_strings));
    countIfAny(m_strings.columnsAdded, m_result.summary.addedColumns);
    countIfAny(m_strings.columnsRemoved, m_result.summary.removedColumns);
    countIfAny(m_strings.typeOnlyCells, m_result.summary.typeOnlyCells);
    m_page.literal("</p>\n");
}

void HtmlReport::countIfAny(const std::string& label, std::int64_t count) {
    if (count > 0) {
        m_page.literal(" · ").text(label).literal(": ").number(count);
    }
}

void HtmlReport::duplicates() {
    m_page.literal("<p class=\"meta\"><b>").text(m_strings.duplicateKeys).literal(":</b> ");
    const std::size_t count = m_result.duplicates.size();
    for (std::size_t i = 0; i < count && i < shownDuplicates; ++i) {
        const DuplicateKey& duplicate = m_result.duplicates[i];
        m_page.literal(i > 0 ? "; " : "")
            .text(ReportTexts::keyText(duplicate.key, m_result.match, m_strings))
            .literal(" (")
            .text(ReportTexts::sideLabel(duplicate.side, m_strings))
            .literal(" · ")
            .text(m_strings.rows)
            .literal(" ")
            .literal(ReportTexts::rowNumbers(duplicate.rowNumbers))
            .literal(")");
    }
    m_page.literal(count > shownDuplicates ? "; …</p>\n" : "</p>\n");
}

void HtmlReport::table() {
    m_page.literal("<table><thead><tr><th>").text(m_strings.status).literal("</th><th>");
    m_page.text(m_strings.key).literal("</th>");
    for (const ColumnPair& column : m_result.columns) {
        headerCell(column);
    }
    m_page.literal("</tr></thead><tbody>\n");
    const std::vector<std::size_t> rows = differingRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i + rowsAhead < rows.size()) {
            prefetch(m_result.rows[rows[i + rowsAhead]]);
        }
        row(m_result.rows[rows[i]]);
    }
    m_page.literal("</tbody></table>\n");
}

std::vector<std::size_t> HtmlReport::differingRows() const {
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < m_result.rows.size(); ++i) {
        if (m_result.rows.status(i) != DiffRow::Status::same) {
            rows.push_back(i);
        }
    }
    return rows;
}

void HtmlReport::prefetch(const DiffRow& row) const {
    if (!m_result.columns.empty()) {
        const RowCells cells(m_result, row);
        Memory::prefetch(cells.before(m_result.columns.front()).data());
        Memory::prefetch(cells.after(m_result.columns.front()).data());
    }
}

void HtmlReport::headerCell(const ColumnPair& column) {
    m_page.literal(!column.left ? "<th class=\"a\">" : !column.right ? "<th class=\"r\">" : "<th>");
    m_page.text(ReportTexts::columnHeading(column)).literal("</th>");
}

void HtmlReport::row(const DiffRow& row) {
    using Status = DiffRow::Status;
    m_page.literal(row.status == Status::added     ? "<tr class=\"a\"><td>"
                   : row.status == Status::removed ? "<tr class=\"r\"><td>"
                                                   : "<tr><td>");
    m_page.text(ReportTexts::statusLabel(row.status, m_strings)).literal("</td><td>");
    m_page.text(ReportTexts::keyText(row.key, m_result.match, m_strings)).literal("</td>");
    const RowCells cells(m_result, row);
    auto change = row.changes.begin();
    for (std::size_t c = 0; c < m_result.columns.size(); ++c) {
        if (change != row.changes.end() && static_cast<std::size_t>(change->column) == c) {
            changedCell(cells, *change++);
        } else {
            m_page.literal("<td>").text(cells.shown(m_result.columns[c])).literal("</td>");
        }
    }
    m_page.literal("</tr>\n");
}

void HtmlReport::changedCell(const RowCells& cells, const CellChange& change) {
    const ColumnPair& column = m_result.columns[static_cast<std::size_t>(change.column)];
    m_page.literal(change.kind == ChangeKind::value ? "<td class=\"c\" title=\"" : "<td class=\"t\" title=\"")
        .text(ReportTexts::kindLabel(change.kind, m_strings))
        .literal("\"><del>")
        .text(cells.before(column))
        .literal("</del> <ins>")
        .text(cells.after(column))
        .literal("</ins></td>");
}

}  // namespace

std::string htmlReport(const DiffResult& result, const ReportStrings& strings, std::string_view lang) {
    return HtmlReport(result, strings).page(lang);
}

}  // namespace corvale::Reports
