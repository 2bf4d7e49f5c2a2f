#include "CorvaleKit/loading/CellRows.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "CorvaleKit/base/Require.h"

namespace corvale {

CellRows::CellRows() : m_grid(std::make_shared<const CellGrid>()) {}

CellRows::CellRows(CellGrid grid)
    : m_grid(std::make_shared<const CellGrid>(std::move(grid))), m_count(m_grid->rowCount()) {
    CORVALE_REQUIRE(m_count < std::numeric_limits<std::uint32_t>::max(),
                    "a file has more than four thousand million rows");
}

CellRows CellRows::selected(std::vector<std::uint32_t> positions, std::size_t width) const {
    for (auto& position : positions) {
        position = m_positions ? (*m_positions)[position] : position + static_cast<std::uint32_t>(m_first);
    }
    CellRows chosen;
    chosen.m_grid = m_grid;
    chosen.m_count = positions.size();
    chosen.m_width = width;
    chosen.m_widths = Widths::exact;
    if (!positions.empty()) {
        chosen.m_first = positions.front();
    }
    const auto isGap = [](std::uint32_t a, std::uint32_t b) { return b != a + 1; };
    if (std::adjacent_find(positions.begin(), positions.end(), isGap) != positions.end()) {
        chosen.m_positions = std::make_shared<const std::vector<std::uint32_t>>(std::move(positions));
    }
    return chosen;
}

CellRows CellRows::corner(std::size_t rows, std::size_t cells) const {
    CORVALE_REQUIRE(m_widths == Widths::asStored, "the corner of a list whose rows are already cut was asked for");
    CellRows corner = *this;
    corner.m_count = std::min(m_count, rows);
    corner.m_width = cells;
    corner.m_widths = Widths::cut;
    return corner;
}

bool operator==(const CellRows& a, const CellRows& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
}

}  // namespace corvale
