#include "CorvaleKit/engine/RowAnchoring.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "CorvaleKit/engine/LongestChain.h"
#include "CorvaleKit/engine/RowDifference.h"
#include "CorvaleKit/engine/RowPair.h"
#include "CorvaleKit/engine/RowStretch.h"

namespace corvale::RowAnchoring {

namespace {

constexpr std::size_t callsPerPoll = 64;
constexpr std::size_t rowsPerWord = 64;  // of a minimal difference
constexpr std::uint32_t once = 1;
constexpr std::uint32_t onceLess = -once;

// How often an id stands in the stretch at hand, and where: for an id that stands there once, the exclusive or of its
// positions is the position.
struct Tally {
    struct Side {
        std::uint32_t count = 0;
        std::uint32_t positions = 0;
    };
    Side before;
    Side after;

    bool isUniqueOnBothSides() const { return before.count == 1 && after.count == 1; }
};

// Splits the tables at unique common rows again and again. Stretches wait on a list of our own, for hostile tables
// split off one row at a time and would exhaust the call stack. For their sake, too, the largest part of a split takes
// over the tallies of the whole, less the rows that are left behind, and only the others are tallied anew: every row is
// then counted at most log n times.
class Anchoring {
public:
    Anchoring(const RowIds& ids, PollMeter& meter)
        : m_ids(ids), m_meter(meter), m_tallies(ids.count), m_partners(ids.before.size(), RowPair::none) {}

    std::vector<std::uint32_t> run() {
        enter(wholeTables());
        while (!m_waiting.empty()) {
            const RowStretch stretch = m_waiting.back();
            m_waiting.pop_back();
            anchor(stretch);
        }
        return std::move(m_partners);
    }

private:
    RowStretch wholeTables() const {
        return {0, static_cast<std::uint32_t>(m_ids.before.size()), 0, static_cast<std::uint32_t>(m_ids.after.size())};
    }

    void enter(const RowStretch& stretch);
    void anchor(const RowStretch& stretch);
    RowStretch anchorEnds(RowStretch stretch);
    void tally(const RowStretch& stretch);
    void forgetOutside(const RowStretch& inner, const RowStretch& outer);
    void countBefore(std::uint32_t begin, std::uint32_t end, std::uint32_t change);
    void countAfter(std::uint32_t begin, std::uint32_t end, std::uint32_t change);
    void count(Tally::Side Tally::*side, std::span<const std::uint32_t> ids, std::uint32_t firstRow,
               std::uint32_t change);
    void clearTallies(const RowStretch& stretch);
    std::vector<RowPoint> uniqueCommonRows();
    RowStretch splitAt(const std::vector<RowPoint>& chain, const RowStretch& stretch);
    void anchorUnchanged(const RowStretch& stretch);

