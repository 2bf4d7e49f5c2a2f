#include "cli/TextReport.h"

#include "cli/RowBlocks.h"
#include "cli/TextCounts.h"
#include "cli/TextHeading.h"

namespace corvale::Cli {

namespace {

// Enough to make writing cheap, little enough to show the first rows at once.
constexpr std::size_t pieceSize = 64 * 1024;

}  // namespace

void writeTextReport(const DiffResult& result, const std::vector<std::int64_t>& visible,
                     const TextReportContext& context, const JsonWriter::Sink& sink) {
    std::string text;
    appendHeading(text, result, context);
    const RowBlocks blocks(result, context.style);
    for (const std::int64_t index : visible) {
        blocks.append(text, result.rows[static_cast<std::size_t>(index)]);
        if (text.size() >= pieceSize) {
            sink(text);
            text.clear();
        }
    }
    if (!visible.empty()) {
        text += '\n';
    }
    appendCounts(text, result, visible.size(), context);
    sink(text);
}

}  // namespace corvale::Cli
