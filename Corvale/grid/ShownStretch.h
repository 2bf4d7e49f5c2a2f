#pragma once

#include <cstddef>
#include <string_view>

#include "CorvaleKit/base/WorkbookLimits.h"

namespace corvale {

// The stretch of a value that the row details show: all of what a workbook cell can hold, and of a longer text as much.
// Laying out a text takes as long as the text is, and after a lost quote the rest of a file is one value.
struct ShownStretch {
    // In scalars of Unicode; what is hardly longer is shown whole too.
    static constexpr std::size_t longest = WorkbookLimits::textLength;

    // Bytes, between scalars.
    std::size_t begin = 0;
    std::size_t end = 0;

    // The stretch begins shortly before the byte at `place`, which is at most text.size(), where it would not be seen
    // from the start.
    static ShownStretch of(std::string_view text, std::size_t place);

    friend bool operator==(const ShownStretch&, const ShownStretch&) = default;
};

}  // namespace corvale