    const RowIds& m_ids;
    PollMeter& m_meter;
    std::vector<Tally> m_tallies;            // by id; all zero between two stretches
    std::vector<std::uint32_t> m_uniqueIds;  // became unique on both sides, some of them gone since
    std::vector<std::uint32_t> m_partners;
    std::vector<RowStretch> m_waiting;
    std::size_t m_calls = 0;
    LongestChain m_longestChain;
    RowDifference m_difference;
};

void Anchoring::enter(const RowStretch& stretch) {
    if (++m_calls % callsPerPoll == 0) {
        m_meter.poll();
    }
    if (!stretch.lacksASide()) {
        m_waiting.push_back(stretch);
    }
}

void Anchoring::anchor(const RowStretch& stretch) {
    RowStretch rest = anchorEnds(stretch);
    tally(rest);
    while (!rest.lacksASide()) {
        const auto chain = m_longestChain.of(uniqueCommonRows(), m_meter);
        if (chain.empty()) {
            anchorUnchanged(rest);
            break;
        }
        const RowStretch inner = anchorEnds(splitAt(chain, rest));
        forgetOutside(inner, rest);
        rest = inner;
    }
    clearTallies(rest);
}

// Anchors the common head and tail and returns what is between.
RowStretch Anchoring::anchorEnds(RowStretch stretch) {
    const auto& before = m_ids.before;
    const auto& after = m_ids.after;
    while (!stretch.lacksASide() && before[stretch.beforeBegin] == after[stretch.afterBegin]) {
        m_partners[stretch.beforeBegin++] = stretch.afterBegin++;
    }
    while (!stretch.lacksASide() && before[stretch.beforeEnd - 1] == after[stretch.afterEnd - 1]) {
        m_partners[--stretch.beforeEnd] = --stretch.afterEnd;
    }
    return stretch;
}

void Anchoring::tally(const RowStretch& stretch) {
    m_uniqueIds.clear();
    if (!stretch.lacksASide()) {
        countAfter(stretch.afterBegin, stretch.afterEnd, once);
        countBefore(stretch.beforeBegin, stretch.beforeEnd, once);
    }
}

// Rows that were unique in the outer stretch need no second look: one that stands in the inner stretch on both sides
// and is not in the chain would have made the chain longer.
void Anchoring::forgetOutside(const RowStretch& inner, const RowStretch& outer) {
    m_uniqueIds.clear();
    countBefore(outer.beforeBegin, inner.beforeBegin, onceLess);
    countBefore(inner.beforeEnd, outer.beforeEnd, onceLess);
    countAfter(outer.afterBegin, inner.afterBegin, onceLess);
    countAfter(inner.afterEnd, outer.afterEnd, onceLess);
}

void Anchoring::countBefore(std::uint32_t begin, std::uint32_t end, std::uint32_t change) {
    count(&Tally::before, std::span(m_ids.before).subspan(begin, end - begin), begin, change);
}

void Anchoring::countAfter(std::uint32_t begin, std::uint32_t end, std::uint32_t change) {
    count(&Tally::after, std::span(m_ids.after).subspan(begin, end - begin), begin, change);
}

void Anchoring::count(Tally::Side Tally::*side, std::span<const std::uint32_t> ids, std::uint32_t firstRow,
                      std::uint32_t change) {
    m_meter.spend(ids.size());
    for (std::uint32_t row = firstRow; const std::uint32_t id : ids) {
        Tally& tally = m_tallies[id];
        (tally.*side).count += change;
        (tally.*side).positions ^= row++;
        if (tally.isUniqueOnBothSides()) {
            m_uniqueIds.push_back(id);
        }
    }
}

void Anchoring::clearTallies(const RowStretch& stretch) {
    for (std::uint32_t row = stretch.beforeBegin; row < stretch.beforeEnd; ++row) {
        m_tallies[m_ids.before[row]] = {};
    }
    for (std::uint32_t row = stretch.afterBegin; row < stretch.afterEnd; ++row) {
        m_tallies[m_ids.after[row]] = {};
    }
}

// In Before's order.
std::vector<RowPoint> Anchoring::uniqueCommonRows() {
    std::vector<RowPoint> points;
    points.reserve(m_uniqueIds.size());
    for (const std::uint32_t id : m_uniqueIds) {
        const Tally& tally = m_tallies[id];
        if (tally.isUniqueOnBothSides()) {
            points.push_back({tally.before.positions, tally.after.positions});
        }
    }
    const auto isEarlier = [](const RowPoint& a, const RowPoint& b) { return a.before < b.before; };
    if (!std::is_sorted(points.begin(), points.end(), isEarlier)) {
        std::sort(points.begin(), points.end(), isEarlier);
    }
    return points;
}

// Anchors the chain and lets the parts between its members wait, all but the largest, which is returned.
RowStretch Anchoring::splitAt(const std::vector<RowPoint>& chain, const RowStretch& stretch) {
    RowStretch largest{stretch.beforeBegin, stretch.beforeBegin, stretch.afterBegin, stretch.afterBegin};
    RowStretch rest = stretch;
    const auto enterPart = [&](RowStretch part) {
        if (!part.lacksASide() && part.rowCount() > largest.rowCount()) {
            std::swap(part, largest);
        }
        enter(part);
    };
    for (const auto& [before, after] : chain) {
        m_partners[before] = after;
        enterPart({rest.beforeBegin, before, rest.afterBegin, after});
        rest.beforeBegin = before + 1;
        rest.afterBegin = after + 1;
    }
    enterPart(rest);
    return largest;
}

void Anchoring::anchorUnchanged(const RowStretch& stretch) {
    if (stretch.rowCount() > RowDifference::longest) {
        return;
    }
    m_meter.spend(stretch.rowCount() + stretch.beforeCount() * stretch.afterCount() / rowsPerWord);
    const auto before = std::span(m_ids.before).subspan(stretch.beforeBegin, stretch.beforeCount());
    const auto after = std::span(m_ids.after).subspan(stretch.afterBegin, stretch.afterCount());
    for (const auto& [a, b] : m_difference.kept(before, after)) {
        m_partners[stretch.beforeBegin + a] = stretch.afterBegin + b;
    }
}

}  // namespace

std::vector<std::uint32_t> partners(const RowIds& ids, PollMeter& meter) { return Anchoring(ids, meter).run(); }

}  // namespace corvale::RowAnchoring
