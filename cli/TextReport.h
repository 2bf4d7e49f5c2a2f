#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "cli/Arguments.h"
#include "cli/Terminal.h"

namespace corvale::Cli {

// A file of the comparison as its line in the heading names it.
struct ComparedFile {
    std::string path;
    std::optional<std::string> sheet;  // the name on its tab; none for a text file
};

// What the report says beside the result itself.
struct TextReportContext {
    ComparedFile before;
    ComparedFile after;
    bool matchIsSuggested = false;
    ListChoice list;
    TextStyle style;
};

// A comparison as a text for people: what was compared, a block for each listed row, the counts. `visible` are the
// indexes of the listed rows.
void writeTextReport(const DiffResult& result, const std::vector<std::int64_t>& visible,
                     const TextReportContext& context, const JsonWriter::Sink& sink);

}  // namespace corvale::Cli
