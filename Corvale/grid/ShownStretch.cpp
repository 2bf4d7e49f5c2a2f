#include "Corvale/grid/ShownStretch.h"

#include "CorvaleKit/text/Utf8.h"

namespace corvale {

namespace {

// In bytes.
constexpr std::size_t shownBeforePlace = 100;
constexpr std::size_t leastLeftOut = 1000;

// Where a stretch that begins there ends.
std::size_t endOf(std::string_view text, std::size_t begin) {
    std::size_t end = begin;
    for (std::size_t scalars = 0; end < text.size(); ++end) {
        if (!Utf8::isContinuation(text[end]) && ++scalars > ShownStretch::longest) {
            break;
        }
    }
    return text.size() - end < leastLeftOut ? text.size() : end;
}

}  // namespace

ShownStretch ShownStretch::of(std::string_view text, std::size_t place) {
    ShownStretch shown{0, endOf(text, 0)};
    if (shown.end < text.size() && shown.end < place + shownBeforePlace) {
        shown.begin = place - shownBeforePlace;
        while (Utf8::isContinuation(text[shown.begin])) {
            --shown.begin;
        }
        shown.end = endOf(text, shown.begin);
    }
    return shown;
}

}  // namespace corvale
