#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowPair.h"

// Row-order alignment in its simplest form: recursive, with whole tables, on texts in memory. Where several answers
// would do, the choice is the library's: of equally long chains the one that ends last and follows the last
// predecessors, of minimal differences the one that keeps equal rows from the end, and skips After's rows first; of
// skips of equal worth Before's.
namespace corvale::SlowRowOrder {

using Rows = std::vector<std::vector<std::string>>;

class Alignment {
public:
    Alignment(const Rows& before, const Rows& after, std::size_t columns)
        : m_before(before), m_after(after), m_columns(columns) {
        for (const auto& row : before) {
            m_beforeIds.push_back(idOf(row));
        }
        for (const auto& row : after) {
            m_afterIds.push_back(idOf(row));
        }
    }

    std::vector<RowPair> run() {
        anchor(0, m_before.size(), 0, m_after.size());
        std::size_t i = 0;
        std::size_t j = 0;
        for (const auto& [b, a] : m_anchors) {
            fill(i, b, j, a);
            pair(b, a);
            i = b + 1;
            j = a + 1;
        }
        fill(i, m_before.size(), j, m_after.size());
        return m_pairs;
    }

private:
    struct Anchor {
        std::size_t before;
        std::size_t after;
    };

    std::size_t idOf(const std::vector<std::string>& row) {
        std::string text;
        for (std::size_t column = 0; column < m_columns; ++column) {
            text += (column > 0 ? "\x1F" : "") + row[column];
        }
        return m_ids.try_emplace(text, m_ids.size()).first->second;
    }

    void anchor(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) {
        while (b0 < b1 && a0 < a1 && m_beforeIds[b0] == m_afterIds[a0]) {
            m_anchors.push_back({b0++, a0++});
        }
        std::vector<Anchor> tail;
        while (b0 < b1 && a0 < a1 && m_beforeIds[b1 - 1] == m_afterIds[a1 - 1]) {
            tail.push_back({--b1, --a1});
        }
        const auto unique = uniqueCommonRows(b0, b1, a0, a1);
        if (!unique.empty()) {
            for (const auto& [b, a] : longestChain(unique)) {
                anchor(b0, b, a0, a);
                m_anchors.push_back({b, a});
                b0 = b + 1;
                a0 = a + 1;
            }
            anchor(b0, b1, a0, a1);
        } else if ((b1 - b0) + (a1 - a0) <= 2000) {
            anchorMinimalDifference(b0, b1, a0, a1);
        }
        m_anchors.insert(m_anchors.end(), tail.rbegin(), tail.rend());
    }

    std::vector<Anchor> uniqueCommonRows(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) const {
        std::map<std::size_t, std::vector<std::size_t>> before;
        std::map<std::size_t, std::vector<std::size_t>> after;
        for (std::size_t b = b0; b < b1; ++b) {
            before[m_beforeIds[b]].push_back(b);
        }
        for (std::size_t a = a0; a < a1; ++a) {
            after[m_afterIds[a]].push_back(a);
        }
        std::vector<Anchor> unique;
        for (std::size_t b = b0; b < b1; ++b) {
            const auto found = after.find(m_beforeIds[b]);
            if (before[m_beforeIds[b]].size() == 1 && found != after.end() && found->second.size() == 1) {
                unique.push_back({b, found->second.front()});
            }
        }
        return unique;
    }

    static std::vector<Anchor> longestChain(const std::vector<Anchor>& points) {
        std::vector<std::size_t> lengths;
        for (std::size_t i = 0; i < points.size(); ++i) {
            std::size_t longest = 0;
            for (std::size_t j = 0; j < i; ++j) {
                longest = points[j].after < points[i].after ? std::max(longest, lengths[j]) : longest;
            }
            lengths.push_back(longest + 1);
        }
        std::vector<Anchor> chain;
        std::size_t wanted = *std::max_element(lengths.begin(), lengths.end());
        for (std::size_t i = points.size(); i-- > 0;) {
            if (lengths[i] == wanted) {
                chain.push_back(points[i]);
                --wanted;
            }
        }
        std::reverse(chain.begin(), chain.end());
        return chain;
    }

