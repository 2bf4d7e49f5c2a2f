#pragma once

#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "Corvale/grid/GridGeometry.h"
#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// What the headers say of a result's columns, looked up once. Columns are indexes into DiffResult::columns.
class GridColumns {
public:
    GridColumns() = default;
    explicit GridColumns(const DiffResult& result);

    // A column's name on one line; After's own over its cells, and both where a column was renamed and the cell is for
    // both sides.
    QString name(std::int64_t column, GridGeometry::CellSide side) const;
    // One of those that rows are matched by.
    bool isKey(std::int64_t column) const { return traits(column).isKey; }
    // Left out of the comparison by the user.
    bool isIgnored(std::int64_t column) const { return traits(column).isIgnored; }
    bool hasChanges(std::int64_t column) const { return traits(column).hasChanges; }
    // The first key column in display order.
    std::optional<std::int64_t> firstKey() const;

private:
    struct Traits {
        QString before;  // or the name that both have
        QString after;
        bool isKey = false;
        bool isIgnored = false;
        bool hasChanges = false;
    };

    const Traits& traits(std::int64_t column) const { return m_traits[static_cast<std::size_t>(column)]; }

    std::vector<Traits> m_traits;
};

}  // namespace corvale
