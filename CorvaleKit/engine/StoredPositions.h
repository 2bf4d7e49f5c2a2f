#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"

namespace corvale {

// The positions at which one of some rows may hold a text: those whose cells the source has. A list to be used anew for
// other rows, without allocating.
class StoredPositions {
public:
    void clear() { m_positions.clear(); }

    void add(const ComparisonTexts::Row& row) {
        row.forEachStored([this](std::size_t position) { m_positions.push_back(position); });
    }

    // Ascending, each once; valid until the next call of any kind.
    const std::vector<std::size_t>& sorted() {
        std::sort(m_positions.begin(), m_positions.end());
        m_positions.erase(std::unique(m_positions.begin(), m_positions.end()), m_positions.end());
        return m_positions;
    }

private:
    std::vector<std::size_t> m_positions;
};

}  // namespace corvale
