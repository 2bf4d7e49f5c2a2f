#include "CorvaleKit/reports/SheetNames.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

constexpr std::size_t longestName = 31;
constexpr std::size_t longestNumberedName = 28;

std::string accepted(std::string_view name) {
    constexpr std::string_view forbidden = "[]:*?/\\";
    std::string kept;
    std::copy_if(name.begin(), name.end(), std::back_inserter(kept), [&](char c) {
        return forbidden.find(c) == std::string_view::npos;
    });
    return kept.empty() ? "Sheet" : std::string(Text::firstCharacters(kept, longestName));
}

}  // namespace

bool SheetNames::take(const std::string& name) { return m_used.insert(Text::lowercased(name)).second; }

std::string SheetNames::cleaned(std::string_view name) {
    const std::string wanted = accepted(name);
    std::string candidate = wanted;
    for (std::size_t number = 2; !take(candidate); ++number) {
        candidate = Text::firstCharacters(wanted, longestNumberedName);
        candidate += ' ';
        candidate += std::to_string(number);
    }
    return candidate;
}

}  // namespace corvale
