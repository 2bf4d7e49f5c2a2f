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

    // Equal for equal joined texts, however their cells are cut. Differs from process to process.
    std::size_t hash(const ComparisonTexts::Row& row);
    static std::size_t hash(std::string_view joined);

    static bool isEqual(const ComparisonTexts::Row& row, std::string_view joined);
    static bool isEqual(const ComparisonTexts::Row& a, const ComparisonTexts::Row& b);

private:
    StoredPositions m_positions;
};

}  // namespace corvale
