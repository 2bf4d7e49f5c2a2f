#include "tests/samples/GoldenCases.h"

#include <utility>

namespace corvale {

namespace {

GoldenCase tableOf(std::string name, std::string file, std::vector<std::string> options = {}) {
    options.insert(options.begin(), {"table", std::move(file)});
    return {std::move(name), 0, std::move(options)};
}

GoldenCase refused(std::string name, std::string file) { return {std::move(name), 2, {"table", std::move(file)}}; }

GoldenCase comparison(const std::string& name, const std::string& pair, const std::string& extensions,
                      std::vector<std::string> options = {}, int status = 1) {
    const std::string folder = "pairs/" + pair + "/";
    const std::size_t comma = extensions.find(',');
    options.insert(options.begin(),
                   {"compare",
                    folder + "before." + extensions.substr(0, comma),
                    folder + "after." + extensions.substr(comma + 1),
                    "--format",
                    "json"});
    return {"compare-" + name, status, std::move(options)};
}

std::vector<GoldenCase> texts() {
    const std::string office = "csv/PHPOffice+PhpSpreadsheet/tests/data/Reader/CSV/";
    const std::string frictionless = "csv/frictionlessdata+frictionless-py/data/";
    const std::string horror = "csv/okfn+messytables/horror/";
    return {
        tableOf("text-utf16-quoted-breaks", office + "utf16be.line_break_in_enclosure.csv"),
        tableOf("text-code-page-1252", office + "premiere.win1252.csv"),
        tableOf("text-carriage-returns", office + "linend.mac.csv"),
        tableOf("text-escaped-quotes", office + "line_break_in_enclosure_with_escaped_quotes.csv"),
        tableOf("text-semicolons", frictionless + "issue-1232.csv"),
        tableOf("text-ragged", frictionless + "defective-rows.csv"),
        tableOf("text-equal-names", frictionless + "duplicate-headers.csv"),
        tableOf("text-blank-name", frictionless + "blank-headers.csv"),
        tableOf("text-thin-head", horror + "begrotingsanalyse-2011.csv"),
        tableOf("text-chosen-header", horror + "begrotingsanalyse-2011.csv", {"--header-row", "6"}),
        tableOf("text-tabs", "csv/uniVocity+univocity-parsers/src/test/resources/tsv/essential.tsv"),
        tableOf("text-accents-1252", horror + "spanish_chars.csv"),
        refused("text-utf32", office + "premiere.utf32le.csv"),
        refused("text-empty", "csv/apache+commons-csv/src/test/resources/org/apache/commons/csv/empty.txt"),
    };
}

std::vector<GoldenCase> workbooks() {
    const std::string calamine = "xlsx/tafia+calamine/tests/";
    const std::string poi = "xlsx/apache+poi/test-data/spreadsheet/";
    const std::string closed = "xlsx/ClosedXML+ClosedXML/ClosedXML.Tests/Resource/";
    return {
        tableOf("workbook-types", "xlsx/SheetJS+test_files/DataTypesFormats.xlsx"),
        tableOf("workbook-prefixes-errors", closed + "Examples/Misc/CellValues.xlsx"),
        tableOf("workbook-1904", calamine + "date_1904.xlsx"),
        tableOf("workbook-without-references", calamine + "issue_261.xlsx"),
        tableOf("workbook-inline-pretty", calamine + "whitespace_trim.xlsx"),
        tableOf("workbook-rich-text",
                "xlsx/jmcnamara+XlsxWriter/xlsxwriter/test/comparison/xlsx_files/rich_string11.xlsx"),
        tableOf("workbook-padded-zeros", "xlsx/PHPOffice+PhpSpreadsheet/tests/data/Reader/XLSX/condfmtnum.xlsx"),
        tableOf("workbook-date-times", "xlsx/roo-rb+roo/test/files/datetime.xlsx"),
        tableOf("workbook-evaluations", poi + "DataValidationEvaluations.xlsx"),
        tableOf("workbook-sheet-by-name", "pairs/xlsx-calamine-issues-2016-2017/after.xlsx", {"--sheet", "SPC_chrs"}),
        refused("workbook-encrypted", "xlsx/apache+poi/test-data/poifs/protect.xlsx"),
        refused("workbook-backslashes",
                "xlsx/PHPOffice+PhpSpreadsheet/tests/data/Reader/XLSX/Zip-Windows-Directory-Separator.xlsx"),
    };
}

std::vector<GoldenCase> comparisons() {
    return {
        comparison("text-with-workbook", "cross-roo-simple", "csv,xlsx"),
        comparison("number-formats-ignored", "cross-roo-simple", "csv,xlsx", {"--ignore-number-format"}, 0),
        comparison("renamed-by-position", "cross-roo-time", "csv,xlsx", {"--by-position"}, 0),
        comparison("suggested-key", "qsv-toilets-2022", "csv,csv"),
        comparison("newest-rows-first", "qsv-run-info-2024", "csv,csv"),
        comparison("composite-key", "ncov-clades-2022-2026", "csv,csv", {"--key", "clade", "--key", "site"}),
        comparison("repeated-keys", "ncov-clades-2022-2026", "csv,csv", {"--key", "clade"}),
        comparison(
            "renamed-columns", "dotgov-federal-2016-columns", "csv,csv", {"--by-position", "--key", "Domain Name"}),
        comparison("moved-columns",
                   "dotgov-federal-2023-2026",
                   "csv,csv",
                   {"--key", "Domain Name", "--ignore-case", "--ignore-column", "City"}),
        comparison("few-edits", "dotgov-federal-2025-week", "csv,csv", {"--show", "changed", "--search", "security"}),
        comparison("only-a-column-added", "unlocode-subdivisions-2024-two-edits", "csv,csv"),
        comparison("workbooks", "xlsx-calamine-issues-2016-2017", "xlsx,xlsx"),
        comparison("wider-workbook", "xlsx-qsv-excel-2022-2024", "xlsx,xlsx"),
        comparison("workbooks-row-order", "xlsx-poi-formulas-2009-2016", "xlsx,xlsx", {"--row-order"}),
        comparison("chosen-sheets",
                   "xlsx-mixs-v5-review-2017",
                   "xlsx,xlsx",
                   {"--before-sheet", "Packages_V4", "--after-sheet", "2"}),
        comparison("same-workbooks", "xlsx-roo-numbers1-2012-2013", "xlsx,xlsx", {}, 0),
    };
}

}  // namespace

std::vector<GoldenCase> goldenCases() {
    std::vector<GoldenCase> all = texts();
    for (auto* more : {workbooks, comparisons}) {
        for (GoldenCase& golden : more()) {
            all.push_back(std::move(golden));
        }
    }
    return all;
}

}  // namespace corvale
