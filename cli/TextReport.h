#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "cli/Arguments.h"
#include "cli/Terminal.h"

namespace corvale::Cli {

// What the report says beside the result itself.
struct TextReportContext {
    PairChoice files;
    bool matchIsSuggested = false;
    ListChoice list;
    TextStyle style;
};

// A comparison as a text for people: what was compared, a block for each listed row, the counts. `visible` are the
// indexes of the listed rows.
void writeTextReport(const DiffResult& result, const std::vector<std::int64_t>& visible,
                     const TextReportContext& context, const JsonWriter::Sink& sink);

}  // namespace corvale::Cli
