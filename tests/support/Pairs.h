#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowPair.h"

namespace corvale::Pairs {

// "0:0 1:- -:1" for two paired rows, a Before row alone and an After row alone.
inline std::string shown(const std::vector<RowPair>& pairs) {
    const auto index = [](std::uint32_t row) { return row == RowPair::none ? "-" : std::to_string(row); };
    std::string text;
    for (const RowPair& pair : pairs) {
        text += (text.empty() ? "" : " ") + index(pair.left) + ':' + index(pair.right);
    }
    return text;
}

// True when the pairs hold every row of both sides once and in order.
inline bool areComplete(const std::vector<RowPair>& pairs, std::size_t beforeRows, std::size_t afterRows) {
    std::size_t nextBefore = 0;
    std::size_t nextAfter = 0;
    for (const RowPair& pair : pairs) {
        const bool isInOrder =
            (!pair.hasLeft() || pair.left == nextBefore) && (!pair.hasRight() || pair.right == nextAfter);
        if (!isInOrder || !(pair.hasLeft() || pair.hasRight())) {
            return false;
        }
        nextBefore += pair.hasLeft() ? 1 : 0;
        nextAfter += pair.hasRight() ? 1 : 0;
    }
    return nextBefore == beforeRows && nextAfter == afterRows;
}

}  // namespace corvale::Pairs
