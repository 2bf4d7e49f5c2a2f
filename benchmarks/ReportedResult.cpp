#include "benchmarks/ReportedResult.h"

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/loading/DataLoader.h"
#include "benchmarks/PairMaker.h"

namespace corvale::benchmarks {

namespace {

// Another city in every tenth row.
std::string withChangedCells(const std::string& csv) {
    constexpr std::size_t city = 3;
    std::string changed;
    changed.reserve(csv.size() + csv.size() / 10);
    std::size_t row = 0;
    for (std::size_t start = 0; start < csv.size(); ++row) {
        const std::size_t end = csv.find('\n', start) + 1;
        if (row % 10 != 1) {
            changed.append(csv, start, end - start);
        } else {
            std::size_t comma = start;
            for (std::size_t column = 0; column <= city; ++column) {
                comma = csv.find(',', comma + 1);
            }
            changed.append(csv, start, comma - start).append(" X").append(csv, comma, end - comma);
        }
        start = end;
    }
    return changed;
}

DiffResult compared() {
    const std::string before = makePair({1'000'000}).before;
    const std::string after = withChangedCells(before);
    return DiffEngine::compare(DataLoader::load(Bytes(before), "before.csv"),
                               DataLoader::load(Bytes(after), "after.csv"),
                               RowMatch::key({"Order ID"}),
                               {},
                               NumberStyle::dotDecimal);
}

}  // namespace

const DiffResult& reportedResult() {
    static const DiffResult result = compared();
    return result;
}

}  // namespace corvale::benchmarks
