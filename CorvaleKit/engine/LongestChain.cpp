#include "CorvaleKit/engine/LongestChain.h"

#include <algorithm>
#include <cstddef>

namespace corvale {

// Patience sorting: points are dealt onto piles, each onto the first whose top is not below it in After; the number of
// the pile is the length of the longest chain that ends in the point.
std::vector<RowPoint> LongestChain::of(const std::vector<RowPoint>& points, PollMeter& meter) {
    m_last.clear();
    m_predecessor.clear();
    m_last.reserve(points.size());
    m_predecessor.reserve(points.size());
    const auto isBelow = [&](std::uint32_t point, std::uint32_t after) { return points[point].after < after; };
    for (std::uint32_t point = 0; point < points.size(); ++point) {
        meter.spend(1);
        const std::uint32_t after = points[point].after;
        const bool isLongest = m_last.empty() || isBelow(m_last.back(), after);
        const auto pile = isLongest ? m_last.end() : std::lower_bound(m_last.begin(), m_last.end(), after, isBelow);
        m_predecessor.push_back(pile == m_last.begin() ? point : *(pile - 1));
        if (isLongest) {
            m_last.push_back(point);
        } else {
            *pile = point;
        }
    }
    std::vector<RowPoint> chain(m_last.size());
    std::uint32_t point = m_last.empty() ? 0 : m_last.back();
    for (std::size_t rank = chain.size(); rank > 0; --rank) {
        chain[rank - 1] = points[point];
        point = m_predecessor[point];
    }
    return chain;
}

}  // namespace corvale
