#include "CorvaleKit/engine/KeySuggester.h"

#include <absl/container/flat_hash_map.h>
#include <absl/hash/hash.h>
#include <absl/strings/string_view.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "CorvaleKit/base/Memory.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale::KeySuggester {

namespace {

constexpr std::size_t sampleRows = 50'000;
// Columns whose values are held at a time; bounds the memory taken for wide tables.
constexpr std::size_t columnsAtOnce = 64;

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

std::string foldedName(std::string_view header) { return Text::lowercased(Text::trimSpaces(header)); }

std::vector<SharedColumn> sharedColumns(const DataTable& before, const DataTable& after) {
    absl::flat_hash_map<std::string, std::size_t> firstByName;
    for (std::size_t i = 0; i < after.headers().size(); ++i) {
        firstByName.try_emplace(foldedName(after.headers()[i]), i);
    }
    std::vector<SharedColumn> shared;
    for (std::size_t i = 0; i < before.headers().size(); ++i) {
        const auto found = firstByName.find(foldedName(before.headers()[i]));
        if (found != firstByName.end()) {
            shared.push_back({i, found->second});
        }
    }
    return shared;
}

bool isWordCharacter(std::string_view character) {
    const char32_t scalar = Utf8::scalarAt(character, 0).value;
    return scalar == '#' || Text::isLetter(scalar) || Text::isDigit(scalar);
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

// A filled cell, trimmed. A text of up to 16 bytes is held itself, so that equal ones are told without a look at the
// cells; of a longer one its place.
class Value {
public:
    // Reads 16 bytes from the start of the text on, which every cell of a table allows.
    explicit Value(std::string_view text) {
        if (text.size() > sizeof m_words) {
            m_words = std::bit_cast<Words>(text);
            m_hash = truncated(absl::HashOf(absl::string_view(text.data(), text.size())));
            return;
        }
        // A window over this keeps as many bytes as the text has.
        static constexpr auto masks = [] {
            std::array<unsigned char, 2 * sizeof(Words)> bytes{};
            std::fill_n(bytes.begin(), sizeof(Words), static_cast<unsigned char>(0xFF));
            return bytes;
        }();
        Words mask{};
        std::memcpy(mask.data(), masks.data() + sizeof mask - text.size(), sizeof mask);
        std::memcpy(m_words.data(), text.data(), sizeof m_words);
        m_words[0] &= mask[0];
        m_words[1] &= mask[1];
        m_size = static_cast<std::uint32_t>(text.size());
        m_hash = truncated(absl::HashOf(m_words[0], m_words[1], m_size));
    }

    std::uint32_t hash() const { return m_hash; }

    friend bool operator==(const Value& a, const Value& b) {
        return a.m_size == b.m_size && (a.m_words == b.m_words || (a.m_size == isLong && a.longText() == b.longText()));
    }

private:
    using Words = std::array<std::uint64_t, 2>;
    static_assert(sizeof(Words) == sizeof(std::string_view));
    static constexpr std::uint32_t isLong = ~std::uint32_t{0};

    static std::uint32_t truncated(std::size_t hash) { return static_cast<std::uint32_t>(hash); }
    std::string_view longText() const { return std::bit_cast<std::string_view>(m_words); }

    Words m_words{};
    std::uint32_t m_size = isLong;
    std::uint32_t m_hash = 0;
};

using Values = std::vector<Value>;

// The values of some columns of a table, each in row order. Rows are walked once, since that is how they lie in memory.
std::vector<Values> valuesOf(const DataTable& table, const std::vector<std::size_t>& columns) {
    std::vector<Values> values(columns.size());
    // Two Before columns may share an After column, so a column can stand at several places.
    std::vector<std::vector<std::size_t>> placesByColumn(table.headers().size());
    for (std::size_t place = 0; place < columns.size(); ++place) {
        values[place].reserve(sampledRows(table));
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

// Numbers distinct values in order of first appearance. Open addressing over 8 bytes a slot, so that a column's table
// stays in the cache and the next values' slots can be fetched ahead.
class DistinctValues {
public:
    // Forgets all values and makes room for as many; the memory is used again.
    void reset(std::size_t expected) {
        m_slots.assign(std::bit_ceil(2 * expected), Slot{});
        m_values.clear();
    }

    std::size_t size() const { return m_values.size(); }

    void prefetch(const Value& value) const { Memory::prefetch(&m_slots[slotOf(value.hash())]); }

    std::uint32_t insert(const Value& value) {
        for (std::size_t i = slotOf(value.hash());; i = (i + 1) & (m_slots.size() - 1)) {
            Slot& slot = m_slots[i];
            if (slot.number == 0) {
                m_values.push_back(value);
                slot = {value.hash(), static_cast<std::uint32_t>(m_values.size())};
                return slot.number - 1;
            }
            if (slot.hash == value.hash() && m_values[slot.number - 1] == value) {
                return slot.number - 1;
            }
        }
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number = 0;  // 1-based; 0: free
    };

    std::size_t slotOf(std::uint32_t hash) const { return hash & (m_slots.size() - 1); }

    std::vector<Slot> m_slots;  // a power of two, at most half full
    Values m_values;
};

// Calls visit(number) for each value, in order.
template <typename Visit>
void insertAll(DistinctValues& distinct, const Values& values, Visit visit) {
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

Counts countDistinct(DistinctValues& distinct, const Values& before, const Values& after) {
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

// Scores columns of two tables against each other.
class Scoring {
public:
    Scoring(const DataTable& before, const DataTable& after) : m_before(before), m_after(after) {}

    // Appends a candidate for each column that has values on both sides.
    void appendCandidates(std::vector<Candidate>& target, const std::vector<SharedColumn>& columns) {
        std::vector<std::size_t> left;
        std::vector<std::size_t> right;
        for (const auto& column : columns) {
            left.push_back(column.before);
            right.push_back(column.after);
        }
        const auto before = valuesOf(m_before, left);
        const auto after = valuesOf(m_after, right);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (!before[i].empty() && !after[i].empty()) {
                target.push_back(candidate(columns[i].before, before[i], after[i]));
            }
        }
    }

private:
    Candidate candidate(std::size_t column, const Values& before, const Values& after) {
        const Counts counts = countDistinct(m_distinct, before, after);
        const double fill =
            std::min(ratio(before.size(), sampledRows(m_before)), ratio(after.size(), sampledRows(m_after)));
        Candidate result;
        result.column = m_before.headers()[column];
        result.uniqueness = std::min(ratio(counts.before, before.size()), ratio(counts.after, after.size()));
        result.overlap = ratio(counts.common, counts.before);
        result.score = uniquenessWeight * result.uniqueness + overlapWeight * result.overlap + fill;
        if (looksLikeKeyName(result.column)) {
            result.score += keyNameBonus;
        }
        result.score -= positionPenalty * static_cast<double>(column);
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
    std::vector<Candidate> ranked;
    for (std::size_t first = 0; first < shared.size(); first += columnsAtOnce) {
        const std::size_t last = std::min(first + columnsAtOnce, shared.size());
        const auto begin = shared.begin();
        scoring.appendCandidates(
            ranked, {begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last)});
    }
    std::stable_sort(
        ranked.begin(), ranked.end(), [](const Candidate& a, const Candidate& b) { return a.score > b.score; });
    return ranked;
}

std::optional<std::string> suggestedKey(const DataTable& before, const DataTable& after) {
    return suggestedKey(candidates(before, after));
}

std::optional<std::string> suggestedKey(const std::vector<Candidate>& ranked) {
    if (ranked.empty() || ranked.front().uniqueness < leastUniqueness || ranked.front().overlap < leastOverlap) {
        return std::nullopt;
    }
    return ranked.front().column;
}

}  // namespace corvale::KeySuggester
