#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "CorvaleKit/base/Require.h"
#include "CorvaleKit/engine/RowOrderAlignment.h"
#include "tests/support/Pairs.h"
#include "tests/support/SlowRowOrder.h"
#include "tests/support/Tables.h"

namespace {

using namespace corvale;
using Tables::Rows;

constexpr std::uint8_t endOfBefore = 0xFF;
constexpr std::size_t mostRows = 2500;

// Few texts, so that rows repeat; some that run into each other when they are joined.
const std::array<std::string, 8> cellTexts = {"",
                                              "a",
                                              "b",
                                              "c",
                                              "a\x1F",
                                              "\x1F",
                                              "\x1F"
                                              "b",
                                              std::string(1100, 'x')};

struct Input {
    std::size_t columns = 1;
    Rows before;
    Rows after;
};

// Whole rows of one byte a cell, the lot of them `repeats` times.
Rows rowsOf(std::span<const std::uint8_t> bytes, std::size_t columns, std::size_t repeats) {
    Rows once;
    for (; bytes.size() >= columns && once.size() < mostRows; bytes = bytes.subspan(columns)) {
        once.emplace_back();
        for (const std::uint8_t byte : bytes.first(columns)) {
            once.back().push_back(byte < cellTexts.size() ? cellTexts[byte] : std::to_string(byte));
        }
    }
    Rows rows;
    for (; repeats > 0 && rows.size() + once.size() <= mostRows; --repeats) {
        rows.insert(rows.end(), once.begin(), once.end());
    }
    return rows;
}

// Most tables stay small, for the sake of the number that can be tried.
std::size_t repeats(std::uint8_t byte) {
    constexpr std::uint8_t firstRepeated = 240;
    return byte < firstRepeated ? 1 : (byte - firstRepeated + std::size_t{1}) * 5;
}

// The number of columns, how often each side is repeated, then the cells of Before and of After.
Input inputOf(std::span<const std::uint8_t> bytes) {
    Input input;
    input.columns = 1 + bytes[0] % 5;
    const auto cells = bytes.subspan(3);
    const auto end = static_cast<std::size_t>(std::find(cells.begin(), cells.end(), endOfBefore) - cells.begin());
    input.before = rowsOf(cells.first(end), input.columns, repeats(bytes[1]));
    input.after = rowsOf(cells.subspan(std::min(end + 1, cells.size())), input.columns, repeats(bytes[2]));
    return input;
}

bool areIdentical(const std::vector<RowPair>& pairs) {
    return std::all_of(pairs.begin(), pairs.end(), [](const RowPair& pair) { return pair.left == pair.right; });
}

}  // namespace

// Every row stands in the result once and in order; equal tables are paired row by row; tables small enough for it are
// aligned exactly as the slow way does it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) {
        return 0;
    }
    const Input input = inputOf({data, size});
    const auto before = Tables::texts(input.before, input.columns);
    const auto after = Tables::texts(input.after, input.columns);
    const auto [pairs, areSame] = RowOrderAlignment::align(before, after, {});
    CORVALE_REQUIRE(Pairs::areComplete(pairs, input.before.size(), input.after.size()),
                    "a row is missing or out of order");
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        CORVALE_REQUIRE(!areSame[i] || input.before[pairs[i].left] == input.after[pairs[i].right],
                        "rows are said to be the same that are not");
    }
    CORVALE_REQUIRE(areIdentical(RowOrderAlignment::align(before, before, {}).pairs),
                    "equal tables are not paired row by row");
    constexpr std::size_t slowArea = 50'000;
    if (input.before.size() * input.after.size() <= slowArea) {
        CORVALE_REQUIRE(pairs == SlowRowOrder::align(input.before, input.after, input.columns),
                        "rows are aligned otherwise");
    }
    return 0;
}
