#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/CellRows.h"

namespace corvale {

// A loaded table: a header row and the data rows below it, every cell a text. An immutable value over shared storage:
// copying costs nothing, and a text stays valid while any copy of the table lives. Equality is by value.
class DataTable {
public:
    // What a table is made of. `rows` are selected() exactly as wide as `headers`; `rowNumbers` has one entry a row, or
    // fewer where the last rows have no number of their own.
    struct Parts {
        std::vector<std::string> headers;
        CellRows rows;
        std::string sourceName;
        std::vector<std::int64_t> rowNumbers;
        std::int64_t headerRowNumber = 1;
        std::int64_t automaticHeaderRowNumber = 1;
        CellRows topRows;

        friend bool operator==(const Parts&, const Parts&) = default;
    };

    DataTable();
    explicit DataTable(Parts parts);
    // From texts in memory: rows are padded with empty texts or cut to the header count. Row numbers are taken when
    // there is one a row, else counted on from the header row.
    DataTable(std::vector<std::string> headers, const std::vector<std::vector<std::string>>& rows,
              std::string sourceName, std::vector<std::int64_t> rowNumbers = {}, std::int64_t headerRowNumber = 1);

    // One unique name a column.
    const std::vector<std::string>& headers() const& { return m_parts->headers; }
    const CellRows& rows() const& { return m_parts->rows; }
    // The file's name as shown to the user.
    const std::string& sourceName() const& { return m_parts->sourceName; }
    // The 1-based number in the source file of each data row.
    const std::vector<std::int64_t>& rowNumbers() const& { return m_parts->rowNumbers; }
    std::int64_t headerRowNumber() const { return m_parts->headerRowNumber; }
    // The one that the header row has unless another is chosen.
    std::int64_t automaticHeaderRowNumber() const { return m_parts->automaticHeaderRowNumber; }
    // The first 12 source rows, blank ones included, each cut to 12 cells; for choosing another header row.
    const CellRows& topRows() const& { return m_parts->topRows; }

    // A view of a table that nobody keeps would dangle.
    const std::vector<std::string>& headers() const&& = delete;
    const CellRows& rows() const&& = delete;
    const std::string& sourceName() const&& = delete;
    const std::vector<std::int64_t>& rowNumbers() const&& = delete;
    const CellRows& topRows() const&& = delete;

    // The source row number of a data row; for a row that has none, the one it would have below a header in row 1.
    std::int64_t rowNumber(std::size_t row) const;

    // Whether it shares its storage with `other`: equal, and known to be at a look.
    bool isCopyOf(const DataTable& other) const { return m_parts == other.m_parts; }

    // The stored form, JSON without what only serves while a file is open: topRows, and the automatic header row.
    std::string encoded() const;
    // Throws DecodingError.
    static DataTable decoded(std::string_view json);

    friend bool operator==(const DataTable& a, const DataTable& b) {
        return a.m_parts == b.m_parts || *a.m_parts == *b.m_parts;
    }

    template <typename H>
    friend H AbslHashValue(H state, const DataTable& table) {
        for (const CellRow row : table.rows()) {
            for (const std::string_view cell : row) {
                state = H::combine(std::move(state), cell);
            }
        }
        return H::combine(
            std::move(state), table.headers(), table.sourceName(), table.rowNumbers(), table.headerRowNumber());
    }

private:
    std::shared_ptr<const Parts> m_parts;
};

}  // namespace corvale
