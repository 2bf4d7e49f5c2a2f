#include "CorvaleKit/base/Numbers.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace corvale::Numbers {

namespace {

// std::from_chars takes a minus sign alone. None where a second sign follows.
std::optional<std::string_view> withoutPlus(std::string_view text) {
    if (!text.starts_with('+')) {
        return text;
    }
    text.remove_prefix(1);
    return text.starts_with('-') ? std::nullopt : std::optional(text);
}

// Cut to a range that no text's length leaves, so that the two can be added.
std::int64_t exponentOf(std::string_view text) {
    constexpr std::int64_t beyondAnyText = std::int64_t{1} << 62U;
    const std::int64_t beyond = text.starts_with('-') ? -beyondAnyText : beyondAnyText;
    return std::clamp(integer(text).value_or(beyond), -beyondAnyText, beyondAnyText);
}

// Whether a number that no double can hold is too small rather than too large: std::from_chars says only that it is one
// of the two.
bool isTiny(std::string_view number) {
    const std::size_t mark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t leading = mantissa.find_first_of("123456789");
    const auto scale = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
    return mark < number.size() ? scale + exponentOf(number.substr(mark + 1)) < 0 : scale < 0;
}

// Too few digits to overflow, as nearly all numbers are; no digit at all is no number.
bool isShort(std::string_view text) { return text.size() - 1 < 18; }

// None where something other than a digit comes.
std::optional<std::int64_t> shortUnsigned(std::string_view text) {
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

}  // namespace

std::optional<std::int64_t> integer(std::string_view text) {
    if (isShort(text)) [[likely]] {
        if (const auto value = shortUnsigned(text)) {
            return value;
        }
    }
    const auto digits = withoutPlus(text);
    if (!digits) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    const char* end = digits->data() + digits->size();
    const auto [stop, error] = std::from_chars(digits->data(), end, value);
    return error == std::errc() && stop == end ? std::optional(value) : std::nullopt;
}

std::optional<double> decimal(std::string_view text) {
    const auto number = withoutPlus(text);
    const std::size_t first = number && number->starts_with('-') ? 1 : 0;
    // The names of infinities and of what is no number begin with a letter.
    if (!number || first == number->size() || (*number)[first] > '9') {
        return std::nullopt;
    }
    double value = 0;
    const char* end = number->data() + number->size();
    const auto [stop, error] = std::from_chars(number->data(), end, value);
    if (stop != end || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        return isTiny(*number) ? std::optional(0.0) : std::nullopt;
    }
    return value;
}

}  // namespace corvale::Numbers
