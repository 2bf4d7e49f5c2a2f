#include "Corvale/grid/GridColumns.h"

#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/model/Columns.h"
#include "CorvaleKit/engine/KeyMatching.h"

namespace corvale {

namespace {

// A name is never cut short of what its tooltip can show.
constexpr std::size_t longestName = 1000;

}  // namespace

GridColumns::GridColumns(const DiffResult& result) {
    const std::vector<bool> areKeys = KeyMatching::areKeyColumns(result);
    m_traits.reserve(result.columns.size());
    for (const ColumnPair& column : result.columns) {
        Traits traits;
        traits.before = CellText::shortened(column.name, longestName);
        traits.after = column.renamedTo ? CellText::shortened(*column.renamedTo, longestName) : traits.before;
        traits.isKey = areKeys[m_traits.size()];
        // No key column is compared, which need not be the user's doing.
        traits.isIgnored = column.ignored && (!traits.isKey || Columns::isIgnored(result.options, column.name));
        traits.hasChanges = result.summary.changesByColumn.contains(static_cast<std::int64_t>(m_traits.size()));
        m_traits.push_back(std::move(traits));
    }
}

QString GridColumns::name(std::int64_t column, GridGeometry::CellSide side) const {
    const Traits& names = traits(column);
    switch (side) {
        case GridGeometry::CellSide::before:
            return names.before;
        case GridGeometry::CellSide::after:
            return names.after;
        case GridGeometry::CellSide::both:
            break;
    }
    return names.before == names.after ? names.before : names.before + QStringLiteral(" → ") + names.after;
}

std::optional<std::int64_t> GridColumns::firstKey() const {
    const auto found = std::find_if(m_traits.begin(), m_traits.end(), [](const Traits& t) { return t.isKey; });
    return found == m_traits.end() ? std::nullopt : std::optional<std::int64_t>(found - m_traits.begin());
}

}  // namespace corvale
