#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/TableBuilder.h"
#include "benchmarks/PairMaker.h"

namespace corvale::benchmarks {

namespace {

const std::string& csv(std::size_t rows) {
    static std::map<std::size_t, std::string> made;
    auto& text = made[rows];
    if (text.empty()) {
        text = makePair({rows}).before;
    }
    return text;
}

std::size_t rowsOf(const benchmark::State& state) { return static_cast<std::size_t>(state.range(0)); }

void reportBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(csv(rowsOf(state)).size()) * state.iterations());
}

void decode(benchmark::State& state) {
    for ([[maybe_unused]] auto run : state) {
        state.PauseTiming();
        Bytes bytes(csv(rowsOf(state)));
        state.ResumeTiming();
        benchmark::DoNotOptimize(CSV::decodeText(std::move(bytes)));
    }
    reportBytes(state);
}

void parse(benchmark::State& state) {
    for ([[maybe_unused]] auto run : state) {
        state.PauseTiming();
        Bytes bytes(csv(rowsOf(state)));
        state.ResumeTiming();
        benchmark::DoNotOptimize(CSV::parse(std::move(bytes)));
    }
    reportBytes(state);
}

void buildTable(benchmark::State& state) {
    const CellRows rows(CSV::parse(Bytes(csv(rowsOf(state)))));
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(TableBuilder::build(rows, "before.csv"));
    }
    state.SetItemsProcessed(state.range(0) * state.iterations());
}

BENCHMARK(decode)->Name("decode/rows")->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(parse)->Name("parse/rows")->Arg(1'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(buildTable)->Name("build table/rows")->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
