#include <benchmark/benchmark.h>

#include <string>

#include "CorvaleKit/reports/Reports.h"
#include "benchmarks/ReportPair.h"

namespace corvale::benchmarks {

namespace {

void excelReport(benchmark::State& state, bool includeUnchanged) {
    const DiffResult& result = reportPair();
    std::size_t size = 0;
    for ([[maybe_unused]] auto run : state) {
        const std::string workbook = Reports::excelReport(result, {}, includeUnchanged);
        size = workbook.size();
    }
    state.counters["MB"] = static_cast<double>(size) / 1e6;
}

BENCHMARK_CAPTURE(excelReport, all rows, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(excelReport, changed rows, false)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
