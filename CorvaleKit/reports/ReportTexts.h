#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffResult.h"
#include "CorvaleKit/reports/ReportStrings.h"

// What both reports say in the same words. Texts are unescaped; views live as long as the strings or the result.
namespace corvale::ReportTexts {

// The key columns joined with " + ", or the words for row order.
std::string matchDescription(const RowMatch& match, const ReportStrings& strings);

// What is ignored, joined with ", "; a dash when nothing is.
std::string optionsDescription(const DiffOptions& options, const ReportStrings& strings);

const std::string& statusLabel(DiffRow::Status status, const ReportStrings& strings);
const std::string& kindLabel(ChangeKind kind, const ReportStrings& strings);
const std::string& sideLabel(DuplicateKey::Side side, const ReportStrings& strings);

// Tells what became of the column: "old → new", "+ " for one that only After has, "− " for one that only Before has.
std::string columnHeading(const ColumnPair& column);

// The key, or the words for one that is blank in all its columns.
std::string_view keyText(std::string_view key, const RowMatch& match, const ReportStrings& strings);

// "2, 5, 9"
std::string rowNumbers(const std::vector<std::int64_t>& numbers);

}  // namespace corvale::ReportTexts
