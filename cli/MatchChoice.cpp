#include "cli/MatchChoice.h"

#include <string>
#include <vector>

#include "CorvaleKit/engine/KeyMatching.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "cli/NameChoice.h"
#include "cli/Paths.h"

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
        requireColumns(wanted->columns(), files.before.path, tables.before.table);
        requireColumns(wanted->columns(), files.after.path, tables.after.table);
        return {*wanted, false};
    }
    const auto key = KeySuggester::suggestedKey(tables.before.table, tables.after.table);
    return {key ? RowMatch::key({*key}) : RowMatch::rowOrder(), true};
}

}  // namespace corvale::Cli
