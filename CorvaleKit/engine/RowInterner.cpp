#include "CorvaleKit/engine/RowInterner.h"

#include <algorithm>
#include <array>
#include <limits>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/Callbacks.h"
#include "CorvaleKit/engine/RowComparison.h"

namespace corvale {

// Two sets of ids, those first seen in Before and those first seen in After, so that neither outgrows the room that it
// gets at once; room not used is never touched. An id's text is read from the first row that had it.
class RowInterner::Index {
public:
    Index(const ComparisonTexts& before, const ComparisonTexts& after)
        : m_before(before),
          m_after(after),
          m_joinedText(before.delimiter().value_or(JoinedText::separator)),
          m_beforeSet(Hash{this}, Equal{this}),
          m_afterSet(Hash{this}, Equal{this}) {
        CORVALE_REQUIRE(before.columnCount() == after.columnCount(), "rows with other numbers of columns are compared");
        CORVALE_REQUIRE(before.rowCount() + after.rowCount() < std::numeric_limits<std::uint32_t>::max(),
                        "two tables have more than four thousand million rows");
        m_beforeSet.reserve(before.rowCount());
        m_firsts.reserve(before.rowCount() + after.rowCount());
    }

    // Hashes a block of rows before it looks the first one up, so that the places in the set, all over the memory, are
    // on their way when they are needed.
    std::vector<std::uint32_t> internBefore(const std::function<void(std::size_t)>& onRow) {
        std::vector<std::uint32_t> ids;
        ids.reserve(m_before.rowCount());
        std::array<std::size_t, rowsPerBlock> hashes;
        for (std::size_t begin = 0; begin < m_before.rowCount(); begin += rowsPerBlock) {
            callEvery4096th(begin, onRow);
            const std::size_t end = std::min(begin + rowsPerBlock, m_before.rowCount());
            for (std::size_t row = begin; row < end; ++row) {
                m_before.prefetchBelow(row);
                hashes[row - begin] = m_joinedText.hash(m_before.row(row));
                m_beforeSet.prefetch(Candidate{hashes[row - begin], &m_before, row});
            }
            for (std::size_t row = begin; row < end; ++row) {
                ids.push_back(idIn(m_beforeSet, {hashes[row - begin], &m_before, row}));
            }
        }
        m_beforeIdCount = m_firsts.size();
        m_beforeIds = ids;
        return ids;
    }

    std::vector<std::uint32_t> internAfter(const std::function<void(std::size_t)>& onRow) {
        std::vector<std::uint32_t> ids;
        ids.reserve(m_after.rowCount());
        m_afterSet.reserve(m_after.rowCount());
        for (std::size_t row = 0; row < m_after.rowCount(); ++row) {
            callEvery4096th(row, onRow);
            m_after.prefetchBelow(row);
            m_before.prefetchBelow(m_likelyRow);
            ids.push_back(idOfAfterRow(row));
        }
        return ids;
    }

    std::optional<std::uint32_t> find(std::string_view text) const {
        const Text wanted{m_joinedText.hash(text, m_before.columnCount()), text};
        for (const IdSet* set : {&m_beforeSet, &m_afterSet}) {
            if (const auto found = set->find(wanted); found != set->end()) {
                return *found;
            }
        }
        return std::nullopt;
    }

    std::size_t idCount() const { return m_firsts.size(); }
    bool sameIdMeansSameCells() const { return m_sameIdMeansSameCells; }

private:
    static constexpr std::size_t rowsPerBlock = 32;
    static_assert(rowsPerPoll % rowsPerBlock == 0);

    struct First {
        std::size_t hash = 0;
        std::uint32_t row = 0;
    };
    struct Text {
        std::size_t hash = 0;
        std::string_view joined;
    };
    struct Candidate {
        std::size_t hash = 0;
        const ComparisonTexts* texts = nullptr;
        std::size_t row = 0;
    };

    struct Hash {
        using is_transparent = void;
        const Index* index;
        std::size_t operator()(std::uint32_t id) const { return index->m_firsts[id].hash; }
        std::size_t operator()(const Text& text) const { return text.hash; }
        std::size_t operator()(const Candidate& candidate) const { return candidate.hash; }
    };

    struct Equal {
        using is_transparent = void;
        const Index* index;
        bool operator()(std::uint32_t a, std::uint32_t b) const { return a == b; }
        bool operator()(std::uint32_t id, const Text& text) const {
            return index->m_firsts[id].hash == text.hash && JoinedText::isEqual(index->firstRow(id), text.joined);
        }
        bool operator()(std::uint32_t id, const Candidate& candidate) const { return index->isSame(id, candidate); }
    };

    using IdSet = HashSet<std::uint32_t, Hash, Equal>;

    static void callEvery4096th(std::size_t row, const std::function<void(std::size_t)>& onRow) {
        if (row % rowsPerPoll == 0 && onRow) {
            onRow(row);
        }
    }

    // Most rows of an edited table follow the row that they followed before: one comparison then saves hashing the row
    // and jumping about in the set.
    std::uint32_t idOfAfterRow(std::size_t index) {
        const auto row = m_after.row(index);
        if (m_likelyRow < m_beforeIds.size() && m_comparison.isSame(m_before.row(m_likelyRow), row)) {
            return m_beforeIds[m_likelyRow++];
        }
        const Candidate candidate{m_joinedText.hash(row), &m_after, index};
        const auto known = m_beforeSet.find(candidate);
        if (known == m_beforeSet.end()) {
            ++m_likelyRow;
            return idIn(m_afterSet, candidate);
        }
        m_likelyRow = m_firsts[*known].row + std::size_t{1};
        return *known;
    }

    std::uint32_t idIn(IdSet& set, const Candidate& candidate) {
        const auto next = static_cast<std::uint32_t>(m_firsts.size());
        const auto found = set.lazy_emplace(candidate, [&](const auto& construct) { construct(next); });
        if (*found == next) {
            m_firsts.push_back({candidate.hash, static_cast<std::uint32_t>(candidate.row)});
        }
        return *found;
    }

    // Rows with different cells can still join to one text, when a cell holds a separator itself.
    bool isSame(std::uint32_t id, const Candidate& candidate) const {
        if (m_firsts[id].hash != candidate.hash) {
            return false;
        }
        const auto first = firstRow(id);
        const auto row = candidate.texts->row(candidate.row);
        if (m_comparison.isSame(first, row)) {
            return true;
        }
        const bool joinsToTheSame = JoinedText::isEqual(first, row);
        m_sameIdMeansSameCells = m_sameIdMeansSameCells && !joinsToTheSame;
        return joinsToTheSame;
    }

    ComparisonTexts::Row firstRow(std::uint32_t id) const {
        return (id < m_beforeIdCount ? m_before : m_after).row(m_firsts[id].row);
    }

    const ComparisonTexts& m_before;
    const ComparisonTexts& m_after;
    std::size_t m_beforeIdCount = std::numeric_limits<std::size_t>::max();  // ids below it were first seen in Before
    std::vector<std::uint32_t> m_beforeIds;
    std::size_t m_likelyRow = 0;  // the Before row that the next After row probably repeats
    std::vector<First> m_firsts;  // by id
    JoinedText m_joinedText;
    mutable RowComparison m_comparison;
    mutable bool m_sameIdMeansSameCells = true;
    IdSet m_beforeSet;
    IdSet m_afterSet;
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

bool RowInterner::sameIdMeansSameCells() const { return m_index->sameIdMeansSameCells(); }

}  // namespace corvale
