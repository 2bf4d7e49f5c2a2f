#pragma once

#include <algorithm>
#include <cstddef>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/StoredPositions.h"

namespace corvale {

// Finds the positions in which two rows differ. Of thin rows of a wide table only the cells that they have are read.
class RowComparison {
public:
    using Row = ComparisonTexts::Row;

    // Calls predicate(position) for the positions that differ, in ascending order, until it is true; false when it
    // never is. Both rows are equally wide.
    template <typename Predicate>
    bool anyDifference(const Row& a, const Row& b, Predicate predicate) {
        if (a.isThin() && b.isThin()) {
            m_positions.clear();
            m_positions.add(a);
            m_positions.add(b);
            const auto& positions = m_positions.sorted();
            return std::any_of(positions.begin(), positions.end(), [&](std::size_t position) {
                return a[position] != b[position] && predicate(position);
            });
        }
        if (Row::areAlike(a, b)) {
            return false;
        }
        const std::size_t width = a.size();
        for (std::size_t position = 0; position < width; ++position) {
            if (a[position] != b[position] && predicate(position)) {
                return true;
            }
        }
        return false;
    }

    // Calls visit(position) for all of them.
    template <typename Visit>
    void forEachDifference(const Row& a, const Row& b, Visit visit) {
        anyDifference(a, b, [&visit](std::size_t position) {
            visit(position);
            return false;
        });
    }

    bool isSame(const Row& a, const Row& b) {
        return !anyDifference(a, b, [](std::size_t) { return true; });
    }

private:
    StoredPositions m_positions;
};

}  // namespace corvale
