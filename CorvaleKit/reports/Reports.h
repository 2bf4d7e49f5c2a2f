#pragma once

#include <string>
#include <string_view>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/reports/ReportStrings.h"

// The files that people send to each other about a comparison, whole in memory. Beyond std::bad_alloc, only a workbook
// can fail, and only by its size.
namespace corvale::Reports {

// The report has more rows or columns than spreadsheet programs read.
class Failure : public UserFailure {
public:
    using UserFailure::UserFailure;
};

// One HTML page without scripts or outside resources, in UTF-8. `lang` is its language code (BCP 47), such as "en".
// Rows that are the same on both sides are left out.
std::string htmlReport(const DiffResult& result, const ReportStrings& strings, std::string_view lang);

// An .xlsx workbook of three sheets: a summary, the rows with what changed in them marked by colour, and the changed
// cells before and after. Rows that are the same on both sides are listed only with `includeUnchanged`, but always
// counted. Peak memory is below twice the uncompressed XML of the largest sheet. Throws Failure, or ZipWriter::TooLarge
// when that XML would pass 4 GiB.
std::string excelReport(const DiffResult& result, const ReportStrings& strings, bool includeUnchanged);

}  // namespace corvale::Reports
