#include "CorvaleKit/engine/ColumnMatching.h"

#include <algorithm>
#include <utility>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/text/Text.h"

namespace corvale::ColumnMatching {

namespace {

// Tells the columns that are shown but not compared.
class NotCompared {
public:
    NotCompared(const DiffOptions& options, const std::vector<std::string>& keyColumns) {
        for (const auto& name : options.ignoredColumns) {
            m_ignored.insert(Text::lowercased(name));
        }
        for (const auto& name : keyColumns) {
            m_keys.insert(Text::lowercased(name));
        }
    }

    // Only the header is trimmed, and only for the keys: a name with outer spaces is ignored by that very name.
    bool contains(std::string_view header) const {
        return (!m_ignored.empty() && m_ignored.contains(Text::lowercased(header))) ||
               (!m_keys.empty() && m_keys.contains(foldedName(header)));
    }

private:
    HashSet<std::string> m_ignored;
    HashSet<std::string> m_keys;
};

// The After columns that no Before column has taken yet, by their headers.
class FreeColumns {
public:
    explicit FreeColumns(const std::vector<std::string>& headers) : m_taken(headers.size(), false) {
        for (std::size_t i = 0; i < headers.size(); ++i) {
            m_byText[headers[i]].columns.push_back(i);
            m_byName[foldedName(headers[i])].columns.push_back(i);
        }
    }

    // The first that equals the header, else the first of the same name; it is taken from then on.
    std::optional<std::size_t> take(std::string_view header) {
        auto column = firstFree(m_byText, header);
        if (!column) {
            column = firstFree(m_byName, foldedName(header));
        }
        if (column) {
            m_taken[*column] = true;
        }
        return column;
    }

    bool isTaken(std::size_t column) const { return m_taken[column]; }

private:
    struct Queue {
        std::vector<std::size_t> columns;  // ascending
        std::size_t first = 0;             // all before it are taken
    };

    template <typename Map, typename Key>
    std::optional<std::size_t> firstFree(Map& queues, const Key& key) {
        const auto found = queues.find(key);
        if (found == queues.end()) {
            return std::nullopt;
        }
        Queue& queue = found->second;
        while (queue.first < queue.columns.size() && m_taken[queue.columns[queue.first]]) {
            ++queue.first;
        }
        return queue.first < queue.columns.size() ? std::optional(queue.columns[queue.first]) : std::nullopt;
    }

    std::vector<bool> m_taken;
    HashMap<std::string_view, Queue> m_byText;
    HashMap<std::string, Queue> m_byName;
};

std::optional<std::int64_t> index(std::optional<std::size_t> column) {
    return column ? std::optional(static_cast<std::int64_t>(*column)) : std::nullopt;
}

std::vector<ColumnPair> pairByName(const std::vector<std::string>& before, const std::vector<std::string>& after,
                                   const NotCompared& notCompared) {
    std::vector<ColumnPair> pairs;
    FreeColumns columns(after);
    for (std::size_t i = 0; i < before.size(); ++i) {
        const auto taken = columns.take(before[i]);
        pairs.push_back({before[i], index(i), index(taken), notCompared.contains(before[i]), {}});
    }
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (!columns.isTaken(i)) {
            pairs.push_back({after[i], {}, index(i), notCompared.contains(after[i]), {}});
        }
    }
    return pairs;
}

std::vector<ColumnPair> pairByPosition(const std::vector<std::string>& before, const std::vector<std::string>& after,
                                       const NotCompared& notCompared) {
    std::vector<ColumnPair> pairs;
    for (std::size_t p = 0; p < std::max(before.size(), after.size()); ++p) {
        ColumnPair pair;
        pair.name = p < before.size() ? before[p] : after[p];
        pair.ignored = notCompared.contains(pair.name);
        if (p < before.size()) {
            pair.left = index(p);
        }
        if (p < after.size()) {
            pair.right = index(p);
        }
        if (pair.left && pair.right && !isSameName(before[p], after[p])) {
            pair.renamedTo = after[p];
        }
        pairs.push_back(std::move(pair));
    }
    return pairs;
}

}  // namespace

std::string foldedName(std::string_view header) { return Text::lowercased(Text::trimSpaces(header)); }

bool isSameName(std::string_view a, std::string_view b) {
    return a == b || Text::equalIgnoringCase(Text::trimSpaces(a), Text::trimSpaces(b));
}

std::vector<ColumnPair> pairColumns(const DataTable& before, const DataTable& after, const DiffOptions& options,
                                    const std::vector<std::string>& keyColumns) {
    const NotCompared notCompared(options, keyColumns);
    const auto pair = options.ignoreColumnOrder ? pairByName : pairByPosition;
    return pair(before.headers(), after.headers(), notCompared);
}

bool columnOrderChanged(const std::vector<ColumnPair>& columns) {
    std::int64_t last = -1;
    for (const auto& column : columns) {
        if (column.left && column.right) {
            if (*column.right < last) {
                return true;
            }
            last = *column.right;
        }
    }
    return false;
}

}  // namespace corvale::ColumnMatching
