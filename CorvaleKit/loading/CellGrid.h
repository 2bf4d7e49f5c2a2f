#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/base/Bytes.h"
#include "CorvaleKit/loading/PackedCell.h"

namespace corvale {

class CellRow;

// An immutable ragged grid of texts in one buffer: what a file holds before a header row is chosen. A row of
// scattered cells keeps column numbers instead of the cells between, so that a far-away cell costs no more than a near
// one. Its rows are read through CellRow.
class CellGrid {
public:
    CellGrid();
    CellGrid(CellGrid&&) noexcept = default;
    CellGrid& operator=(CellGrid&&) noexcept = default;
    CellGrid(const CellGrid&) = delete;
    CellGrid& operator=(const CellGrid&) = delete;
    ~CellGrid() = default;

    // Copies the texts; for tables that come from memory.
    static CellGrid fromTexts(const std::vector<std::vector<std::string>>& rows);

    std::size_t rowCount() const { return m_rowStarts.size() - 1; }
    // As wide as the source has it, trailing empty cells included.
    CellRow row(std::size_t index) const;
    // True when all rows are known to be tidy.
    bool isTidy() const { return m_tidyRows == rowCount(); }
    // The byte between cells of a row that lie one byte apart, which neither of them has; none where no such byte is
    // known.
    std::optional<char> delimiter() const { return m_delimiter; }

    // Of a PackedCell of this grid.
    std::string_view text(std::uint64_t packed) const {
        if (PackedCell::isLong(packed)) [[unlikely]] {
            return longText(PackedCell::offset(packed));
        }
        return {m_base + PackedCell::offset(packed), PackedCell::length(packed)};
    }

private:
    friend class CellGridBuilder;

    struct LongCell {
        std::uint64_t offset = 0;
        std::uint64_t length = 0;
    };

    std::string_view longText(std::uint64_t index) const;

    static constexpr std::uint64_t sparseFlag = std::uint64_t{1} << 63U;
    static constexpr std::uint64_t tidyFlag = std::uint64_t{1} << 62U;
    static constexpr std::uint64_t notBlankFlag = std::uint64_t{1} << 61U;
    static constexpr std::uint64_t plainFlag = std::uint64_t{1} << 60U;
    static constexpr std::uint64_t cellIndex = plainFlag - 1;

    Bytes m_buffer;
    const char* m_base = nullptr;
    std::vector<std::uint64_t> m_cells;
    std::vector<std::uint64_t> m_rowStarts;  // one more than rows; with the flags of each row
    std::vector<LongCell> m_longCells;
    std::size_t m_tidyRows = 0;
    std::optional<char> m_delimiter;
};

}  // namespace corvale
