#include "Corvale/grid/TextDifference.h"

#include <algorithm>
#include <vector>

#include "CorvaleKit/text/Text.h"

namespace corvale {

namespace {

// 32,767 characters of four bytes, what a workbook cell can hold.
constexpr std::size_t longestCompared = std::size_t{32767} * 4;

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> found;
    found.reserve(text.size());
    while (!text.empty()) {
        found.push_back(Text::firstCharacters(text, 1));
        text.remove_prefix(found.back().size());
    }
    return found;
}

}  // namespace

TextDifference TextDifference::of(std::string_view before, std::string_view after) {
    TextDifference difference{0, before.size(), after.size()};
    if (std::max(before.size(), after.size()) > longestCompared) {
        return difference;
    }
    const auto a = characters(before);
    const auto b = characters(after);
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t head = 0;
    for (; head < shorter && a[head] == b[head]; ++head) {
        difference.begin += a[head].size();
    }
    for (std::size_t tail = 1; tail <= shorter - head && a[a.size() - tail] == b[b.size() - tail]; ++tail) {
        difference.beforeEnd -= a[a.size() - tail].size();
        difference.afterEnd -= b[b.size() - tail].size();
    }
    return difference;
}

}  // namespace corvale
