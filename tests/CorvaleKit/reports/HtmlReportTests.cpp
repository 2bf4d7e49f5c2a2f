#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/reports/Reports.h"
#include "CorvaleKit/reports/SampleData.h"
#include "tests/support/Tables.h"

namespace corvale::Reports {
namespace {

using Tables::table;

std::string page(const DataTable& before, const DataTable& after, const DiffOptions& options = {},
                 const RowMatch& match = RowMatch::key({"ID"})) {
    const DiffResult result = DiffEngine::compare(before, after, match, options, NumberStyle::dotDecimal);
    return htmlReport(result, ReportStrings(), "en");
}

std::string page(std::string_view before, std::string_view after, const DiffOptions& options = {},
                 const RowMatch& match = RowMatch::key({"ID"})) {
    return page(table(before, "old.csv"), table(after, "new.csv"), options, match);
}

bool contains(const std::string& html, std::string_view piece) { return html.find(piece) != std::string::npos; }

std::size_t count(const std::string& html, std::string_view piece) {
    std::size_t found = 0;
    for (std::size_t at = html.find(piece); at != std::string::npos; at = html.find(piece, at + piece.size())) {
        ++found;
    }
    return found;
}

// What stands from one piece to the next one, both left out.
std::string between(const std::string& html, std::string_view start, std::string_view end) {
    const std::size_t from = html.find(start);
    if (from == std::string::npos) {
        return "no " + std::string(start);
    }
    const std::size_t first = from + start.size();
    return html.substr(first, html.find(end, first) - first);
}

std::string meta(const std::string& html) { return between(html, "<p class=\"meta\">", "</p>"); }
std::string body(const std::string& html) { return between(html, "<tbody>\n", "</tbody>"); }

// A page is put together in blocks of 4096 bytes.
TEST(HtmlReport, TextsOfAnyLengthComeWhole) {
    std::vector<std::size_t> lengths(11);
    std::iota(lengths.begin(), lengths.end(), 4'090);
    lengths.push_back(10'000);
    for (const std::size_t length : lengths) {
        const std::string inner(length - 2, 'x');
        const DataTable before({"ID", "Note"}, {}, "old.csv");
        const DataTable after({"ID", "Note"}, {{"1", "&" + inner + "&"}}, "new.csv");
        EXPECT_EQ(body(page(before, after)),
                  "<tr class=\"a\"><td>Added</td><td>1</td><td>1</td><td>&amp;" + inner + "&amp;</td></tr>\n")
            << length;
    }
}

TEST(HtmlReport, APageInWhole) {
    const std::string html =
        page("ID,Name,Price\n1,Pen,2\n2,Cup,3\n4,Bag,5\n", "ID,Name,Price\n1,Pen,9\n4,bag,5\n3,Hat,8\n");
    EXPECT_EQ(between(html, "", "</title>"),
              "<!doctype html>\n"
              "<html lang=\"en\"><head><meta charset=\"utf-8\">"
              "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
              "<title>Corvale report: old.csv → new.csv");
    const std::size_t style = html.find("</title>");
    constexpr std::size_t styleSize = 1167;
    ASSERT_LT(style + styleSize, html.size());
    EXPECT_TRUE(html.substr(style, styleSize).starts_with("</title>\n<style>body{font:14px -apple-system,"));
    EXPECT_EQ(
        html.substr(style + styleSize),
        "Corvale report</h1>\n"
        "<p class=\"files\">Before: <b>old.csv</b> · After: <b>new.csv</b></p>\n"
        "<div class=\"chips\">\n"
        "<div class=\"chip a\">Rows added<b>1</b></div>\n"
        "<div class=\"chip r\">Rows removed<b>1</b></div>\n"
        "<div class=\"chip c\">Rows changed<b>2</b></div>\n"
        "<div class=\"chip\">Cells changed<b>2</b></div>\n"
        "<div class=\"chip\">Rows unchanged<b>0</b></div>\n"
        "</div>\n"
        "<p class=\"meta\">Rows matched by: ID · Ignored: extra spaces, column order"
        " · Cells that differ only in number format, case or spacing: 1</p>\n"
        "<table><thead><tr><th>Status</th><th>Key</th><th>ID</th><th>Name</th><th>Price</th></tr></thead><tbody>\n"
        "<tr><td>Changed</td><td>1</td><td>1</td><td>Pen</td>"
        "<td class=\"c\" title=\"Value\"><del>2</del> <ins>9</ins></td></tr>\n"
        "<tr class=\"r\"><td>Removed</td><td>2</td><td>2</td><td>Cup</td><td>3</td></tr>\n"
        "<tr><td>Changed</td><td>4</td><td>4</td>"
        "<td class=\"t\" title=\"Letter case only\"><del>Bag</del> <ins>bag</ins></td><td>5</td></tr>\n"
        "<tr class=\"a\"><td>Added</td><td>3</td><td>3</td><td>Hat</td><td>8</td></tr>\n"
        "</tbody></table>\n"
        "<p class=\"note\">Made with Corvale on this Mac. Nothing was uploaded.</p>\n"
        "</body></html>\n");
}

TEST(HtmlReport, TheStyleBlockHasTheRulesOfBothColourSchemes) {
    const std::string html = page("ID\n1\n", "ID\n1\n");
    const std::string style = between(html, "<style>", "</style>");
    const std::string light = style.substr(0, style.find("@media (prefers-color-scheme:dark){"));
    const std::string dark = style.substr(light.size());
    for (const std::string_view rule : {"color:#1d1d1f;margin:24px;background:#fff}",
                                        "h1{font-size:22px;margin:0 0 4px}",
                                        ".files{color:#555;margin:0 0 16px}",
                                        ".chips{display:flex;flex-wrap:wrap;gap:8px;margin:12px 0 18px}",
                                        ".chip{border-radius:8px;padding:8px 12px;background:#f2f2f4}",
                                        ".chip b{display:block;font-size:20px}",
                                        ".a{background:#d8f0d2}.r{background:#f8d7d5}",
                                        ".c{background:#ffe9a8}.t{background:#dce9f7}",
                                        "th{background:#e7e6e6;position:sticky;top:0}",
                                        "td.n{color:#777;text-align:right}",
                                        "del{color:#a1261c;text-decoration:line-through}",
                                        "ins{color:#1d6b2a;text-decoration:none;font-weight:600}",
                                        ".meta{color:#555;font-size:13px}",
                                        ".note{color:#777;font-size:12px;margin-top:18px}"}) {
        EXPECT_TRUE(contains(light, rule)) << rule;
    }
    for (const std::string_view rule : {"body{background:#1e1e1e;color:#eee}",
                                        ".chip{background:#333}",
                                        "th{background:#3a3a3a}",
                                        "th,td{border-color:#444}",
                                        ".a{background:#24452a}.r{background:#4d2522}",
                                        ".c{background:#4d4116}.t{background:#1f3550}",
                                        "del{color:#ff8a80}ins{color:#8be28f}",
                                        ".files,.meta{color:#bbb}}"}) {
        EXPECT_TRUE(contains(dark, rule)) << rule;
    }
}

TEST(HtmlReport, MarkupInFileNamesIsText) {
    const std::string html = page(table("ID\n1\n", "<a> & \"b\".csv"), table("ID\n1\n", "it’s 'c'.csv"));
    EXPECT_EQ(between(html, "<title>", "</title>"), "Corvale report: &lt;a&gt; &amp; &quot;b&quot;.csv → it’s 'c'.csv");
    EXPECT_TRUE(contains(html, "Before: <b>&lt;a&gt; &amp; &quot;b&quot;.csv</b> · After: <b>it’s 'c'.csv</b>"));
    EXPECT_FALSE(contains(html, "<a>"));
    EXPECT_FALSE(contains(html, "& "));
    EXPECT_FALSE(contains(html, "\"b\""));
}

TEST(HtmlReport, MarkupInCellsKeysAndHeadersIsText) {
    const std::string html =
        page("ID,<i>\n<b>,<script>1</script>\n&amp;,x\n", "ID,<i>\n<b>,\"\"\"><img src=x>\"\n&amp;,y\n");
    EXPECT_TRUE(contains(html, "<th>&lt;i&gt;</th>"));
    EXPECT_EQ(body(html),
              "<tr><td>Changed</td><td>&lt;b&gt;</td><td>&lt;b&gt;</td><td class=\"c\" title=\"Value\">"
              "<del>&lt;script&gt;1&lt;/script&gt;</del> <ins>&quot;&gt;&lt;img src=x&gt;</ins></td></tr>\n"
              "<tr><td>Changed</td><td>&amp;amp;</td><td>&amp;amp;</td><td class=\"c\" title=\"Value\">"
              "<del>x</del> <ins>y</ins></td></tr>\n");
    EXPECT_FALSE(contains(html, "<script"));
    EXPECT_FALSE(contains(html, "<img"));
}

TEST(HtmlReport, MarkupInTheWordsAndTheLanguageIsText) {
    ReportStrings strings;
    strings.title = "R&D <1>";
    const DiffResult result;
    const std::string html = htmlReport(result, strings, "\"><b>");
    EXPECT_TRUE(contains(html, "<html lang=\"&quot;&gt;&lt;b&gt;\">"));
    EXPECT_TRUE(contains(html, "<title>R&amp;D &lt;1&gt;: "));
    EXPECT_TRUE(contains(html, "<h1>R&amp;D &lt;1&gt;</h1>"));
}

TEST(HtmlReport, SpeaksTheLanguageOfItsWords) {
    const DiffResult result = DiffEngine::compare(
        SampleData::stock().before, SampleData::stock().after, RowMatch::key({"SKU"}), {}, NumberStyle::dotDecimal);
    const std::string html = htmlReport(result, ReportStrings::spanish(), "es");
    EXPECT_TRUE(contains(html, "<html lang=\"es\">"));
    EXPECT_TRUE(contains(html, "<title>Informe de Corvale: Stock - October.xlsx → Stock - November.xlsx</title>"));
    EXPECT_TRUE(contains(html, "<div class=\"chip a\">Filas añadidas<b>3</b></div>"));
    EXPECT_TRUE(contains(html, "<tr class=\"r\"><td>Eliminada</td><td>SKU-1022</td>"));
    EXPECT_EQ(count(html, "<tr"), 1U + 3U + 1U + 6U);
}

TEST(HtmlReport, WithoutADifferingRowOneParagraphTakesTheTablesPlace) {
    const std::string html = page("ID,Name\n1,Pen\n", "ID,Name\n1,Pen\n");
    EXPECT_TRUE(contains(html, "<p class=\"meta\">No differences.</p>\n<p class=\"note\">"));
    EXPECT_FALSE(contains(html, "<table"));
    EXPECT_TRUE(contains(html, "Rows unchanged<b>1</b>"));
}

TEST(HtmlReport, UnchangedRowsAreLeftOut) {
    const std::string html = page("ID,Name\n1,Pen\n2,Cup\n", "ID,Name\n1,Pen\n2,Mug\n");
    EXPECT_EQ(count(body(html), "<tr"), 1U);
    EXPECT_FALSE(contains(html, "Pen"));
}

TEST(HtmlReport, TheSettingsNameWhatIsIgnoredInOrder) {
    const std::string rows = "ID,a,b\n1,x,y\n";
    EXPECT_EQ(meta(page(rows, rows, {.ignoreWhitespace = false, .ignoreColumnOrder = false})),
              "Rows matched by: ID · Ignored: –");
    EXPECT_EQ(meta(page(rows, rows, {.ignoreCase = true, .ignoreNumberFormat = true, .ignoredColumns = {"b", "a"}})),
              "Rows matched by: ID · Ignored: letter case, extra spaces, number formatting, column order, a, b");
}

TEST(HtmlReport, TheSettingsNameHowRowsWereMatched) {
    const std::string rows = "ID,a\n1,x\n";
    EXPECT_TRUE(meta(page(rows, rows, {}, RowMatch::rowOrder())).starts_with("Rows matched by: row order · "));
    EXPECT_TRUE(meta(page(rows, rows, {}, RowMatch::key({"ID", "a"}))).starts_with("Rows matched by: ID + a · "));
}

TEST(HtmlReport, TheSettingsCountColumnsAndTypeOnlyCellsWhereThereAreAny) {
    EXPECT_EQ(meta(page("ID,a\n1,x\n", "ID,b,c\n1,x,y\n")),
              "Rows matched by: ID · Ignored: extra spaces, column order · Columns added: 2 · Columns removed: 1");
    EXPECT_EQ(meta(page("ID,a\n1,x\n", "ID,a\n1,X\n")),
              "Rows matched by: ID · Ignored: extra spaces, column order"
              " · Cells that differ only in number format, case or spacing: 1");
    EXPECT_EQ(meta(page("ID,a\n1,x\n", "ID,a\n1,y\n")), "Rows matched by: ID · Ignored: extra spaces, column order");
}

TEST(HtmlReport, OneSidedColumnsAreMarkedAndShowTheTextTheyHave) {
    const std::string html = page("ID,old\n1,a\n2,b\n", "ID,new\n1,c\n3,d\n");
    EXPECT_TRUE(contains(html, "<th class=\"r\">− old</th><th class=\"a\">+ new</th>"));
    EXPECT_EQ(body(html),
              "<tr class=\"r\"><td>Removed</td><td>2</td><td>2</td><td>b</td><td></td></tr>\n"
              "<tr class=\"a\"><td>Added</td><td>3</td><td>3</td><td></td><td>d</td></tr>\n");
}

TEST(HtmlReport, AColumnWithANewNameShowsBoth) {
    EXPECT_TRUE(
        contains(page("ID,Cost\n1,a\n", "ID,Price\n1,b\n", {.ignoreColumnOrder = false}), "<th>Cost → Price</th>"));
}

TEST(HtmlReport, EachKindOfChangeIsNamed) {
    const std::string html =
        page("ID,a,b,c,d\n1,x,1.0,Pen,a  b\n", "ID,a,b,c,d\n1,y,1,pen,a b\n", {.ignoreWhitespace = false});
    EXPECT_TRUE(contains(html, "<td class=\"c\" title=\"Value\"><del>x</del> <ins>y</ins></td>"));
    EXPECT_TRUE(contains(html, "<td class=\"t\" title=\"Number format only\"><del>1.0</del> <ins>1</ins></td>"));
    EXPECT_TRUE(contains(html, "<td class=\"t\" title=\"Letter case only\"><del>Pen</del> <ins>pen</ins></td>"));
    EXPECT_TRUE(contains(html, "<td class=\"t\" title=\"Spacing only\"><del>a  b</del> <ins>a b</ins></td>"));
}

TEST(HtmlReport, ABlankKeyIsNamed) {
    EXPECT_TRUE(
        contains(page("ID,a\n,x\n", "ID,a\n1,x\n"), "<tr class=\"r\"><td>Removed</td><td>(blank key)</td><td></td>"));
}

TEST(HtmlReport, ABlankKeyOfSeveralColumnsIsNamedToo) {
    EXPECT_EQ(body(page("A,B,V\n,,2\n1,,3\n", "A,B,V\n", {}, RowMatch::key({"A", "B"}))),
              "<tr class=\"r\"><td>Removed</td><td>(blank key)</td><td></td><td></td><td>2</td></tr>\n"
              "<tr class=\"r\"><td>Removed</td><td>1 · </td><td>1</td><td></td><td>3</td></tr>\n");
}

TEST(HtmlReport, DuplicateKeysAreListedWithTheirRows) {
    const std::string html = page("ID,a\n<1>,x\n<1>,y\n2,z\n", "ID,a\n2,z\n2,z\n2,q\n");
    EXPECT_TRUE(contains(html,
                         "<p class=\"meta\"><b>Duplicate keys:</b> &lt;1&gt; (Before · Rows 2, 3); "
                         "2 (After · Rows 2, 3, 4)</p>\n"));
    EXPECT_FALSE(contains(page("ID\n1\n", "ID\n1\n"), "Duplicate keys"));
}

TEST(HtmlReport, FiftyDuplicateKeysAreListedAtMost) {
    const auto duplicates = [](int keys) {
        std::string csv = "ID\n";
        for (int i = 0; i < 2 * keys; ++i) {
            csv += "k" + std::to_string(i / 2) + "\n";
        }
        return between(page(csv, "ID\n"), "<b>Duplicate keys:</b> ", "</p>");
    };
    EXPECT_TRUE(duplicates(50).ends_with("; k49 (Before · Rows 100, 101)"));
    const std::string cut = duplicates(51);
    EXPECT_TRUE(cut.ends_with("; k49 (Before · Rows 100, 101); …"));
    EXPECT_EQ(count(cut, "Before"), 50U);
}

}  // namespace
}  // namespace corvale::Reports
