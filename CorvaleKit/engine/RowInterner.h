#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/JoinedText.h"

namespace corvale {

// Gives every distinct row text of two tables a small id, in order of first appearance, so that rows are compared as
// integers from then on. A row's text is its comparison texts joined with U+001F.
class RowInterner {
public:
    static constexpr char separator = JoinedText::separator;

    // Both texts have the same number of columns and outlive the interner.
    RowInterner(const ComparisonTexts& before, const ComparisonTexts& after);
    RowInterner(const RowInterner&) = delete;
    RowInterner& operator=(const RowInterner&) = delete;
    ~RowInterner();

    // The id of each row of a side. Before comes first. `onRow` is called before every 4096th row, 0 included.
    std::vector<std::uint32_t> internBefore(const std::function<void(std::size_t)>& onRow = {});
    std::vector<std::uint32_t> internAfter(const std::function<void(std::size_t)>& onRow = {});

    // The id of the row with that text; none when there is no such row so far.
    std::optional<std::uint32_t> find(std::string_view text) const;

    // Ids given so far are 0 to idCount() - 1.
    std::size_t idCount() const;

    // False when rows with other cells got one id, since a cell holds a separator itself.
    bool sameIdMeansSameCells() const;

private:
    class Index;
    std::unique_ptr<Index> m_index;
};

}  // namespace corvale
