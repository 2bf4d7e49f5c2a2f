#include "CorvaleKit/engine/DiffRow.h"

#include <algorithm>
#include <string>

#include "CorvaleKit/base/RunningNumber.h"
#include "CorvaleKit/engine/DisplayKey.h"

namespace corvale {

namespace {

std::optional<std::int64_t> index(std::uint32_t row) {
    return row == RowPair::none ? std::nullopt : std::optional<std::int64_t>(row);
}

}  // namespace

struct DiffRows::Storage {
    DataTable before;
    DataTable after;
    RowKeys keys;
    bool keysAreCells = false;  // one key column: a key is part of a cell
    std::vector<RowPair> pairs;
    std::vector<std::size_t> changeStarts{0};  // into changes, one more than pairs
    std::vector<CellChange> changes;
    std::string keyTexts;                   // all keys in a row, unless keysAreCells
    std::vector<std::size_t> keyStarts{0};  // into keyTexts
    RunningNumber keyNumber;                // while keys are added

    std::string_view key(std::size_t row) const {
        if (!keysAreCells) {
            return std::string_view(keyTexts).substr(keyStarts[row], keyStarts[row + 1] - keyStarts[row]);
        }
        const RowPair pair = pairs[row];
        return DisplayKey::ofCell(pair.hasRight() ? after.rows()[pair.right][keys.afterColumns[0]]
                                                  : before.rows()[pair.left][keys.beforeColumns[0]]);
    }

    void appendKey(RowPair pair) {
        if (keys.areRowNumbers) {
            keyNumber.append(keyTexts, pair.hasRight() ? after.rowNumber(pair.right) : before.rowNumber(pair.left));
        } else if (pair.hasRight()) {
            DisplayKey::append(keyTexts, after.rows()[pair.right], keys.afterColumns);
        } else {
            DisplayKey::append(keyTexts, before.rows()[pair.left], keys.beforeColumns);
        }
        keyStarts.push_back(keyTexts.size());
    }

    DiffRow::Status status(std::size_t row) const {
        if (!pairs[row].hasLeft()) {
            return DiffRow::Status::added;
        }
        if (!pairs[row].hasRight()) {
            return DiffRow::Status::removed;
        }
        return changeStarts[row] == changeStarts[row + 1] ? DiffRow::Status::same : DiffRow::Status::changed;
    }
};

bool operator==(const DiffRow& a, const DiffRow& b) {
    return a.status == b.status && a.left == b.left && a.right == b.right && a.key == b.key &&
           std::equal(a.changes.begin(), a.changes.end(), b.changes.begin(), b.changes.end());
}

DiffRows::DiffRows() : m_storage(std::make_shared<const Storage>()) {}

std::size_t DiffRows::size() const { return m_storage->pairs.size(); }

DiffRow DiffRows::operator[](std::size_t row) const& {
    const RowPair pair = m_storage->pairs[row];
    return {status(row), index(pair.left), index(pair.right), m_storage->key(row), changes(row)};
}

DiffRow::Status DiffRows::status(std::size_t row) const { return m_storage->status(row); }

std::span<const CellChange> DiffRows::changes(std::size_t row) const& {
    const auto& starts = m_storage->changeStarts;
    return std::span(m_storage->changes).subspan(starts[row], starts[row + 1] - starts[row]);
}

bool operator==(const DiffRows& a, const DiffRows& b) {
    return a.m_storage == b.m_storage || (a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin()));
}

DiffRows::Builder::Builder(DataTable before, DataTable after, RowKeys keys, std::size_t expectedRows)
    : m_storage(std::make_unique<Storage>()) {
    m_storage->before = std::move(before);
    m_storage->after = std::move(after);
    m_storage->keysAreCells = !keys.areRowNumbers && keys.beforeColumns.size() == 1 && keys.afterColumns.size() == 1;
    m_storage->keys = std::move(keys);
    m_storage->pairs.reserve(expectedRows);
    m_storage->changeStarts.reserve(expectedRows + 1);
    if (!m_storage->keysAreCells) {
        m_storage->keyStarts.reserve(expectedRows + 1);
    }
}

DiffRows::Builder::~Builder() = default;

void DiffRows::Builder::addChange(std::int32_t column, ChangeKind kind) {
    m_storage->changes.push_back({column, kind});
}

DiffRow::Status DiffRows::Builder::add(RowPair pair) {
    m_storage->pairs.push_back(pair);
    m_storage->changeStarts.push_back(m_storage->changes.size());
    if (!m_storage->keysAreCells) {
        m_storage->appendKey(pair);
    }
    return m_storage->status(m_storage->pairs.size() - 1);
}

DiffRows DiffRows::Builder::finish() { return DiffRows(std::shared_ptr<const Storage>(std::move(m_storage))); }

}  // namespace corvale
