#include "CorvaleKit/engine/KeySuggester.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "CorvaleKit/base/HashTables.h"
#include "CorvaleKit/engine/ColumnMatching.h"
#include "CorvaleKit/engine/DistinctValues.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::KeySuggester {

namespace {

constexpr std::size_t sampleRows = 50'000;
// Columns whose values are held at a time; bounds the memory taken for wide tables. More where most of their cells are
// not there, since all rows are walked for each such lot.
constexpr std::size_t fewestColumnsAtOnce = 8;
constexpr std::size_t cellsAtOnce = fewestColumnsAtOnce * sampleRows;

constexpr double uniquenessWeight = 3.0;
constexpr double overlapWeight = 2.0;
constexpr double keyNameBonus = 0.75;
constexpr double positionPenalty = 0.01;  // a column index
constexpr double leastUniqueness = 0.95;
constexpr double leastOverlap = 0.2;

// "e-mail" never matches, since "-" separates words; it stays for whoever reads the list.
constexpr std::array<std::string_view, 28> keyWords{
    "id",      "sku",     "key",    "code",     "number",   "no",   "num",  "#",       "email", "e-mail",
    "account", "invoice", "order",  "isbn",     "upc",      "ean",  "asin", "barcode", "ref",   "reference",
    "uuid",    "guid",    "serial", "employee", "customer", "item", "part", "ticket",
};

// One column that both tables have.
struct SharedColumn {
    std::size_t before = 0;
    std::size_t after = 0;
};

std::vector<SharedColumn> sharedColumns(const DataTable& before, const DataTable& after) {
    HashMap<std::string, std::size_t> firstByName;
    for (std::size_t i = 0; i < after.headers().size(); ++i) {
        firstByName.try_emplace(ColumnMatching::foldedName(after.headers()[i]), i);
    }
    std::vector<SharedColumn> shared;
    for (std::size_t i = 0; i < before.headers().size(); ++i) {
        const auto found = firstByName.find(ColumnMatching::foldedName(before.headers()[i]));
        if (found != firstByName.end()) {
            shared.push_back({i, found->second});
        }
    }
    return shared;
}

bool isWordCharacter(std::string_view character) {
    const char32_t scalar = Utf8::scalarAt(character, 0).value;
    return character == "#" || Text::isLetter(scalar) || Text::isDigit(scalar);
}

bool isKeyWord(std::string_view word) { return std::find(keyWords.begin(), keyWords.end(), word) != keyWords.end(); }

// Loose on purpose: Paid and Valid pass.
bool looksLikeKeyName(std::string_view header) {
    const std::string name = Text::lowercased(header);
    std::size_t wordStart = 0;
    for (std::size_t i = 0; i < name.size();) {
        const std::string_view character = Text::firstCharacters(std::string_view(name).substr(i), 1);
        if (!isWordCharacter(character)) {
            if (isKeyWord(std::string_view(name).substr(wordStart, i - wordStart))) {
                return true;
            }
            wordStart = i + character.size();
        }
        i += character.size();
    }
    return isKeyWord(std::string_view(name).substr(wordStart)) || name.ends_with("id") || name.ends_with('#');
}

std::size_t sampledRows(const DataTable& table) { return std::min(table.rows().size(), sampleRows); }

std::size_t sampledCells(const DataTable& table) {
    std::size_t cells = 0;
    for (std::size_t i = 0; i < sampledRows(table); ++i) {
        cells += table.rows()[i].storedCells();
    }
    return cells;
}

std::size_t columnsAtOnce(const DataTable& before, const DataTable& after) {
    const std::size_t columns = std::max(before.headers().size(), after.headers().size());
    const std::size_t cells = std::max({sampledCells(before), sampledCells(after), std::size_t{1}});
    return std::max(fewestColumnsAtOnce, columns * cellsAtOnce / cells);
}

// The values of some columns of a table, each in row order. Rows are walked once, since that is how they lie in memory.
std::vector<CellValues> valuesOf(const DataTable& table, const std::vector<std::size_t>& columns) {
    std::vector<CellValues> values(columns.size());
    // Two Before columns may share an After column, so a column can stand at several places.
    std::vector<std::vector<std::size_t>> placesByColumn(table.headers().size());
    for (std::size_t place = 0; place < columns.size(); ++place) {
        if (columns.size() <= fewestColumnsAtOnce) {
            values[place].reserve(sampledRows(table));
        }
        placesByColumn[columns[place]].push_back(place);
    }
    const auto add = [&values](std::size_t place, std::string_view cell) {
        const std::string_view text = Text::trimSpacesAndLineBreaks(cell);
        if (!text.empty()) {
            values[place].emplace_back(text);
        }
    };
    for (std::size_t i = 0; i < sampledRows(table); ++i) {
        const CellRow row = table.rows()[i];
        if (row.storedCells() < columns.size()) {
            row.forEachStored([&](std::size_t column, std::string_view cell) {
                for (const std::size_t place : placesByColumn[column]) {
                    add(place, cell);
                }
            });
            continue;
        }
        for (std::size_t place = 0; place < columns.size(); ++place) {
            add(place, row[columns[place]]);
        }
    }
    return values;
}

// Calls visit(number) for each value, in order.
template <typename Visit>
void insertAll(DistinctValues& distinct, const CellValues& values, Visit visit) {
    constexpr std::size_t ahead = 12;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i + ahead < values.size()) {
            distinct.prefetch(values[i + ahead]);
        }
        visit(distinct.insert(values[i]));
    }
}

