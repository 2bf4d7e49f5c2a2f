#pragma once

#include <string>
#include <string_view>

#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/reports/ReportStrings.h"

// The files that people send to each other about a comparison. Both are whole files in memory, and cannot fail but for
// std::bad_alloc.
namespace corvale::Reports {

// One HTML page without scripts or outside resources, in UTF-8. `lang` is its language code (BCP 47), such as "en".
// Rows that are the same on both sides are left out.
std::string htmlReport(const DiffResult& result, const ReportStrings& strings, std::string_view lang);

}  // namespace corvale::Reports
