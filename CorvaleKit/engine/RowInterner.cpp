#include "CorvaleKit/engine/RowInterner.h"

#include <absl/container/flat_hash_set.h>
#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "CorvaleKit/base/Memory.h"
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
    // Looking up so many rows at once lets their cache misses overlap.
    static constexpr std::size_t batchSize = 32;
    static_assert(rowsPerPoll % batchSize == 0);

    Index(const ComparisonTexts& before, const ComparisonTexts& after)
        : m_before(before), m_after(after), m_ids(0, Hash{this}, Equal{this}) {
        m_ids.reserve(before.rowCount());
        m_firstRows.reserve(before.rowCount());
    }

    std::vector<std::uint32_t> intern(const ComparisonTexts& texts, const std::function<void(std::size_t)>& onRow) {
        std::vector<std::uint32_t> ids;
        ids.reserve(texts.rowCount());
        for (std::size_t start = 0; start < texts.rowCount(); start += batchSize) {
            if (start % rowsPerPoll == 0 && onRow) {
                onRow(start);
            }
            const std::size_t count = std::min(batchSize, texts.rowCount() - start);
            prefetchRows(texts, start + batchSize);
            for (std::size_t i = 0; i < count; ++i) {
                m_batch[i].text = joined(texts.row(start + i), m_batch[i].scratch);
                m_batch[i].hash = hashOf(m_batch[i].text);
                m_ids.prefetch(m_batch[i]);
            }
            for (std::size_t i = 0; i < count; ++i) {
                ids.push_back(idOf(m_batch[i], static_cast<std::uint32_t>(start + i)));
            }
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
        const auto found = m_ids.find(Probe{text, hashOf(text), {}});
        return found == m_ids.end() ? std::nullopt : std::optional(*found);
    }

    std::size_t idCount() const { return m_firstRows.size(); }

private:
    // A text to look up, hashed once.
    struct Probe {
        std::string_view text;
        std::size_t hash = 0;
        std::string scratch;  // holds the text of a row with several columns
    };

    static std::size_t hashOf(std::string_view text) {
        return absl::HashOf(absl::string_view(text.data(), text.size()));
    }

    struct Hash {
        using is_transparent = void;
        const Index* index;
        std::size_t operator()(const Probe& probe) const { return probe.hash; }
        std::size_t operator()(std::uint32_t id) const {
            std::string scratch;
            return hashOf(joined(index->firstRow(id), scratch));
        }
    };

    struct Equal {
        using is_transparent = void;
        const Index* index;
        bool operator()(std::uint32_t a, std::uint32_t b) const { return a == b; }
        bool operator()(std::uint32_t id, const Probe& probe) const {
            return hasJoinedText(index->firstRow(id), probe.text);
        }
    };

    // The cells of the next batch.
    static void prefetchRows(const ComparisonTexts& texts, std::size_t start) {
        const std::size_t end = std::min(start + batchSize, texts.rowCount());
        for (std::size_t row = start; texts.columnCount() == 1 && row < end; ++row) {
            Memory::prefetch(texts.row(row)[0].data());
        }
    }

    std::uint32_t idOf(const Probe& probe, std::uint32_t row) {
        const auto next = static_cast<std::uint32_t>(m_firstRows.size());
        const auto found = m_ids.lazy_emplace(probe, [&](const auto& construct) { construct(next); });
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
    std::array<Probe, batchSize> m_batch;
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
