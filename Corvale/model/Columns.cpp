#include "Corvale/model/Columns.h"

#include <algorithm>
#include <set>

#include "CorvaleKit/text/Text.h"

namespace corvale::Columns {

namespace {

std::set<std::string> lowercased(const std::vector<std::string>& names) {
    std::set<std::string> lower;
    for (const std::string& name : names) {
        lower.insert(Text::lowercased(name));
    }
    return lower;
}

}  // namespace

std::vector<std::string> shared(const DataTable& before, const DataTable& after) {
    const std::set<std::string> inAfter = lowercased(after.headers());
    std::vector<std::string> names;
    for (const std::string& name : before.headers()) {
        if (inAfter.contains(Text::lowercased(name))) {
            names.push_back(name);
        }
    }
    return names;
}

std::vector<std::string> all(const DataTable& before, const DataTable& after) {
    const std::set<std::string> inBefore = lowercased(before.headers());
    std::vector<std::string> names = before.headers();
    for (const std::string& name : after.headers()) {
        if (!inBefore.contains(Text::lowercased(name))) {
            names.push_back(name);
        }
    }
    return names;
}

bool isIgnored(const DiffOptions& options, const std::string& column) {
    const auto isSame = [name = Text::lowercased(column)](const auto& ignored) {
        return Text::lowercased(ignored) == name;
    };
    return options.ignoredColumns.contains(column) ||
           std::any_of(options.ignoredColumns.begin(), options.ignoredColumns.end(), isSame);
}

void toggleIgnored(DiffOptions& options, const std::string& column) {
    const std::string name = Text::lowercased(column);
    if (std::erase_if(options.ignoredColumns,
                      [&name](const auto& ignored) { return Text::lowercased(ignored) == name; }) == 0) {
        options.ignoredColumns.insert(column);
    }
}

}  // namespace corvale::Columns
