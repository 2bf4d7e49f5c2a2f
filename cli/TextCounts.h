#pragma once

#include <cstddef>
#include <string>

#include "CorvaleKit/engine/DiffResult.h"
#include "cli/TextReport.h"

namespace corvale::Cli {

// What a text report ends with: the counts, then the keys that repeat and the rows without one. `listed` is the number
// of rows that the report has listed.
void appendCounts(std::string& target, const DiffResult& result, std::size_t listed, const TextReportContext& context);

}  // namespace corvale::Cli
