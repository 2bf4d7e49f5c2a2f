#include "CorvaleKit/text/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace corvale::Utf8 {

namespace {

constexpr char32_t replacement = 0xFFFD;

std::uint8_t byteAt(std::string_view text, std::size_t i) { return static_cast<std::uint8_t>(text[i]); }

// What a lead byte promises: the sequence length, and the range its second byte may have (RFC 3629, section 4).
struct Lead {
    std::size_t length = 0;
    std::uint8_t secondLow = 0x80;
    std::uint8_t secondHigh = 0xBF;
};

Lead leadOf(std::uint8_t byte) {
    if (byte < 0x80) {
        return {1};
    }
    if (byte < 0xC2) {
        return {0};
    }
    if (byte < 0xE0) {
        return {2};
    }
    if (byte == 0xE0) {
        return {3, 0xA0};
    }
    if (byte == 0xED) {
        return {3, 0x80, 0x9F};
    }
    if (byte < 0xF0) {
        return {3};
    }
    if (byte == 0xF0) {
        return {4, 0x90};
    }
    if (byte < 0xF4) {
        return {4};
    }
    if (byte == 0xF4) {
        return {4, 0x80, 0x8F};
    }
    return {0};
}

// The number of bytes from `position` that form a well-formed sequence or the start of one.
std::size_t wellFormedLength(std::string_view text, std::size_t position, const Lead& lead) {
    std::size_t got = 1;
    for (; got < lead.length && position + got < text.size(); ++got) {
        const auto byte = byteAt(text, position + got);
        const bool fits =
            got == 1 ? byte >= lead.secondLow && byte <= lead.secondHigh : isContinuation(text[position + got]);
        if (!fits) {
            break;
        }
    }
    return got;
}

}  // namespace

std::size_t asciiEnd(std::string_view text, std::size_t position) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    while (position + 32 <= text.size()) {
        std::uint64_t words[4];
        std::memcpy(words, text.data() + position, sizeof words);
        if (((words[0] | words[1] | words[2] | words[3]) & highBits) != 0) {
            break;
        }
        position += 32;
    }
    while (position < text.size() && byteAt(text, position) < 0x80) {
        ++position;
    }
    return position;
}

std::size_t scalarCount(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isContinuation));
}

bool isAscii(std::string_view text) { return asciiEnd(text, 0) == text.size(); }

bool isValid(std::string_view text) {
    for (std::size_t i = asciiEnd(text, 0); i < text.size(); i = asciiEnd(text, i)) {
        const Lead lead = leadOf(byteAt(text, i));
        if (lead.length == 0 || wellFormedLength(text, i, lead) != lead.length) {
            return false;
        }
        i += lead.length;
    }
    return true;
}

std::string repaired(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t plain = asciiEnd(text, i);
        result.append(text, i, plain - i);
        i = plain;
        if (i < text.size()) {
            const Scalar scalar = scalarAt(text, i);
            append(result, scalar.value);
            i += scalar.length;
        }
    }
    return result;
}

Scalar scalarAt(std::string_view text, std::size_t position) {
    const auto first = byteAt(text, position);
    if (first < 0x80) {
        return {first, 1};
    }
    const Lead lead = leadOf(first);
    if (lead.length == 0) {
        return {replacement, 1};
    }
    const std::size_t got = wellFormedLength(text, position, lead);
    if (got != lead.length) {
        return {replacement, got};
    }
    char32_t value = first & (0x7FU >> lead.length);
    for (std::size_t k = 1; k < got; ++k) {
        value = (value << 6U) | (byteAt(text, position + k) & 0x3FU);
    }
    return {value, got};
}

Scalar scalarBefore(std::string_view text, std::size_t end) {
    for (std::size_t length = 1; length <= 4 && length <= end; ++length) {
        if (!isContinuation(text[end - length])) {
            const Scalar scalar = scalarAt(text.substr(0, end), end - length);
            return scalar.length == length ? scalar : Scalar{replacement, 1};
        }
    }
    return {replacement, 1};
}

void append(std::string& target, char32_t scalar) {
    const auto put = [&target](char32_t byte) { target += static_cast<char>(byte); };
    if (scalar < 0x80) {
        put(scalar);
    } else if (scalar < 0x800) {
        put(0xC0U | (scalar >> 6U));
        put(0x80U | (scalar & 0x3FU));
    } else if (scalar < 0x10000) {
        put(0xE0U | (scalar >> 12U));
        put(0x80U | ((scalar >> 6U) & 0x3FU));
        put(0x80U | (scalar & 0x3FU));
    } else {
        put(0xF0U | (scalar >> 18U));
        put(0x80U | ((scalar >> 12U) & 0x3FU));
        put(0x80U | ((scalar >> 6U) & 0x3FU));
        put(0x80U | (scalar & 0x3FU));
    }
}

}  // namespace corvale::Utf8
