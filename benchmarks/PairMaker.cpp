#include "benchmarks/PairMaker.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace corvale::benchmarks {

namespace {

constexpr std::array<std::string_view, 8> firstNames{"Ana", "Ben", "Carla", "Dmitri", "Elif", "Farid", "Greta", "Hugo"};
constexpr std::array<std::string_view, 8> lastNames{
    "Abel", "Brandt", "Costa", "Duarte", "Ferrari", "Haas", "Lopez", "Weber"};
constexpr std::array<std::string_view, 8> cities{
    "Amsterdam", "Berlin", "Córdoba", "Dublin", "Évora", "Genève", "Hamburg", "Zürich"};
constexpr std::array<std::string_view, 6> categories{"Kitchen", "Home", "Garden", "Paper", "Books", "Tools"};
constexpr std::array<std::string_view, 4> states{"open", "paid", "shipped", "returned"};
constexpr std::array<std::string_view, 5> notes{
    "", "", "call first", "\"gift wrap, please\"", "\"fragile \"\"glass\"\"\""};
constexpr std::string_view header = "Order ID,Customer,Email,City,Category,Price,Qty,Date,Status,Note\n";

// SplitMix64 (Steele, Lea, Flood 2014): the same numbers from every standard library.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(next() % limit); }

    template <std::size_t count>
    std::string_view pick(const std::array<std::string_view, count>& from) {
        return from[below(count)];
    }

private:
    std::uint64_t next() {
        m_state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

    std::uint64_t m_state;
};

std::string padded(std::size_t number, std::size_t width) {
    std::string digits = std::to_string(number);
    return std::string(digits.size() < width ? width - digits.size() : 0, '0') + digits;
}

using Row = std::array<std::string, 10>;

Row makeRow(std::size_t id, Random& random, std::string_view prefix = "ORD-") {
    const std::string first(random.pick(firstNames));
    const std::string last(random.pick(lastNames));
    return {std::string(prefix) + padded(id, 8),
            first + " " + last,
            first + "." + last + std::to_string(random.below(1000000)) + "@example.org",
            std::string(random.pick(cities)),
            std::string(random.pick(categories)),
            std::to_string(1 + random.below(999)) + "." + padded(random.below(100), 2),
            std::to_string(1 + random.below(99)),
            "2024-" + padded(1 + random.below(12), 2) + "-" + padded(1 + random.below(28), 2),
            std::string(random.pick(states)),
            std::string(random.pick(notes))};
}

void append(std::string& target, const Row& row) {
    for (std::size_t column = 0; column < row.size(); ++column) {
        target += row[column];
        target += column + 1 < row.size() ? ',' : '\n';
    }
}

void makeUpperCase(std::string& text) {
    for (char& c : text) {
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
    }
}

}  // namespace

CSVPair makePair(const PairOptions& options) {
    Random random(1);
    CSVPair pair{std::string(header), std::string(header)};
    std::size_t nextId = options.rows;
    for (std::size_t i = 0; i < options.rows; ++i) {
        Row row = makeRow(i, random);
        append(pair.before, row);
        const std::size_t dice = random.below(1000);
        if (options.everyRowChanged || (dice >= 10 && dice < 20)) {
            row[3] += " X";
        } else if (dice < 5) {
            continue;
        } else if (dice < 10) {
            append(pair.after, makeRow(nextId++, random));
        } else if (dice < 22) {
            makeUpperCase(row[1]);
        }
        append(pair.after, row);
    }
    return pair;
}

std::string makeUnrelated(std::size_t rows, unsigned seed) {
    Random random(seed);
    std::string table(header);
    for (std::size_t i = 0; i < rows; ++i) {
        append(table, makeRow(i, random, std::to_string(seed) + "-"));
    }
    return table;
}

}  // namespace corvale::benchmarks
