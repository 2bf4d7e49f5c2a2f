#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "CorvaleKit/reports/Reports.h"
#include "benchmarks/ReportedResult.h"

namespace corvale::benchmarks {

namespace {

void excelReport(benchmark::State& state, bool includeUnchanged) {
    const DiffResult& result = reportedResult();
    std::size_t size = 0;
    for ([[maybe_unused]] auto run : state) {
        const std::string workbook = Reports::excelReport(result, {}, includeUnchanged);
        size = workbook.size();
    }
    state.counters["MB"] = static_cast<double>(size) / 1e6;
}

void htmlReport(benchmark::State& state) {
    const DiffResult& result = reportedResult();
    std::size_t size = 0;
    for ([[maybe_unused]] auto run : state) {
        const std::string page = Reports::htmlReport(result, {}, "en");
        size = page.size();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
    state.counters["MB"] = static_cast<double>(size) / 1e6;
}

BENCHMARK_CAPTURE(excelReport, all rows, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(excelReport, changed rows, false)->Unit(benchmark::kMillisecond);
BENCHMARK(htmlReport)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
