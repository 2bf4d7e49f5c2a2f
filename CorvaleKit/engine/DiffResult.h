#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/DiffOptions.h"
#include "CorvaleKit/engine/DiffRow.h"
#include "CorvaleKit/engine/EnumTexts.h"
#include "CorvaleKit/loading/DataTable.h"

namespace corvale {

// One column of the comparison; compared when it has both sides and is not ignored.
struct ColumnPair {
    std::string name;                      // the Before header, else the After header
    std::optional<std::int64_t> left;      // column index in Before; none: only in After
    std::optional<std::int64_t> right;     // column index in After; none: only in Before
    bool ignored = false;                  // a key column or chosen by the user: shown, not compared
    std::optional<std::string> renamedTo;  // by position only: the After header where it is another name

    bool isCompared() const { return left && right && !ignored; }

    friend bool operator==(const ColumnPair&, const ColumnPair&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const ColumnPair& c) {
        return H::combine(std::move(state), c.name, c.left, c.right, c.ignored, c.renamedTo);
    }
};

// A key text on more than one row of one side.
struct DuplicateKey {
    enum class Side : std::uint8_t { before, after };

    std::string key;  // as shown to the user
    Side side = Side::before;
    std::vector<std::int64_t> rowNumbers;  // source row numbers in table order

    friend bool operator==(const DuplicateKey&, const DuplicateKey&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const DuplicateKey& d) {
        return H::combine(std::move(state), d.key, d.side, d.rowNumbers);
    }
};

template <>
inline constexpr std::array<EnumText<DuplicateKey::Side>, 2> enumTexts<DuplicateKey::Side>{{
    {DuplicateKey::Side::before, "before"},
    {DuplicateKey::Side::after, "after"},
}};
static_assert(enumTextsAreInOrder<DuplicateKey::Side>());

// Source row numbers of the rows whose key cells are all empty; they are never paired.
struct BlankKeys {
    std::vector<std::int64_t> before;
    std::vector<std::int64_t> after;

    friend bool operator==(const BlankKeys&, const BlankKeys&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const BlankKeys& b) {
        return H::combine(std::move(state), b.before, b.after);
    }
};

// Counts of one comparison.
struct DiffSummary {
    std::int64_t added = 0;
    std::int64_t removed = 0;
    std::int64_t changed = 0;
    std::int64_t same = 0;
    std::int64_t changedCells = 0;
    std::int64_t typeOnlyCells = 0;  // changed cells whose kind is not `value`
    std::int64_t addedColumns = 0;
    std::int64_t removedColumns = 0;
    std::map<std::int64_t, std::int64_t> changesByColumn;  // index into columns -> changed cells, at least 1

    // A row is not the same on both sides, or a column is on one side only.
    bool hasDifferences() const;

    friend bool operator==(const DiffSummary&, const DiffSummary&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const DiffSummary& s) {
        return H::combine(std::move(state),
                          s.added,
                          s.removed,
                          s.changed,
                          s.same,
                          s.changedCells,
                          s.typeOnlyCells,
                          s.addedColumns,
                          s.removedColumns,
                          s.changesByColumn);
    }
};

// Everything a comparison produced. A value that shares its tables and rows when copied.
struct DiffResult {
    DataTable before;
    DataTable after;
    std::vector<ColumnPair> columns;       // in display order
    DiffRows rows;                         // in display order
    std::vector<DuplicateKey> duplicates;  // Before entries first, each side by the first row of the key
    BlankKeys blankKeys;
    RowMatch match;
    DiffOptions options;                                // as given
    NumberStyle numberStyle = NumberStyle::dotDecimal;  // as used, never automatic
    bool columnOrderChanged = false;
    DiffSummary summary;
    double duration = 0;  // seconds, wall clock

    // The cell of a result row in a result column; an empty text where that side has no such row or column. The view
    // lives as long as the table.
    std::string_view cellBefore(const DiffRow& row, const ColumnPair& column) const&;
    std::string_view cellAfter(const DiffRow& row, const ColumnPair& column) const&;

    // A view into a result that nobody keeps would dangle.
    std::string_view cellBefore(const DiffRow& row, const ColumnPair& column) const&& = delete;
    std::string_view cellAfter(const DiffRow& row, const ColumnPair& column) const&& = delete;

    // The source row number to show for a result row: After's, else Before's.
    std::int64_t rowNumber(const DiffRow& row) const;
    // The number on one side; none where the row is not on that side.
    std::optional<std::int64_t> rowNumber(DuplicateKey::Side side, const DiffRow& row) const;

    friend bool operator==(const DiffResult&, const DiffResult&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const DiffResult& r) {
        return H::combine(std::move(state),
                          r.before,
                          r.after,
                          r.columns,
                          r.rows,
                          r.duplicates,
                          r.blankKeys,
                          r.match,
                          r.options,
                          r.numberStyle,
                          r.columnOrderChanged,
                          r.summary,
                          r.duration);
    }
};

}  // namespace corvale
