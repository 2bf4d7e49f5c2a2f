#include "CorvaleKit/engine/RowDifference.h"

#include <algorithm>

#include "CorvaleKit/base/Require.h"

namespace corvale {

const std::vector<RowDifference::Kept>& RowDifference::kept(std::span<const std::uint32_t> a,
                                                            std::span<const std::uint32_t> b) {
    CORVALE_REQUIRE(a.size() + b.size() <= longest, "two sequences are too long for an exact difference");
    m_reached.clear();
    m_kept.clear();
    collect(search(a, b));
    std::reverse(m_kept.begin(), m_kept.end());
    return m_kept;
}

bool RowDifference::putsIn(Step step) {
    const std::uint16_t* previous = reached(step.differences - 1);
    return step.diagonal == 0 ||
           (step.diagonal < step.differences && previous[step.diagonal - 1] < previous[step.diagonal]);
}

// The position in a right after the step's own difference.
std::size_t RowDifference::start(Step step) {
    if (step.differences == 0) {
        return 0;
    }
    const std::uint16_t* previous = reached(step.differences - 1);
    return putsIn(step) ? previous[step.diagonal] : previous[step.diagonal - 1] + std::size_t{1};
}

RowDifference::Step RowDifference::search(std::span<const std::uint32_t> a, std::span<const std::uint32_t> b) {
    for (std::size_t differences = 0;; ++differences) {
        m_reached.resize(m_reached.size() + differences + 1);
        for (std::size_t diagonal = 0; diagonal <= differences; ++diagonal) {
            std::size_t x = start({differences, diagonal});
            std::size_t y = x + differences - 2 * diagonal;
            while (x < a.size() && y < b.size() && a[x] == b[y]) {
                ++x;
                ++y;
            }
            reached(differences)[diagonal] = static_cast<std::uint16_t>(x);
            if (x >= a.size() && y >= b.size()) {
                return {differences, diagonal};
            }
        }
    }
}

// Walks back from the end; the elements come last first.
void RowDifference::collect(Step step) {
    for (;;) {
        std::size_t x = reached(step.differences)[step.diagonal];
        for (const std::size_t first = start(step); x > first; --x) {
            const std::size_t y = x + step.differences - 2 * step.diagonal;
            m_kept.push_back({static_cast<std::uint32_t>(x - 1), static_cast<std::uint32_t>(y - 1)});
        }
        if (step.differences == 0) {
            return;
        }
        step.diagonal -= putsIn(step) ? 0 : 1;
        --step.differences;
    }
}

}  // namespace corvale
