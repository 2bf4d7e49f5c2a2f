#include <gtest/gtest.h>

#include "Corvale/model/ReportExport.h"
#include "CorvaleKit/reports/ReportStrings.h"
#include "CorvaleKit/reports/Reports.h"

namespace corvale {
namespace {

DiffResult resultOf(const std::string& afterName) {
    DiffResult result;
    result.before = DataTable({"ID"}, {}, "before.csv");
    result.after = DataTable({"ID"}, {}, afterName);
    return result;
}

TEST(ReportExport, NamesAReportAfterTheNewerFile) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"november.csv", "november changes"},
        {"prices.november.csv", "prices.november changes"},
        {"Stock - November.xlsx", "Stock - November changes"},
        {"no extension", "no extension changes"},
        {".csv", ".csv changes"},
        {"Größe “2”.xlsx", "Größe “2” changes"},
        {"50%1.csv", "50%1 changes"},
        {"", " changes"},
    };
    for (const auto& [name, base] : cases) {
        EXPECT_EQ(ReportExport::defaultName(resultOf(name), ReportKind::excel).toStdString(), base + ".xlsx");
        EXPECT_EQ(ReportExport::defaultName(resultOf(name), ReportKind::html).toStdString(), base + ".html");
    }
}

TEST(ReportExport, WritesTheReportOfThatKindAndLanguage) {
    const DiffResult result = resultOf("after.csv");
    EXPECT_EQ(ReportExport::bytes(result, ReportKind::html, false, "en"),
              Reports::htmlReport(result, ReportStrings(), "en"));
    EXPECT_EQ(ReportExport::bytes(result, ReportKind::html, false, "de"),
              Reports::htmlReport(result, ReportStrings(), "en"));
    EXPECT_EQ(ReportExport::bytes(result, ReportKind::html, false, "es"),
              Reports::htmlReport(result, ReportStrings::spanish(), "es"));
    EXPECT_EQ(ReportExport::bytes(result, ReportKind::excel, true, "es"),
              Reports::excelReport(result, ReportStrings::spanish(), true));
    EXPECT_EQ(ReportExport::bytes(result, ReportKind::excel, false, "en"),
              Reports::excelReport(result, ReportStrings(), false));
}

}  // namespace
}  // namespace corvale
