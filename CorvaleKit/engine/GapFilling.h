#pragma once

#include <vector>

#include "CorvaleKit/engine/BestAlignment.h"
#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/PollMeter.h"
#include "CorvaleKit/engine/RowPair.h"
#include "CorvaleKit/engine/RowSimilarity.h"
#include "CorvaleKit/engine/RowStretch.h"

namespace corvale {

// Pairs the rows between two anchors by similarity.
class GapFilling {
public:
    // The arguments must outlive this object.
    GapFilling(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter);

    // Appends every row of the gap once, each side in its order. Small gaps get the best pairing there is; large ones
    // are walked through greedily, in time linear in the rows. Throws Cancelled.
    void fill(const RowStretch& gap, std::vector<RowPair>& pairs);

    // The most rows of Before times rows of After for which the best pairing is worked out.
    static constexpr std::size_t largestBestArea = 40'000;

private:
    void walk(RowStretch gap, std::vector<RowPair>& pairs);
    void skipToSimilar(RowStretch& gap, std::vector<RowPair>& pairs);
    bool areSimilar(std::uint32_t before, std::uint32_t after);

    PollMeter& m_meter;
    RowSimilarity m_similarity;
    BestAlignment m_bestAlignment;
};

}  // namespace corvale
