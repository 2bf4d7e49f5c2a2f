#include <gtest/gtest.h>

#include "cli/SummaryReport.h"

namespace corvale::Cli {
namespace {

TEST(SummaryReport, HasEveryCountInOrder) {
    const DiffSummary summary{1, 2, 3, 4, 5, 6, 7, 8, {{0, 5}}};
    EXPECT_EQ(summaryReport(summary),
              "added: 1\nremoved: 2\nchanged: 3\nsame: 4\nchangedCells: 5\ntypeOnlyCells: 6\naddedColumns: 7\n"
              "removedColumns: 8\n");
}

}  // namespace
}  // namespace corvale::Cli
