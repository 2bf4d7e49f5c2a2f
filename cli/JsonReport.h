#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "CorvaleKit/base/JsonWriter.h"
#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/loading/DataTable.h"

// One JSON document for each command, handed to a sink piece by piece. Rows stand on lines of their own, so that tools
// that work by the line, such as git, can tell them apart.
namespace corvale::Cli::JsonReport {

void writeSheets(const std::vector<std::string>& names, const JsonWriter::Sink& sink);

void writeTable(const DataTable& table, const JsonWriter::Sink& sink);

void writeKey(const std::vector<KeySuggester::Candidate>& ranked, const JsonWriter::Sink& sink);

// `visible` are the indexes of the listed rows.
void writeResult(const DiffResult& result, const std::vector<std::int64_t>& visible, const JsonWriter::Sink& sink);

}  // namespace corvale::Cli::JsonReport
