#include <benchmark/benchmark.h>
#include <xlsxwriter.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "CorvaleKit/reports/Reports.h"
#include "benchmarks/ReportedResult.h"
#include "benchmarks/WorkbookCells.h"

namespace corvale::benchmarks {

namespace {

using Formats = std::array<lxw_format*, 24>;

// The cell formats of our workbooks, three times eight.
Formats addFormats(lxw_workbook* workbook) {
    constexpr std::array<lxw_color_t, 8> fills{0, 0xE7E6E6, 0xD8F0D2, 0xF8D7D5, 0xFFE9A8, 0, 0xDCE9F7, 0};
    constexpr std::array<const char*, 3> codes{"General", "yyyy-mm-dd", "yyyy-mm-dd hh:mm"};
    Formats formats{};
    for (std::size_t i = 0; i < formats.size(); ++i) {
        lxw_format* const format = workbook_add_format(workbook);
        const std::size_t style = i % fills.size();
        if (fills[style] != 0) {
            format_set_bg_color(format, fills[style]);
        }
        if (style == 1 || style == 4 || style == 5) {
            format_set_bold(format);
        }
        format_set_num_format(format, codes[i / fills.size()]);
        formats[i] = format;
    }
    formats[0] = nullptr;
    return formats;
}

void write(lxw_worksheet* worksheet, const SheetCells& sheet, const Formats& formats) {
    for (const WorkbookCell& cell : sheet.cells) {
        lxw_format* const format = formats[cell.format];
        switch (cell.kind) {
            case WorkbookCell::Kind::blank:
                worksheet_write_blank(worksheet, cell.row, cell.column, format);
                break;
            case WorkbookCell::Kind::number:
                worksheet_write_number(worksheet, cell.row, cell.column, cell.number, format);
                break;
            case WorkbookCell::Kind::text:
                worksheet_write_string(worksheet, cell.row, cell.column, sheet.texts.data() + cell.text, format);
                break;
        }
    }
}

// The same cells as in our report, handed over as this library takes them; into a file, as it can no other.
void libxlsxwriter(benchmark::State& state, bool includeUnchanged) {
    const auto sheets = cellsOf(Reports::excelReport(reportedResult(), {}, includeUnchanged));
    const std::string path = (std::filesystem::temp_directory_path() / "corvale-benchmark.xlsx").string();
    bool isComplete = true;
    for ([[maybe_unused]] auto run : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook* const workbook = workbook_new_opt(path.c_str(), &options);
        const Formats formats = addFormats(workbook);
        for (const SheetCells& sheet : sheets) {
            write(workbook_add_worksheet(workbook, nullptr), sheet, formats);
        }
        isComplete = workbook_close(workbook) == LXW_NO_ERROR && isComplete;
    }
    if (!isComplete) {
        state.SkipWithError("libxlsxwriter failed");
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
    std::filesystem::remove(path);
}

BENCHMARK_CAPTURE(libxlsxwriter, all rows, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(libxlsxwriter, changed rows, false)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