// How a column's values repeat on each side and recur on the other.
struct Counts {
    std::size_t before = 0;  // distinct values
    std::size_t after = 0;
    std::size_t common = 0;
};

Counts countDistinct(DistinctValues& distinct, const CellValues& before, const CellValues& after) {
    Counts counts;
    distinct.reset(before.size() + after.size());
    insertAll(distinct, before, [](std::uint32_t) {});
    counts.before = distinct.size();
    std::vector<bool> isCommon(counts.before, false);
    insertAll(distinct, after, [&](std::uint32_t number) {
        if (number < counts.before && !isCommon[number]) {
            isCommon[number] = true;
            ++counts.common;
        }
    });
    counts.after = distinct.size() - counts.before + counts.common;
    return counts;
}

double ratio(std::size_t part, std::size_t whole) {
    return static_cast<double>(part) / static_cast<double>(std::max<std::size_t>(whole, 1));
}

double score(std::string_view column, std::size_t place, double uniqueness, double overlap, double fill) {
    const double weighed = uniquenessWeight * uniqueness + overlapWeight * overlap + fill;
    return (looksLikeKeyName(column) ? weighed + keyNameBonus : weighed) - positionPenalty * static_cast<double>(place);
}

// Scores columns of two tables against each other.
class Scoring {
public:
    Scoring(const DataTable& before, const DataTable& after) : m_before(before), m_after(after) {}

    // The candidate of each column; none where a side has no values.
    std::vector<std::optional<Candidate>> candidates(std::span<const SharedColumn> columns) {
        std::vector<std::size_t> left;
        std::vector<std::size_t> right;
        for (const auto& column : columns) {
            left.push_back(column.before);
            right.push_back(column.after);
        }
        const auto before = valuesOf(m_before, left);
        const auto after = valuesOf(m_after, right);
        std::vector<std::optional<Candidate>> candidates(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!before[i].empty() && !after[i].empty()) {
                candidates[i] = candidate(columns[i].before, before[i], after[i]);
            }
        }
        return candidates;
    }

private:
    Candidate candidate(std::size_t column, const CellValues& before, const CellValues& after) {
        const Counts counts = countDistinct(m_distinct, before, after);
        const double fill =
            std::min(ratio(before.size(), sampledRows(m_before)), ratio(after.size(), sampledRows(m_after)));
        Candidate result;
        result.column = m_before.headers()[column];
        result.uniqueness = std::min(ratio(counts.before, before.size()), ratio(counts.after, after.size()));
        result.overlap = ratio(counts.common, counts.before);
        result.score = score(result.column, column, result.uniqueness, result.overlap, fill);
        return result;
    }

    const DataTable& m_before;
    const DataTable& m_after;
    DistinctValues m_distinct;
};

}  // namespace

std::vector<Candidate> candidates(const DataTable& before, const DataTable& after) {
    Scoring scoring(before, after);
    const auto shared = sharedColumns(before, after);
    const std::size_t atOnce = columnsAtOnce(before, after);
    std::vector<Candidate> ranked;
    for (std::span<const SharedColumn> left = shared; !left.empty();) {
        const std::size_t count = std::min(atOnce, left.size());
        for (auto& candidate : scoring.candidates(left.first(count))) {
            if (candidate) {
                ranked.push_back(std::move(*candidate));
            }
        }
        left = left.subspan(count);
    }
    std::stable_sort(
        ranked.begin(), ranked.end(), [](const Candidate& a, const Candidate& b) { return a.score > b.score; });
    return ranked;
}

// Most tables have one column with the name and the values of a key. So columns are read in the order of the highest
// score that each could have, and those that could not reach the best one so far not at all.
std::optional<std::string> suggestedKey(const DataTable& before, const DataTable& after) {
    auto shared = sharedColumns(before, after);
    std::vector<double> highest(before.headers().size());
    for (const SharedColumn& column : shared) {
        highest[column.before] = score(before.headers()[column.before], column.before, 1, 1, 1);
    }
    std::stable_sort(shared.begin(), shared.end(), [&](const SharedColumn& a, const SharedColumn& b) {
        return highest[a.before] > highest[b.before];
    });
    Scoring scoring(before, after);
    std::optional<Candidate> best;
    std::size_t place = 0;
    std::size_t atOnce = 1;
    for (std::span<const SharedColumn> left = shared; !left.empty();) {
        const auto columns = left.first(std::min(atOnce, left.size()));
        auto scored = scoring.candidates(columns);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const bool isBetter = scored[i] && (!best || scored[i]->score > best->score ||
                                                (scored[i]->score == best->score && columns[i].before < place));
            if (isBetter) {
                best = std::move(scored[i]);
                place = columns[i].before;
            }
        }
        left = left.subspan(columns.size());
        if (best) {
            const auto canWin = [&](const SharedColumn& column) { return highest[column.before] >= best->score; };
            left = left.first(static_cast<std::size_t>(std::ranges::partition_point(left, canWin) - left.begin()));
        }
        if (atOnce == 1 && !left.empty()) {
            atOnce = columnsAtOnce(before, after);
        }
    }
    return best ? suggestedKey(std::vector<Candidate>{*best}) : std::nullopt;
}

std::optional<std::string> suggestedKey(const std::vector<Candidate>& ranked) {
    if (ranked.empty() || ranked.front().uniqueness < leastUniqueness || ranked.front().overlap < leastOverlap) {
        return std::nullopt;
    }
    return ranked.front().column;
}

}  // namespace corvale::KeySuggester
