#pragma once

#include <cstddef>
#include <string_view>

#include "CorvaleKit/engine/ComparisonTexts.h"
#include "CorvaleKit/engine/StoredPositions.h"

namespace corvale {

// A row's comparison texts joined with U+001F, the text by which rows are identical. It is never built: rows of any
// length are hashed and compared piece by piece.
class JoinedText {
public:
    static constexpr char separator = '\x1F';

    // Rows that their source has with one `delimiter` between the texts are hashed where they lie.
    explicit JoinedText(char delimiter = separator) : m_delimiter(delimiter) {}

    // Equal for equal joined texts of as many texts, however they are cut. Differs from process to process, and with
    // the delimiter.
    std::size_t hash(const ComparisonTexts::Row& row);
    std::size_t hash(std::string_view joined, std::size_t width) const;

    static bool isEqual(const ComparisonTexts::Row& row, std::string_view joined);
    static bool isEqual(const ComparisonTexts::Row& a, const ComparisonTexts::Row& b);

private:
    // Appends the texts one by one; of a thin row, those that it has.
    template <typename Hash>
    void append(const ComparisonTexts::Row& row, Hash& hash);

    char m_delimiter;
    StoredPositions m_positions;
};

}  // namespace corvale
