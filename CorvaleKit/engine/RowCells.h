#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale {

// The cells of one result row, found once for all of its columns. Valid while the result's tables live.
class RowCells {
public:
    RowCells(const DiffResult& result, const DiffRow& row)
        : m_before(rowOf(result.before, row.left)), m_after(rowOf(result.after, row.right)) {}
    RowCells(const DiffResult&& result, const DiffRow& row) = delete;

    // An empty text where that side has no such row or column.
    std::string_view before(const ColumnPair& column) const { return cell(m_before, column.left); }
    std::string_view after(const ColumnPair& column) const { return cell(m_after, column.right); }
    // What an unchanged cell shows: After's text where After has the row and the column, else Before's.
    std::string_view shown(const ColumnPair& column) const {
        return m_after && column.right ? after(column) : before(column);
    }

private:
    static std::optional<CellRow> rowOf(const DataTable& table, std::optional<std::int64_t> row) {
        return row ? std::optional(table.rows()[static_cast<std::size_t>(*row)]) : std::nullopt;
    }
    static std::string_view cell(const std::optional<CellRow>& row, std::optional<std::int64_t> column) {
        return row && column ? (*row)[static_cast<std::size_t>(*column)] : std::string_view();
    }

    std::optional<CellRow> m_before;
    std::optional<CellRow> m_after;
};

}  // namespace corvale
