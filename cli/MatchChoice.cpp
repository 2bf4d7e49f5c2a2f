#include "cli/MatchChoice.h"

#include <vector>

#include "CorvaleKit/engine/KeyMatching.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "cli/FileReading.h"
#include "cli/NameChoice.h"

namespace corvale::Cli {

namespace {

void requireColumns(const std::vector<std::string>& names, const std::string& path, const DataTable& table) {
    for (const std::string& name : names) {
        if (KeyMatching::keyColumns({name}, table).empty()) {
            throw ColumnFailure(quotedPath(path) + " has no column “" + name + "” to match rows by.");
        }
    }
}

}  // namespace

MatchChoice chooseMatch(const std::optional<RowMatch>& wanted, const PairChoice& files, const TablePair& tables) {
    if (wanted) {
        requireColumns(wanted->columns(), files.before.path, tables.before);
        requireColumns(wanted->columns(), files.after.path, tables.after);
        return {*wanted, false};
    }
    const auto key = KeySuggester::suggestedKey(tables.before, tables.after);
    return {key ? RowMatch::key({*key}) : RowMatch::rowOrder(), true};
}

DiffFilter listFilter(const ListChoice& list, const std::vector<ColumnPair>& columns) {
    DiffFilter filter;
    filter.show = list.show;
    filter.search = list.search;
    if (list.column) {
        std::vector<std::string> names;
        names.reserve(columns.size());
        for (const ColumnPair& column : columns) {
            names.push_back(column.name);
        }
        const auto index = indexOfName(names, *list.column);
        if (!index) {
            throw ColumnFailure("The comparison has no column “" + *list.column + "”.");
        }
        filter.column = static_cast<std::int64_t>(*index);
    }
    return filter;
}

}  // namespace corvale::Cli
