#include "CorvaleKit/engine/RowOrderAlignment.h"

#include <algorithm>

#include "CorvaleKit/engine/GapFilling.h"
#include "CorvaleKit/engine/PollMeter.h"
#include "CorvaleKit/engine/RowAnchoring.h"
#include "CorvaleKit/engine/RowInterner.h"

namespace corvale::RowOrderAlignment {

namespace {

RowAnchoring::RowIds idsOf(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter) {
    const auto poll = [&meter](std::size_t) { meter.poll(); };
    RowInterner interner(before, after);
    RowAnchoring::RowIds ids;
    ids.before = interner.internBefore(poll);
    ids.after = interner.internAfter(poll);
    ids.count = interner.idCount();
    return ids;
}

}  // namespace

std::vector<RowPair> align(const ComparisonTexts& before, const ComparisonTexts& after,
                           const CancelCheck& isCancelled) {
    PollMeter meter(isCancelled);
    const auto partners = RowAnchoring::partners(idsOf(before, after, meter), meter);
    std::vector<RowPair> pairs;
    pairs.reserve(std::max(before.rowCount(), after.rowCount()));
    GapFilling gaps(before, after, meter);
    RowStretch gap;
    for (const std::uint32_t partner : partners) {
        if (partner == RowPair::none) {
            ++gap.beforeEnd;
            continue;
        }
        gap.afterEnd = partner;
        gaps.fill(gap, pairs);
        pairs.push_back({gap.beforeEnd, partner});
        gap = {gap.beforeEnd + 1, gap.beforeEnd + 1, partner + 1, partner + 1};
    }
    gap.afterEnd = static_cast<std::uint32_t>(after.rowCount());
    gaps.fill(gap, pairs);
    return pairs;
}

}  // namespace corvale::RowOrderAlignment