    void anchorMinimalDifference(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) {
        // By how many rows of each side are left out at the end: the most rows that can be kept of the others.
        std::vector<std::vector<int>> kept(b1 - b0 + 1, std::vector<int>(a1 - a0 + 1, 0));
        for (std::size_t b = b0; b < b1; ++b) {
            for (std::size_t a = a0; a < a1; ++a) {
                const std::size_t i = b - b0;
                const std::size_t j = a - a0;
                kept[i + 1][j + 1] =
                    m_beforeIds[b] == m_afterIds[a] ? kept[i][j] + 1 : std::max(kept[i][j + 1], kept[i + 1][j]);
            }
        }
        std::vector<Anchor> found;
        while (b0 < b1 && a0 < a1) {
            if (m_beforeIds[b1 - 1] == m_afterIds[a1 - 1]) {
                found.push_back({--b1, --a1});
            } else if (kept[b1 - b0][a1 - a0] == kept[b1 - b0][a1 - a0 - 1]) {
                --a1;
            } else {
                --b1;
            }
        }
        m_anchors.insert(m_anchors.end(), found.rbegin(), found.rend());
    }

    void fill(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) {
        if (b0 == b1 || a0 == a1) {
            unpaired(b0, b1, a0, a1);
        } else if ((b1 - b0) * (a1 - a0) > 40000) {
            walk(b0, b1, a0, a1);
        } else {
            align(b0, b1, a0, a1);
        }
    }

    void walk(std::size_t i, std::size_t b1, std::size_t j, std::size_t a1) {
        while (i < b1 && j < a1) {
            if (!areSimilar(i, j)) {
                for (std::size_t k = 1; k <= 8; ++k) {
                    if (j + k < a1 && areSimilar(i, j + k)) {
                        unpaired(i, i, j, j + k);
                        j += k;
                        break;
                    }
                    if (i + k < b1 && areSimilar(i + k, j)) {
                        unpaired(i, i + k, j, j);
                        i += k;
                        break;
                    }
                }
            }
            pair(i++, j++);
        }
        unpaired(i, b1, j, a1);
    }

    void align(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) {
        std::vector<std::vector<std::int64_t>> best(b1 - b0 + 1, std::vector<std::int64_t>(a1 - a0 + 1, 0));
        for (std::size_t i = b1 - b0; i-- > 0;) {
            for (std::size_t j = a1 - a0; j-- > 0;) {
                best[i][j] = std::max(best[i + 1][j], best[i][j + 1]);
                if (areSimilar(b0 + i, a0 + j)) {
                    best[i][j] = std::max(best[i][j], weight(b0 + i, a0 + j) + best[i + 1][j + 1]);
                }
            }
        }
        std::size_t i = 0;
        std::size_t j = 0;
        while (b0 + i < b1 && a0 + j < a1) {
            if (areSimilar(b0 + i, a0 + j) && best[i][j] == weight(b0 + i, a0 + j) + best[i + 1][j + 1]) {
                pair(b0 + i++, a0 + j++);
            } else if (best[i][j] == best[i + 1][j]) {
                unpaired(b0 + i, b0 + i + 1, a0 + j, a0 + j);
                ++i;
            } else {
                unpaired(b0 + i, b0 + i, a0 + j, a0 + j + 1);
                ++j;
            }
        }
        unpaired(b0 + i, b1, a0 + j, a1);
    }

    std::size_t equalCells(std::size_t b, std::size_t a) const {
        std::size_t equal = 0;
        for (std::size_t column = 0; column < m_columns; ++column) {
            equal += m_before[b][column] == m_after[a][column] ? 1 : 0;
        }
        return equal;
    }

    bool areSimilar(std::size_t b, std::size_t a) const { return m_columns < 2 || 2 * equalCells(b, a) >= m_columns; }

    std::int64_t weight(std::size_t b, std::size_t a) const { return static_cast<std::int64_t>(equalCells(b, a)) + 1; }

    void pair(std::size_t b, std::size_t a) {
        m_pairs.push_back({static_cast<std::uint32_t>(b), static_cast<std::uint32_t>(a)});
    }

    void unpaired(std::size_t b0, std::size_t b1, std::size_t a0, std::size_t a1) {
        for (; b0 < b1; ++b0) {
            m_pairs.push_back({static_cast<std::uint32_t>(b0), RowPair::none});
        }
        for (; a0 < a1; ++a0) {
            m_pairs.push_back({RowPair::none, static_cast<std::uint32_t>(a0)});
        }
    }

    const Rows& m_before;
    const Rows& m_after;
    std::size_t m_columns;
    std::map<std::string, std::size_t> m_ids;
    std::vector<std::size_t> m_beforeIds;
    std::vector<std::size_t> m_afterIds;
    std::vector<Anchor> m_anchors;
    std::vector<RowPair> m_pairs;
};

inline std::vector<RowPair> align(const Rows& before, const Rows& after, std::size_t columns) {
    return Alignment(before, after, columns).run();
}

}  // namespace corvale::SlowRowOrder
