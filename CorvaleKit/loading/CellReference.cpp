#include "CorvaleKit/loading/CellReference.h"

#include <algorithm>

#include "CorvaleKit/base/Numbers.h"

namespace corvale::XLSX {

namespace {

constexpr std::int64_t farRight = std::int64_t{1} << 40U;

// 1 for A in either case, 0 for what is no letter.
int letterNumber(char c) {
    const int number = (c | 0x20) - 'a' + 1;
    return number >= 1 && number <= 26 ? number : 0;
}

}  // namespace

std::optional<CellReference> cellReference(std::string_view text) {
    std::int64_t column = 0;
    std::size_t letters = 0;
    for (; letters < text.size() && letterNumber(text[letters]) != 0; ++letters) {
        column = std::min(column * 26 + letterNumber(text[letters]), farRight);
    }
    const std::string_view digits = text.substr(letters);
    if (letters == 0 || digits.empty() || digits.front() < '0' || digits.front() > '9') {
        return std::nullopt;
    }
    const auto row = Numbers::integer(digits);
    if (!row || *row < 1) {
        return std::nullopt;
    }
    return CellReference{*row - 1, column - 1};
}

}  // namespace corvale::XLSX
