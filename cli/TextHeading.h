#pragma once

#include <string>

#include "CorvaleKit/engine/DiffResult.h"
#include "cli/TextReport.h"

namespace corvale::Cli {

// The two files, how their rows were matched, which columns differ, which options are in force; then an empty line.
void appendHeading(std::string& target, const DiffResult& result, const TextReportContext& context);

}  // namespace corvale::Cli
