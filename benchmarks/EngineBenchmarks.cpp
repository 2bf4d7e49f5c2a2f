#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/engine/KeyMatching.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "benchmarks/PairMaker.h"

namespace corvale::benchmarks {

namespace {

struct Tables {
    DataTable before;
    DataTable after;
};

Tables load(const CSVPair& pair) {
    return {DataLoader::load(Bytes(pair.before), "before.csv"), DataLoader::load(Bytes(pair.after), "after.csv")};
}

Tables tables(const benchmark::State& state) { return load(makePair({static_cast<std::size_t>(state.range(0))})); }

const std::vector<std::size_t> allColumns{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};

void suggestKey(benchmark::State& state) {
    const Tables pair = tables(state);
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(KeySuggester::suggestedKey(pair.before, pair.after));
    }
}

void normalise(benchmark::State& state, const CellReduction& reduction) {
    const Tables pair = tables(state);
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(ComparisonTexts(pair.before, allColumns, reduction));
    }
    state.SetItemsProcessed(state.range(0) * 10 * state.iterations());
}

void matchKeys(benchmark::State& state) {
    const Tables pair = tables(state);
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(
            KeyMatching::matchByKey(pair.before, pair.after, {{0}, {0}}, {}, NumberStyle::dotDecimal, {}));
    }
    state.SetItemsProcessed(state.range(0) * 2 * state.iterations());
}

void compare(benchmark::State& state, const Tables& pair, const RowMatch& match) {
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(DiffEngine::compare(pair.before, pair.after, match, {}, NumberStyle::dotDecimal));
    }
}

void compareByKey(benchmark::State& state) { compare(state, tables(state), RowMatch::key({"Order ID"})); }

void compareByRowOrder(benchmark::State& state) { compare(state, tables(state), RowMatch::rowOrder()); }

void compareUnrelated(benchmark::State& state) {
    const auto rows = static_cast<std::size_t>(state.range(0));
    compare(state, load({makeUnrelated(rows, 1), makeUnrelated(rows, 2)}), RowMatch::rowOrder());
}

void filter(benchmark::State& state, const DiffFilter& wanted) {
    const Tables pair = load(makePair({static_cast<std::size_t>(state.range(0)), true}));
    const DiffResult result =
        DiffEngine::compare(pair.before, pair.after, RowMatch::key({"Order ID"}), {}, NumberStyle::dotDecimal);
    for ([[maybe_unused]] auto run : state) {
        benchmark::DoNotOptimize(wanted.apply(result));
    }
}

const CellReduction whitespaceOnly{true, false, false, NumberStyle::dotDecimal};
const CellReduction everything{true, true, true, NumberStyle::dotDecimal};
const DiffFilter noSearch{DiffFilter::Show::changes, std::nullopt, ""};
const DiffFilter search{DiffFilter::Show::changes, std::nullopt, "haas zürich"};

BENCHMARK(suggestKey)->Name("suggest key/rows")->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(normalise, white space, whitespaceOnly)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(normalise, everything, everything)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(matchKeys)->Name("match keys/rows")->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(compareByKey)
    ->Name("compare by key/rows")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(compareByRowOrder)
    ->Name("compare by row order/rows")
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(compareUnrelated)->Name("compare unrelated by row order/rows")->Arg(200'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filter, no search, noSearch)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filter, search, search)->Arg(1'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace corvale::benchmarks
