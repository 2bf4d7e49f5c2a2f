#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/loading/DataTable.h"

namespace corvale {

// One row that may hold the column names.
struct HeaderRowChoice {
    std::int64_t rowNumber = 0;  // 1-based, in the source
    std::string preview;         // its first filled cells on one line, never empty

    friend bool operator==(const HeaderRowChoice&, const HeaderRowChoice&) = default;
};

// The table's first rows that have anything in them.
std::vector<HeaderRowChoice> headerRowChoices(const DataTable& table);

}  // namespace corvale
