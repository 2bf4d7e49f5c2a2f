#include "cli/NameChoice.h"

#include <algorithm>

#include "CorvaleKit/text/Text.h"

namespace corvale::Cli {

std::optional<std::size_t> indexOfName(const std::vector<std::string>& names, std::string_view choice) {
    auto found = std::find(names.begin(), names.end(), choice);
    if (found == names.end()) {
        found = std::find_if(
            names.begin(), names.end(), [&](const std::string& name) { return Text::equalIgnoringCase(name, choice); });
    }
    return found == names.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - names.begin()));
}

std::string quotedList(const std::vector<std::string>& names) {
    constexpr std::size_t most = 10;
    const std::size_t shown = std::min(names.size(), most);
    const std::string further =
        names.size() > shown ? " and " + std::to_string(names.size() - shown) + " more" : std::string();
    std::string list;
    for (std::size_t i = 0; i < shown; ++i) {
        const bool isLast = i + 1 == names.size();
        list += i == 0 ? "" : isLast ? " and " : ", ";
        list += "“" + names[i] + "”";
    }
    return list + further;
}

}  // namespace corvale::Cli
