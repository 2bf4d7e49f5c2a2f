#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffResult.h"

namespace corvale::Cli {

struct SummaryCount {
    std::string_view name;
    std::int64_t value = 0;
};

// Every count of a summary but changesByColumn, under the names and in the order that scripts rely on.
std::array<SummaryCount, 8> summaryCounts(const DiffSummary& summary);

// One `name: value` line a count.
std::string summaryReport(const DiffSummary& summary);

}  // namespace corvale::Cli
