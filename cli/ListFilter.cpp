#include "cli/ListFilter.h"

#include <cstdint>
#include <string>

#include "cli/NameChoice.h"

namespace corvale::Cli {

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
