#include "Corvale/grid/ShownStretch.h"

#include <algorithm>

namespace corvale {

namespace {

// Characters of the longest text that a workbook cell can hold.
constexpr std::size_t longestShown = 32'767;
// Bytes shown before the place in question, and the fewest worth leaving out.
constexpr std::size_t context = 1000;

bool beginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

// Where a stretch that begins there ends.
std::size_t endOf(std::string_view text, std::size_t begin) {
    std::size_t end = begin;
    for (std::size_t characters = 0; end < text.size(); ++end) {
        if (beginsCharacter(text[end]) && ++characters > longestShown) {
            break;
        }
    }
    return text.size() - end <= context ? text.size() : end;
}

}  // namespace

ShownStretch ShownStretch::of(std::string_view text, std::size_t place) {
    ShownStretch shown{0, endOf(text, 0)};
    if (shown.end < text.size() && shown.end < place + context) {
        shown.begin = place - context;
        while (!beginsCharacter(text[shown.begin])) {
            --shown.begin;
        }
        shown.end = endOf(text, shown.begin);
    }
    return shown;
}

std::size_t characterCount(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), beginsCharacter));
}

}  // namespace corvale
