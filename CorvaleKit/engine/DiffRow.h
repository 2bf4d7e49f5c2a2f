#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/base/IndexIterator.h"
#include "CorvaleKit/engine/EnumTexts.h"
#include "CorvaleKit/engine/RowPair.h"
#include "CorvaleKit/loading/DataTable.h"

namespace corvale {

// How two cell texts differ. A kind other than `value` is a type-only change.
enum class ChangeKind : std::uint8_t {
    value,
    numberFormat,  // the same number, written differently
    letterCase,    // only letter case
    whitespace,    // only spaces at the ends or doubled spaces
};

template <>
inline constexpr std::array<EnumText<ChangeKind>, 4> enumTexts<ChangeKind>{{
    {ChangeKind::value, "value"},
    {ChangeKind::numberFormat, "numberFormat"},
    {ChangeKind::letterCase, "letterCase"},
    {ChangeKind::whitespace, "whitespace"},
}};
static_assert(enumTextsAreInOrder<ChangeKind>());

// One differing cell of a changed row.
struct CellChange {
    std::int32_t column = 0;  // index into DiffResult::columns
    ChangeKind kind = ChangeKind::value;

    friend bool operator==(const CellChange&, const CellChange&) = default;

    template <typename H>
    friend H AbslHashValue(H state, const CellChange& c) {
        return H::combine(std::move(state), c.column, c.kind);
    }
};

// One row of a result, read out of DiffRows; its views live as long as that list or a copy of it.
struct DiffRow {
    enum class Status : std::uint8_t { added, removed, changed, same };

    Status status = Status::same;
    std::optional<std::int64_t> left;     // row index in Before; none when added
    std::optional<std::int64_t> right;    // row index in After; none when removed
    std::string_view key;                 // what the user knows the row by: its key, or its row number
    std::span<const CellChange> changes;  // in column order; empty unless changed

    friend bool operator==(const DiffRow& a, const DiffRow& b);

    template <typename H>
    friend H AbslHashValue(H state, const DiffRow& row) {
        state = H::combine(std::move(state), row.status, row.left, row.right, row.key, row.changes.size());
        for (const CellChange& change : row.changes) {
            state = H::combine(std::move(state), change);
        }
        return state;
    }
};

template <>
inline constexpr std::array<EnumText<DiffRow::Status>, 4> enumTexts<DiffRow::Status>{{
    {DiffRow::Status::added, "added"},
    {DiffRow::Status::removed, "removed"},
    {DiffRow::Status::changed, "changed"},
    {DiffRow::Status::same, "same"},
}};
static_assert(enumTextsAreInOrder<DiffRow::Status>());

// Where the display keys of result rows come from.
struct RowKeys {
    bool areRowNumbers = true;  // source row numbers, else the cells of the key columns
    std::vector<std::size_t> beforeColumns;
    std::vector<std::size_t> afterColumns;
};

// The immutable rows of a result, 16 bytes each; copying shares them. A key in one column is read from its table, any
// other is kept here.
class DiffRows {
public:
    using Iterator = IndexIterator<DiffRows, DiffRow>;
    class Builder;

    DiffRows();

    std::size_t size() const;
    bool empty() const { return size() == 0; }
    // `row` is below size().
    DiffRow operator[](std::size_t row) const&;
    // Cheaper than the whole row where only this matters.
    DiffRow::Status status(std::size_t row) const;
    std::span<const CellChange> changes(std::size_t row) const&;

    // A view into a list that nobody keeps would dangle.
    DiffRow operator[](std::size_t row) const&& = delete;
    std::span<const CellChange> changes(std::size_t row) const&& = delete;

    Iterator begin() const { return {*this, 0}; }
    Iterator end() const { return {*this, size()}; }

    friend bool operator==(const DiffRows& a, const DiffRows& b);

    template <typename H>
    friend H AbslHashValue(H state, const DiffRows& rows) {
        for (const DiffRow row : rows) {
            state = H::combine(std::move(state), row);
        }
        return H::combine(std::move(state), rows.size());
    }

private:
    struct Storage;
    explicit DiffRows(std::shared_ptr<const Storage> storage) : m_storage(std::move(storage)) {}

    std::shared_ptr<const Storage> m_storage;
};

// Collects result rows in display order.
class DiffRows::Builder {
public:
    // `expectedRows` is a guess, to take memory once.
    Builder(DataTable before, DataTable after, RowKeys keys, std::size_t expectedRows);
    ~Builder();
    Builder(const Builder&) = delete;
    Builder& operator=(const Builder&) = delete;

    // Adds a change to the row that the next add() ends.
    void addChange(std::int32_t column, ChangeKind kind);
    // The status that the row got.
    DiffRow::Status add(RowPair pair);
    // The builder is spent afterwards.
    DiffRows finish();

private:
    std::unique_ptr<Storage> m_storage;
};

}  // namespace corvale
