#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/PollMeter.h"
#include "CorvaleKit/engine/RowPair.h"
#include "CorvaleKit/engine/RowSimilarity.h"
#include "CorvaleKit/engine/RowStretch.h"

namespace corvale {

// The order-preserving pairing of similar rows that has the most equal cells, among equal ones the most pairs.
class BestAlignment {
public:
    // The arguments must outlive this object.
    BestAlignment(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter);

    // Appends every row of the stretch once. A pair that the best total allows comes before skipping a row, and a
    // skipped Before row before a skipped After row. Time and memory grow with the product of the sides. Throws
    // Cancelled.
    void align(const RowStretch& stretch, std::vector<RowPair>& pairs);

private:
    static constexpr std::int32_t notPairable = -1;

    void weighRowByRow(const RowStretch& stretch);
    void weighColumnByColumn(const RowStretch& stretch);
    std::vector<std::size_t> comparedPositions() const;
    void internColumn(std::size_t position);
    void countEqualCells();
    std::int32_t weight(std::size_t equalCells) const;
    void findTotals(std::size_t beforeCount, std::size_t afterCount);
    void collect(RowStretch stretch, std::vector<RowPair>& pairs) const;

    const ComparisonTexts& m_before;
    const ComparisonTexts& m_after;
    PollMeter& m_meter;
    RowSimilarity m_similarity;
    std::vector<std::int32_t> m_weights;  // of pairing two rows, by Before row, then After row
    std::vector<std::int32_t> m_totals;   // the best of the rows from there on; one row and column more than m_weights
    // The stretch's rows, and their cells of the column at hand as numbers that are equal when the texts are.
    std::vector<ComparisonTexts::Row> m_beforeRows;
    std::vector<ComparisonTexts::Row> m_afterRows;
    std::vector<std::uint32_t> m_beforeIds;
    std::vector<std::uint32_t> m_afterIds;
};

}  // namespace corvale
