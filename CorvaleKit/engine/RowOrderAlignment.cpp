#include "CorvaleKit/engine/RowOrderAlignment.h"

#include <algorithm>

#include "CorvaleKit/engine/GapFilling.h"
#include "CorvaleKit/engine/PollMeter.h"
#include "CorvaleKit/engine/RowAnchoring.h"
#include "CorvaleKit/engine/RowInterner.h"

namespace corvale::RowOrderAlignment {

namespace {

struct InternedRows {
    RowAnchoring::RowIds ids;
    bool sameIdMeansSameCells = false;
};

InternedRows intern(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter) {
    const auto poll = [&meter](std::size_t) { meter.poll(); };
    RowInterner interner(before, after);
    InternedRows rows;
    rows.ids.before = interner.internBefore(poll);
    rows.ids.after = interner.internAfter(poll);
    rows.ids.count = interner.idCount();
    rows.sameIdMeansSameCells = interner.sameIdMeansSameCells();
    return rows;
}

}  // namespace

AlignedRows align(const ComparisonTexts& before, const ComparisonTexts& after, const CancelCheck& isCancelled) {
    PollMeter meter(isCancelled);
    const auto interned = intern(before, after, meter);
    const auto partners = RowAnchoring::partners(interned.ids, meter);
    AlignedRows rows;
    rows.pairs.reserve(std::max(before.rowCount(), after.rowCount()));
    rows.areSame.reserve(rows.pairs.capacity());
    GapFilling gaps(before, after, meter);
    RowStretch gap;
    for (const std::uint32_t partner : partners) {
        if (partner == RowPair::none) {
            ++gap.beforeEnd;
            continue;
        }
        gap.afterEnd = partner;
        if (gap.rowCount() > 0) {
            gaps.fill(gap, rows.pairs);
            rows.areSame.resize(rows.pairs.size(), false);
        }
        rows.pairs.push_back({gap.beforeEnd, partner});
        rows.areSame.push_back(interned.sameIdMeansSameCells);
        gap = {gap.beforeEnd + 1, gap.beforeEnd + 1, partner + 1, partner + 1};
    }
    gap.afterEnd = static_cast<std::uint32_t>(after.rowCount());
    gaps.fill(gap, rows.pairs);
    rows.areSame.resize(rows.pairs.size(), false);
    return rows;
}

}  // namespace corvale::RowOrderAlignment
