#include "Corvale/grid/GridColumns.h"

#include <algorithm>

#include "Corvale/grid/CellText.h"
#include "Corvale/model/Columns.h"
#include "CorvaleKit/engine/KeyMatching.h"

namespace corvale {

namespace {

// A name is never cut short of what its tooltip can show.
constexpr std::size_t longestName = 1000;

// The key columns of both tables.
class KeyIndexes {
public:
    explicit KeyIndexes(const DiffResult& result)
        : m_before(KeyMatching::keyColumns(result.match.columns(), result.before)),
          m_after(KeyMatching::keyColumns(result.match.columns(), result.after)) {}

    bool contain(const ColumnPair& column) const {
        return contains(m_before, column.left) || contains(m_after, column.right);
    }

private:
    static bool contains(const std::vector<std::size_t>& keys, std::optional<std::int64_t> column) {
        return column && std::find(keys.begin(), keys.end(), static_cast<std::size_t>(*column)) != keys.end();
    }

    std::vector<std::size_t> m_before;
    std::vector<std::size_t> m_after;
};

}  // namespace

GridColumns::GridColumns(const DiffResult& result) {
    const KeyIndexes keys(result);
    m_traits.reserve(result.columns.size());
    for (const ColumnPair& column : result.columns) {
        Traits traits;
        traits.before = CellText::shortened(column.name, longestName);
        traits.after = column.renamedTo ? CellText::shortened(*column.renamedTo, longestName) : traits.before;
        traits.isKey = keys.contain(column);
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
