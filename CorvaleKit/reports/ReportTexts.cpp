#include "CorvaleKit/reports/ReportTexts.h"

#include <cstddef>

#include "CorvaleKit/engine/DisplayKey.h"

namespace corvale::ReportTexts {

namespace {

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string all;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        all += i > 0 ? separator : "";
        all += texts[i];
    }
    return all;
}

}  // namespace

std::string matchDescription(const RowMatch& match, const ReportStrings& strings) {
    return match.columns().empty() ? strings.rowOrder : joined(match.columns(), " + ");
}

std::string optionsDescription(const DiffOptions& options, const ReportStrings& strings) {
    std::vector<std::string> ignored;
    if (options.ignoreCase) {
        ignored.push_back(strings.optionCase);
    }
    if (options.ignoreWhitespace) {
        ignored.push_back(strings.optionWhitespace);
    }
    if (options.ignoreNumberFormat) {
        ignored.push_back(strings.optionNumbers);
    }
    if (options.ignoreColumnOrder) {
        ignored.push_back(strings.optionColumnOrder);
    }
    ignored.insert(ignored.end(), options.ignoredColumns.begin(), options.ignoredColumns.end());
    return ignored.empty() ? "–" : joined(ignored, ", ");
}

const std::string& statusLabel(DiffRow::Status status, const ReportStrings& strings) {
    switch (status) {
        case DiffRow::Status::added:
            return strings.added;
        case DiffRow::Status::removed:
            return strings.removed;
        case DiffRow::Status::changed:
            return strings.changed;
        case DiffRow::Status::same:
            break;
    }
    return strings.same;
}

const std::string& kindLabel(ChangeKind kind, const ReportStrings& strings) {
    switch (kind) {
        case ChangeKind::numberFormat:
            return strings.kindNumberFormat;
        case ChangeKind::letterCase:
            return strings.kindLetterCase;
        case ChangeKind::whitespace:
            return strings.kindWhitespace;
        case ChangeKind::value:
            break;
    }
    return strings.kindValue;
}

const std::string& sideLabel(DuplicateKey::Side side, const ReportStrings& strings) {
    return side == DuplicateKey::Side::before ? strings.before : strings.after;
}

std::string columnHeading(const ColumnPair& column) {
    if (column.renamedTo) {
        return column.name + " → " + *column.renamedTo;
    }
    if (!column.left) {
        return "+ " + column.name;
    }
    return column.right ? column.name : "− " + column.name;
}

std::string_view keyText(std::string_view key, const RowMatch& match, const ReportStrings& strings) {
    return DisplayKey::isBlank(key, match.columns().size()) ? std::string_view(strings.blankKey) : key;
}

std::string rowNumbers(const std::vector<std::int64_t>& numbers) {
    std::string all;
    for (const std::int64_t number : numbers) {
        all += all.empty() ? "" : ", ";
        all += std::to_string(number);
    }
    return all;
}

}  // namespace corvale::ReportTexts
