#include "Corvale/grid/TextDifference.h"

#include <algorithm>
#include <vector>

#include "CorvaleKit/base/WorkbookLimits.h"
#include "CorvaleKit/text/Text.h"
#include "CorvaleKit/text/Utf8.h"

namespace corvale {

namespace {

constexpr std::size_t bytesPerScalar = 4;
constexpr std::size_t longestOfCharacters = WorkbookLimits::textLength * bytesPerScalar;

std::vector<std::string_view> characters(std::string_view text) {
    std::vector<std::string_view> found;
    found.reserve(text.size());
    while (!text.empty()) {
        found.push_back(Text::firstCharacters(text, 1));
        text.remove_prefix(found.back().size());
    }
    return found;
}

// Between scalars of Unicode, which costs no more than reading the texts.
TextDifference ofScalars(std::string_view before, std::string_view after) {
    std::size_t head = static_cast<std::size_t>(std::ranges::mismatch(before, after).in1 - before.begin());
    while (head > 0 && ((head < before.size() && Utf8::isContinuation(before[head])) ||
                        (head < after.size() && Utf8::isContinuation(after[head])))) {
        --head;
    }
    before.remove_prefix(head);
    after.remove_prefix(head);
    const auto ends = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    std::size_t tail = static_cast<std::size_t>(ends.first - before.rbegin());
    while (tail > 0 && Utf8::isContinuation(before[before.size() - tail])) {
        --tail;
    }
    return {head, head + before.size() - tail, head + after.size() - tail};
}

}  // namespace

TextDifference TextDifference::of(std::string_view before, std::string_view after) {
    if (std::max(before.size(), after.size()) > longestOfCharacters) {
        return ofScalars(before, after);
    }
    TextDifference difference{0, before.size(), after.size()};
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
