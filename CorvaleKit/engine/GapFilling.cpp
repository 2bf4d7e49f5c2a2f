#include "CorvaleKit/engine/GapFilling.h"

#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

namespace {

constexpr std::uint32_t lookAhead = 8;

}  // namespace

GapFilling::GapFilling(const ComparisonTexts& before, const ComparisonTexts& after, PollMeter& meter)
    : m_meter(meter), m_similarity(before, after), m_bestAlignment(before, after, meter) {}

void GapFilling::fill(const RowStretch& gap, std::vector<RowPair>& pairs) {
    if (gap.lacksASide()) {
        appendUnpaired(gap, pairs);
        return;
    }
    m_meter.poll();
    if (gap.beforeCount() * gap.afterCount() > largestBestArea) {
        walk(gap, pairs);
    } else {
        m_bestAlignment.align(gap, pairs);
    }
}

void GapFilling::walk(RowStretch gap, std::vector<RowPair>& pairs) {
    for (std::size_t step = 1; !gap.lacksASide(); ++step) {
        if (step % rowsPerPoll == 0) {
            m_meter.poll();
        }
        skipToSimilar(gap, pairs);
        pairs.push_back({gap.beforeBegin++, gap.afterBegin++});
    }
    appendUnpaired(gap, pairs);
}

// Skips rows of one side, but no more than the look-ahead, so that the next two rows are similar. Where no such rows
// are in sight, nothing is skipped.
void GapFilling::skipToSimilar(RowStretch& gap, std::vector<RowPair>& pairs) {
    const std::uint32_t before = gap.beforeBegin;
    const std::uint32_t after = gap.afterBegin;
    if (areSimilar(before, after)) {
        return;
    }
    for (std::uint32_t distance = 1; distance <= lookAhead; ++distance) {
        if (distance < gap.afterCount() && areSimilar(before, after + distance)) {
            gap.afterBegin += distance;
            appendUnpaired({before, before, after, gap.afterBegin}, pairs);
            return;
        }
        if (distance < gap.beforeCount() && areSimilar(before + distance, after)) {
            gap.beforeBegin += distance;
            appendUnpaired({before, gap.beforeBegin, after, after}, pairs);
            return;
        }
    }
}

bool GapFilling::areSimilar(std::uint32_t before, std::uint32_t after) {
    m_meter.spend(m_similarity.columnCount());
    return m_similarity.areSimilar(before, after);
}

}  // namespace corvale
