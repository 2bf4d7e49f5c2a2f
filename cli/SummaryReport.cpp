#include "cli/SummaryReport.h"

namespace corvale::Cli {

std::array<SummaryCount, 8> summaryCounts(const DiffSummary& summary) {
    return {{
        {"added", summary.added},
        {"removed", summary.removed},
        {"changed", summary.changed},
        {"same", summary.same},
        {"changedCells", summary.changedCells},
        {"typeOnlyCells", summary.typeOnlyCells},
        {"addedColumns", summary.addedColumns},
        {"removedColumns", summary.removedColumns},
    }};
}

std::string summaryReport(const DiffSummary& summary) {
    std::string report;
    for (const SummaryCount& count : summaryCounts(summary)) {
        report.append(count.name).append(": ").append(std::to_string(count.value)).append("\n");
    }
    return report;
}

}  // namespace corvale::Cli
