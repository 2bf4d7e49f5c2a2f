#include "CorvaleKit/engine/RowInterner.h"

#include <absl/container/flat_hash_set.h>
#include <absl/hash/hash.h>

#include <string>
#include <string_view>

#include "CorvaleKit/engine/Callbacks.h"

namespace corvale {

namespace {

// The text of a row: the cell itself where there is one column, else joined in `scratch`.
std::string_view joined(const ComparisonTexts::Row& row, std::string& scratch) {
    const std::size_t columns = row.size();
    if (columns == 1) {
        return row[0];
    }
    scratch.clear();
    for (std::size_t position = 0; position < columns; ++position) {
        if (position > 0) {
            scratch += RowInterner::separator;
        }
        scratch += row[position];
    }
    return scratch;
}

// The same as joined(row) == text, without joining.
bool hasJoinedText(const ComparisonTexts::Row& row, std::string_view text) {
    for (std::size_t position = 0; position < row.size(); ++position) {
        if (position > 0) {
            if (text.empty() || text.front() != RowInterner::separator) {
                return false;
            }
            text.remove_prefix(1);
        }
        const std::string_view cell = row[position];
        if (text.substr(0, cell.size()) != cell) {
            return false;
        }
        text.remove_prefix(cell.size());
    }
    return text.empty();
}

}  // namespace

// The set holds ids; an id's text is read from the first row that had it.
class RowInterner::Index {
public:
    Index(const ComparisonTexts& before, const ComparisonTexts& after)
        : m_before(before), m_after(after), m_ids(0, Hash{this}, Equal{this}) {
        m_ids.reserve(before.rowCount());
        m_firstRows.reserve(before.rowCount());
    }

    std::vector<std::uint32_t> intern(const ComparisonTexts& texts, const std::function<void(std::size_t)>& onRow) {
        std::vector<std::uint32_t> ids;
        ids.reserve(texts.rowCount());
        for (std::size_t row = 0; row < texts.rowCount(); ++row) {
            if (row % rowsPerPoll == 0 && onRow) {
                onRow(row);
            }
            ids.push_back(idOf(joined(texts.row(row), m_scratch), static_cast<std::uint32_t>(row)));
        }
        return ids;
    }

    std::vector<std::uint32_t> internBefore(const std::function<void(std::size_t)>& onRow) {
        auto ids = intern(m_before, onRow);
        m_beforeIds = m_firstRows.size();
        return ids;
    }

    std::vector<std::uint32_t> internAfter(const std::function<void(std::size_t)>& onRow) {
        return intern(m_after, onRow);
    }

    std::optional<std::uint32_t> find(std::string_view text) const {
        const auto found = m_ids.find(text);
        return found == m_ids.end() ? std::nullopt : std::optional(*found);
    }

    std::size_t idCount() const { return m_firstRows.size(); }

private:
    struct Hash {
        using is_transparent = void;
        const Index* index;
        std::size_t operator()(std::string_view text) const { return absl::HashOf(text); }
        std::size_t operator()(std::uint32_t id) const {
            std::string scratch;
            return absl::HashOf(joined(index->firstRow(id), scratch));
        }
    };

    struct Equal {
        using is_transparent = void;
        const Index* index;
        bool operator()(std::uint32_t a, std::uint32_t b) const { return a == b; }
        bool operator()(std::uint32_t id, std::string_view text) const {
            return hasJoinedText(index->firstRow(id), text);
        }
    };

    std::uint32_t idOf(std::string_view text, std::uint32_t row) {
        const auto next = static_cast<std::uint32_t>(m_firstRows.size());
        const auto found = m_ids.lazy_emplace(text, [&](const auto& construct) { construct(next); });
        if (*found == next) {
            m_firstRows.push_back(row);
        }
        return *found;
    }

    ComparisonTexts::Row firstRow(std::uint32_t id) const {
        return (id < m_beforeIds ? m_before : m_after).row(m_firstRows[id]);
    }

    const ComparisonTexts& m_before;
    const ComparisonTexts& m_after;
    std::size_t m_beforeIds = static_cast<std::size_t>(-1);  // ids below it were first seen in Before
    std::vector<std::uint32_t> m_firstRows;                  // by id
    std::string m_scratch;
    absl::flat_hash_set<std::uint32_t, Hash, Equal> m_ids;
};

RowInterner::RowInterner(const ComparisonTexts& before, const ComparisonTexts& after)
    : m_index(std::make_unique<Index>(before, after)) {}

RowInterner::~RowInterner() = default;

std::vector<std::uint32_t> RowInterner::internBefore(const std::function<void(std::size_t)>& onRow) {
    return m_index->internBefore(onRow);
}

std::vector<std::uint32_t> RowInterner::internAfter(const std::function<void(std::size_t)>& onRow) {
    return m_index->internAfter(onRow);
}

std::optional<std::uint32_t> RowInterner::find(std::string_view text) const { return m_index->find(text); }

std::size_t RowInterner::idCount() const { return m_index->idCount(); }

}  // namespace corvale
